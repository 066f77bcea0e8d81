/// Curves at a distance: the curve is laid into the plane, moved there, and brought back.

#include "CurveFactory.h"
#include "CurveOffset.h"
#include "dbcurve.h"
#include "gecomp3d.h"
#include "NurbsOf.h"
#include "PlanarCoords.h"

namespace
{
using kernel::OffsetChain;
using kernel::OffsetResult;
using kernel::OffsetStatus;

Acad::ErrorStatus statusOf(OffsetStatus status)
{
    switch (status) {
    case OffsetStatus::kOk:
        return Acad::eOk;
    case OffsetStatus::kNothing:
        return Acad::eInvalidOffset;
    case OffsetStatus::kBadCurve:
        return Acad::eInvalidInput;
    default:
        return Acad::eDegenerateGeometry;
    }
}

/// The plane's coordinates of a curve in it.
std::unique_ptr<AcGeCurve2d> laidFlat(const AcGeCurve3d& curve, const AcGeMatrix3d& toPlane)
{
    const std::unique_ptr<AcGeCurve3d> local(static_cast<AcGeCurve3d*>(curve.copy()));
    local->transformBy(toPlane);
    return std::unique_ptr<AcGeCurve2d>(gecore::curve2dOf(local->form()));
}

std::unique_ptr<AcGeCurve3d> raised(const AcGeCurve2d& curve, const AcGeMatrix3d& toWorld)
{
    std::unique_ptr<AcGeCurve3d> made(gecore::curve3dOf(curve.form()));
    if (made) made->transformBy(toWorld);
    return made;
}

std::unique_ptr<AcGeCurve3d> raised(const OffsetChain& chain, const AcGeMatrix3d& toWorld)
{
    if (chain.curves.size() == 1) return raised(*chain.curves.front(), toWorld);
    AcGeVoidPointerArray pieces;
    AcGeIntArray owned;
    for (const std::shared_ptr<const AcGeCurve2d>& curve : chain.curves) {
        if (std::unique_ptr<AcGeCurve3d> piece = raised(*curve, toWorld)) {
            pieces.append(piece.release());
            owned.append(1);
        }
    }
    return std::make_unique<AcGeCompositeCurve3d>(pieces, owned);
}

OffsetResult offsetInPlane(const AcGeCurve3d& curve, const AcGeMatrix3d& toPlane, double distance)
{
    const std::unique_ptr<AcGeCurve2d> flat = laidFlat(curve, toPlane);
    return kernel::offsetChain({flat.get()}, distance);
}
} // namespace

std::unique_ptr<AcDbCurve> AcDbCurve::makeLike(const AcGeCurve3d& curve, const AcGeVector3d& normal) const
{
    AcDbCurve* made = nullptr;
    if (createFromAcGeCurve(curve, made, &normal) != Acad::eOk) {
        // Lines and arcs that splines interrupt fit into a spline only.
        const std::unique_ptr<AcGeNurbCurve3d> nurbs = nurbsOf(curve);
        if (nurbs) createFromAcGeCurve(*nurbs, made, &normal);
    }
    if (made) made->setPropertiesFrom(this);
    return std::unique_ptr<AcDbCurve>(made);
}

Acad::ErrorStatus AcDbCurve::getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const
{
    AcGePlane plane;
    AcDb::Planarity planarity = AcDb::kNonPlanar;
    if (getPlane(plane, planarity) != Acad::eOk || planarity == AcDb::kNonPlanar)
        return Acad::eNonPlanarEntity;
    const std::unique_ptr<AcGeCurve3d> shape = makeGeCurveToOffset();
    if (!shape) return Acad::eDegenerateGeometry;
    const AcGeVector3d normal = plane.normal();
    const AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(plane);
    const OffsetResult result = offsetInPlane(*shape, toWorld.inverse(), -offset);
    if (result.status != OffsetStatus::kOk) return statusOf(result.status);
    AcDbVoidPtrArray made;
    for (const OffsetChain& chain : result.chains) {
        const std::unique_ptr<AcGeCurve3d> curve = raised(chain, toWorld);
        if (std::unique_ptr<AcDbCurve> like = curve ? makeLike(*curve, normal) : nullptr)
            made.append(like.release());
    }
    curves.append(made);
    return made.isEmpty() ? Acad::eInvalidOffset : Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getOffsetCurvesGivenPlaneNormal(const AcGeVector3d& normal, double offset,
                                                             AcDbVoidPtrArray& curves) const
{
    AcGePlane plane;
    AcDb::Planarity planarity = AcDb::kNonPlanar;
    if (!isDirection(normal)) return Acad::eInvalidInput;
    if (getPlane(plane, planarity) != Acad::eOk || planarity == AcDb::kNonPlanar)
        return Acad::eNonPlanarEntity;
    if (!plane.normal().isParallelTo(normal)) return Acad::eInvalidInput;
    return getOffsetCurves(plane.normal().dotProduct(normal) < 0.0 ? -offset : offset, curves);
}
