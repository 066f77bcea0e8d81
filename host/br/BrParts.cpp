#include "brparts.h"

#include "BrAccess.h"
#include "ClassRegistration.h"

ACDB_ABSTRACT_CLASS(AcBrFace, AcBrEntity)
ACDB_ABSTRACT_CLASS(AcBrLoop, AcBrEntity)
ACDB_ABSTRACT_CLASS(AcBrEdge, AcBrEntity)
ACDB_ABSTRACT_CLASS(AcBrVertex, AcBrEntity)

AcBr::ErrorStatus AcBrFace::getArea(double& area, double tolRequired, double* tolAchieved) const
{
    return getSurfaceArea(area, tolRequired, tolAchieved);
}

AcBr::ErrorStatus AcBrFace::getSurfaceType(AcGe::EntityId& type) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    type = AcGe::kPlane;
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrFace::getSurface(AcGeSurface*& surface) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    AcGePoint3d origin;
    AcGeVector3d xAxis, yAxis, normal;
    mShape->region.planeToWorld().getCoordSystem(origin, xAxis, yAxis, normal);
    surface = new AcGePlane(origin, xAxis, yAxis);
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrLoop::getType(AcBr::LoopType& type) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    type = mPlace.loop == 0 ? AcBr::kLoopExterior : AcBr::kLoopInterior;
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrLoop::getFace(AcBrFace& face) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    BrAccess::set(face, mShape, {mPlace.face, 0, 0});
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrVertex::getPoint(AcGePoint3d& point) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    BrAccess::curve(*this).hasStartPoint(point);
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrEdge::getCurve(AcGeCurve3d*& curve) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    curve = static_cast<AcGeCurve3d*>(BrAccess::curve(*this).copy());
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrEdge::getCurveType(AcGe::EntityId& type) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    type = BrAccess::curve(*this).type();
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrEdge::getOrientToCurve(Adesk::Boolean& orient) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    orient = Adesk::kTrue;
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrEdge::getVertex1(AcBrVertex& vertex) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    BrAccess::set(vertex, mShape, mPlace);
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrEdge::getVertex2(AcBrVertex& vertex) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    // The end of an edge is the start of the next one.
    br::Place place = mPlace;
    place.edge = (place.edge + 1) % BrAccess::loop(*this).size();
    BrAccess::set(vertex, mShape, place);
    return AcBr::eOk;
}
