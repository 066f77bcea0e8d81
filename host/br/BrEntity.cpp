#include "BrAccess.h"
#include "ClassRegistration.h"

ACDB_ABSTRACT_CLASS(AcBrEntity, AcRxObject)

namespace
{
/// The curves that a part consists of.
std::vector<const AcGeCurve3d*> curvesOf(const AcBrEntity& entity)
{
    std::vector<const AcGeCurve3d*> curves;
    const br::Place& place = BrAccess::place(entity);
    const auto& faces = BrAccess::shape(entity)->faces;
    const bool isBrep = AcBrBrep::cast(&entity), isFace = AcBrFace::cast(&entity),
               isLoop = AcBrLoop::cast(&entity);
    for (std::size_t f = 0; f < faces.size(); ++f)
        for (std::size_t l = 0; l < faces[f].size(); ++l)
            for (std::size_t e = 0; e < faces[f][l].size(); ++e) {
                const bool isOfLoop = f == place.face && l == place.loop;
                if (isBrep || (isFace && f == place.face) || (isOfLoop && (isLoop || e == place.edge)))
                    curves.push_back(faces[f][l][e].get());
            }
    return curves;
}

double lengthOf(const AcGeCurve3d& curve)
{
    AcGeInterval range;
    curve.getInterval(range);
    return curve.length(range.lowerBound(), range.upperBound());
}

AcGe::PointContainment containmentOf(kernel::Side side)
{
    if (side == kernel::Side::kOn) return AcGe::kOnBoundary;
    return side == kernel::Side::kInside ? AcGe::kInside : AcGe::kOutside;
}

/// The edge that a point on the boundary lies on.
AcBrEntity* edgeAt(const AcBrEntity& entity, const AcGePoint3d& point)
{
    const auto& shape = BrAccess::shape(entity);
    auto edge = std::make_unique<AcBrEdge>();
    double nearest = 0.0;
    for (std::size_t f = 0; f < shape->faces.size(); ++f)
        for (std::size_t l = 0; l < shape->faces[f].size(); ++l)
            for (std::size_t e = 0; e < shape->faces[f][l].size(); ++e) {
                const double distance = shape->faces[f][l][e]->distanceTo(point);
                if (!edge->isNull() && distance >= nearest) continue;
                nearest = distance;
                BrAccess::set(*edge, shape, {f, l, e});
            }
    return edge.release();
}

/// The face that a point inside lies in.
AcBrEntity* faceAt(const AcBrEntity& entity, const AcGePoint3d& point)
{
    auto face = std::make_unique<AcBrFace>();
    const auto& shape = BrAccess::shape(entity);
    for (std::size_t f = 0; f < shape->faces.size(); ++f) {
        BrAccess::set(*face, shape, {f, 0, 0});
        if (BrAccess::face(*face).classify(point) != kernel::Side::kOutside) break;
    }
    return face.release();
}
} // namespace

bool AcBrEntity::isEqualTo(const AcRxObject* other) const
{
    const AcBrEntity* entity = AcBrEntity::cast(other);
    return entity && entity->isA() == isA() && entity->mShape == mShape && entity->mPlace == mPlace;
}

AcBr::ErrorStatus AcBrEntity::getBrep(AcBrBrep& owner) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    BrAccess::set(owner, mShape, {});
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrEntity::getBoundBlock(AcGeBoundBlock3d& block) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    AcGePoint3d vertex;
    if (const AcBrVertex* at = AcBrVertex::cast(this)) {
        at->getPoint(vertex);
        block.set(vertex, vertex);
        return AcBr::eOk;
    }
    bool isFirst = true;
    for (const AcGeCurve3d* curve : curvesOf(*this)) {
        AcGePoint3d low, high;
        curve->orthoBoundBlock().getMinMaxPoints(low, high);
        if (isFirst)
            block.set(low, high);
        else
            block.extend(low).extend(high);
        isFirst = false;
    }
    return isFirst ? AcBr::eNotApplicable : AcBr::eOk;
}

AcBr::ErrorStatus AcBrEntity::getSurfaceArea(double& area, double, double* tolAchieved) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    const bool isFace = AcBrFace::cast(this);
    if (!isFace && !AcBrBrep::cast(this)) return AcBr::eNotApplicable;
    area = isFace ? BrAccess::face(*this).area() : mShape->region.area();
    if (tolAchieved) *tolAchieved = 0.0;
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrEntity::getPerimeterLength(double& length, double, double* tolAchieved) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    if (AcBrVertex::cast(this)) return AcBr::eNotApplicable;
    length = 0.0;
    for (const AcGeCurve3d* curve : curvesOf(*this))
        length += lengthOf(*curve);
    if (tolAchieved) *tolAchieved = 0.0;
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrEntity::getPointContainment(const AcGePoint3d& point,
                                                  AcGe::PointContainment& containment,
                                                  AcBrEntity*& container) const
{
    if (isNull()) return AcBr::eUninitialisedObject;
    const bool isFace = AcBrFace::cast(this);
    if (!isFace && !AcBrBrep::cast(this)) return AcBr::eNotApplicable;
    containment = containmentOf((isFace ? BrAccess::face(*this) : mShape->region).classify(point));
    container = nullptr;
    if (containment == AcGe::kInside) container = faceAt(*this, point);
    if (containment == AcGe::kOnBoundary) container = edgeAt(*this, point);
    return AcBr::eOk;
}
