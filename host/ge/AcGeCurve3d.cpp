#include "gecurv3d.h"

#include "DimensionNames.h"
#include "geblok3d.h"
#include "geline3d.h"
#include "geplane.h"
#include "geponc3d.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(3d)
} // namespace

#include "AcGeCurve.inl"

bool AcGeCurve3d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kCurve3d || AcGeEntity3d::isKindOf(entType);
}

AcGePoint3d AcGeCurve3d::projClosestPointTo(const AcGePoint3d& pnt, const AcGeVector3d& projectDirection,
                                            const AcGeTol& tol) const
{
    const AcGePlane screen(pnt, projectDirection);
    AcGeCurve3d* image = static_cast<AcGeCurve3d*>(orthoProject(screen, tol));
    if (!image) return closestPointTo(pnt, tol);
    const double t = image->paramOf(pnt, tol);
    const AcGePoint3d seen = image->evalPoint(t);
    delete image;
    // The image of an ellipse may have other parameters: the point is where the ray through it meets the
    // curve.
    AcGePoint3d onCurve;
    closestPointTo(AcGeLine3d(seen, projectDirection), onCurve, tol);
    return closestPointTo(onCurve, tol);
}

AcGeEntity3d* AcGeCurve3d::project(const AcGePlane& projectionPlane, const AcGeVector3d& projectDirection,
                                   const AcGeTol& tol) const
{
    return imageOf(*this, AcGeMatrix3d::projection(projectionPlane, projectDirection), tol);
}

AcGeEntity3d* AcGeCurve3d::orthoProject(const AcGePlane& projectionPlane, const AcGeTol& tol) const
{
    return project(projectionPlane, projectionPlane.normal(), tol);
}

void AcGeCurve3d::getTrimmedOffset(double distance, const AcGeVector3d& planeNormal,
                                   AcGeVoidPointerArray& offsetCurveList, AcGe::OffsetCrvExtType,
                                   const AcGeTol& tol) const
{
    AcGeCurve3d* offset = offsetOf(*this, distance, planeNormal, tol);
    if (offset) offsetCurveList.append(offset);
}

bool AcGeCurve3d::isPlanar(AcGePlane& plane, const AcGeTol& tol) const
{
    const FlatFit fit = fitFlat(shapePoints(form()), tol.equalPoint());
    if (fit.kind == Flatness::kSpatial) return false;
    plane.set(fit.point, fit.kind == Flatness::kPoint ? AcGeVector3d::kZAxis : fit.normal);
    return true;
}

bool AcGeCurve3d::isCoplanarWith(const AcGeCurve3d& curve3d, AcGePlane& plane, const AcGeTol& tol) const
{
    std::vector<AcGePoint3d> points = shapePoints(form());
    for (const AcGePoint3d& p : shapePoints(curve3d.form()))
        points.push_back(p);
    const FlatFit fit = fitFlat(points, tol.equalPoint());
    if (fit.kind == Flatness::kSpatial) return false;
    plane.set(fit.point, fit.kind == Flatness::kPoint ? AcGeVector3d::kZAxis : fit.normal);
    return true;
}
