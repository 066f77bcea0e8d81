#include "dbcurve.h"

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "geblok3d.h"
#include "gecurv3d.h"
#include "geintrvl.h"
#include "geponc3d.h"
#include "PlanarCoords.h"

#include <cmath>

ACDB_ABSTRACT_CLASS(AcDbCurve, AcDbEntity)

const DxfClass AcDbCurve::dxf(nullptr, &AcDbEntity::dxf, {});

namespace
{
/// The interval of a curve's parameters, where it is bounded on the side asked for.
bool startOf(const AcGeCurve3d& curve, double& param)
{
    AcGeInterval interval;
    curve.getInterval(interval);
    if (!interval.isBoundedBelow()) return false;
    param = interval.lowerBound();
    return true;
}

bool endOf(const AcGeCurve3d& curve, double& param)
{
    AcGeInterval interval;
    curve.getInterval(interval);
    if (!interval.isBoundedAbove()) return false;
    param = interval.upperBound();
    return true;
}

/// Whether a parameter is on the curve; one that misses an end by rounding is moved there.
bool clampParam(const AcGeCurve3d& curve, double& param)
{
    if (!std::isfinite(param)) return false;
    double start = 0.0, end = 0.0;
    const double slack = 1e-9 * (1.0 + std::fabs(param));
    if (startOf(curve, start) && param < start) {
        if (start - param > slack) return false;
        param = start;
    }
    if (endOf(curve, end) && param > end) {
        if (param - end > slack) return false;
        param = end;
    }
    return true;
}
} // namespace

bool AcDbCurve::isClosed() const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    return curve && curve->isClosed();
}

Acad::ErrorStatus AcDbCurve::getStartParam(double& param) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    double start = 0.0;
    if (!curve || !startOf(*curve, start)) return Acad::eInvalidInput;
    param = dbParam(start);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getEndParam(double& param) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    double end = 0.0;
    if (!curve || !endOf(*curve, end)) return Acad::eInvalidInput;
    param = dbParam(end);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getStartPoint(AcGePoint3d& point) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    return curve && curve->hasStartPoint(point) ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbCurve::getEndPoint(AcGePoint3d& point) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    return curve && curve->hasEndPoint(point) ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbCurve::getPointAtParam(double param, AcGePoint3d& point) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    double at = geParam(param);
    if (!curve || !clampParam(*curve, at)) return Acad::eInvalidInput;
    point = curve->evalPoint(at);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    if (!curve || !isFinite(point)) return Acad::eInvalidInput;
    AcGePointOnCurve3d nearest;
    curve->getClosestPointTo(point, nearest);
    if (nearest.point3d().distanceTo(point) > onCurveTolerance(point)) return Acad::ePointNotOnEntity;
    param = dbParam(nearest.parameter());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getDistAtParam(double param, double& dist) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    double start = 0.0, at = geParam(param);
    if (!curve || !clampParam(*curve, at) || !startOf(*curve, start)) return Acad::eInvalidInput;
    dist = curve->length(start, at);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getParamAtDist(double dist, double& param) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    double start = 0.0, end = 0.0;
    if (!curve || !std::isfinite(dist) || dist < 0.0 || !startOf(*curve, start)) return Acad::eInvalidInput;
    if (endOf(*curve, end)) {
        const double length = curve->length(start, end);
        if (dist > length + AcGeContext::gTol.equalPoint()) return Acad::eInvalidInput;
        if (dist > length) dist = length;
    }
    param = dbParam(curve->paramAtLength(start, dist));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getDistAtPoint(const AcGePoint3d& point, double& dist) const
{
    double param = 0.0;
    const Acad::ErrorStatus status = getParamAtPoint(point, param);
    return status == Acad::eOk ? getDistAtParam(param, dist) : status;
}

Acad::ErrorStatus AcDbCurve::getPointAtDist(double dist, AcGePoint3d& point) const
{
    double param = 0.0;
    const Acad::ErrorStatus status = getParamAtDist(dist, param);
    return status == Acad::eOk ? getPointAtParam(param, point) : status;
}

Acad::ErrorStatus AcDbCurve::getFirstDeriv(double param, AcGeVector3d& deriv) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    double at = geParam(param);
    if (!curve || !clampParam(*curve, at)) return Acad::eInvalidInput;
    AcGeVector3dArray derivs;
    curve->evalPoint(at, 1, derivs);
    deriv = derivs[0] * (geParam(1.0) - geParam(0.0));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getFirstDeriv(const AcGePoint3d& point, AcGeVector3d& deriv) const
{
    double param = 0.0;
    const Acad::ErrorStatus status = getParamAtPoint(point, param);
    return status == Acad::eOk ? getFirstDeriv(param, deriv) : status;
}

Acad::ErrorStatus AcDbCurve::getSecondDeriv(double param, AcGeVector3d& deriv) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    double at = geParam(param);
    if (!curve || !clampParam(*curve, at)) return Acad::eInvalidInput;
    AcGeVector3dArray derivs;
    curve->evalPoint(at, 2, derivs);
    deriv = derivs[1] * std::pow(geParam(1.0) - geParam(0.0), 2);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getSecondDeriv(const AcGePoint3d& point, AcGeVector3d& deriv) const
{
    double param = 0.0;
    const Acad::ErrorStatus status = getParamAtPoint(point, param);
    return status == Acad::eOk ? getSecondDeriv(param, deriv) : status;
}

Acad::ErrorStatus AcDbCurve::getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                               bool extend) const
{
    std::unique_ptr<AcGeCurve3d> curve = extend ? makeExtendedGeCurve() : nullptr;
    if (!curve) curve = makeGeCurve();
    if (!curve || !isFinite(point)) return Acad::eInvalidInput;
    onCurve = curve->closestPointTo(point);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getClosestPointTo(const AcGePoint3d& point, const AcGeVector3d& direction,
                                               AcGePoint3d& onCurve, bool extend) const
{
    std::unique_ptr<AcGeCurve3d> curve = extend ? makeExtendedGeCurve() : nullptr;
    if (!curve) curve = makeGeCurve();
    if (!curve || !isFinite(point) || direction.isZeroLength()) return Acad::eInvalidInput;
    onCurve = curve->projClosestPointTo(point, direction);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getArea(double& area) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    double start = 0.0, end = 0.0;
    if (!curve || !startOf(*curve, start) || !endOf(*curve, end)) return Acad::eInvalidInput;
    return curve->area(start, end, area) ? Acad::eOk : Acad::eNonPlanarEntity;
}

Acad::ErrorStatus AcDbCurve::getAcGeCurve(AcGeCurve3d*& curve, const AcGeTol&) const
{
    curve = makeGeCurve().release();
    return curve ? Acad::eOk : Acad::eDegenerateGeometry;
}

Acad::ErrorStatus AcDbCurve::setFromAcGeCurve(const AcGeCurve3d&, const AcGeVector3d*, const AcGeTol&)
{
    return Acad::eNotImplementedYet;
}

void AcDbCurve::intersectionCurves(Curves& curves, bool extended) const
{
    std::unique_ptr<AcGeCurve3d> curve = extended ? makeExtendedGeCurve() : nullptr;
    if (!curve) curve = makeGeCurve();
    if (curve) curves.push_back(std::move(curve));
}

Acad::ErrorStatus AcDbCurve::subGetGeomExtents(AcDbExtents& extents) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    double start = 0.0, end = 0.0;
    if (!curve || !startOf(*curve, start) || !endOf(*curve, end)) return Acad::eInvalidExtents;
    AcGePoint3d min, max;
    curve->boundBlock().getMinMaxPoints(min, max);
    extents = AcDbExtents(min, max);
    return Acad::eOk;
}
