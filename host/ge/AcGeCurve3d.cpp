#include "gecurv3d.h"

#include "CurveDistance.h"
#include "CurveFactory.h"
#include "CurveForm.h"
#include "CurveMeasure.h"
#include "CurveSample.h"
#include "Dimension.h"
#include "geblok3d.h"
#include "geline3d.h"
#include "geplane.h"
#include "geponc3d.h"

#include <algorithm>
#include <memory>

using namespace gecore;

namespace
{
AcGeInterval intervalOf(const CurveForm& form)
{
    AcGeInterval interval;
    if (form.lo > -kInfinity) interval.setLower(form.lo);
    if (form.hi < kInfinity) interval.setUpper(form.hi);
    return interval;
}

double lowerOf(const AcGeInterval& i)
{
    return i.isBoundedBelow() ? i.lowerBound() : -kInfinity;
}
double upperOf(const AcGeInterval& i)
{
    return i.isBoundedAbove() ? i.upperBound() : kInfinity;
}

AcGeBoundBlock3d blockOf(const CurveForm& form)
{
    const Box box = boxOf(form);
    AcGeBoundBlock3d block;
    if (!box.isEmpty()) block.set(toPoint3d(box.min), toPoint3d(box.max));
    return block;
}

template <class Curve>
Curve* pieceOf(const Curve& curve, double lo, double hi)
{
    auto* piece = static_cast<Curve*>(curve.copy());
    piece->setInterval(AcGeInterval(lo, hi));
    return piece;
}
} // namespace

bool AcGeCurve3d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kCurve3d || AcGeEntity3d::isKindOf(entType);
}

void AcGeCurve3d::getInterval(AcGeInterval& interval) const
{
    interval = intervalOf(form());
}

void AcGeCurve3d::getInterval(AcGeInterval& interval, AcGePoint3d& start, AcGePoint3d& end) const
{
    getInterval(interval);
    hasStartPoint(start);
    hasEndPoint(end);
}

AcGeCurve3d& AcGeCurve3d::reverseParam()
{
    turnRound();
    return *this;
}

AcGeCurve3d& AcGeCurve3d::setInterval()
{
    resetBounds();
    return *this;
}

bool AcGeCurve3d::setInterval(const AcGeInterval& interval)
{
    const double lo = lowerOf(interval), hi = upperOf(interval);
    return lo <= hi && setBounds(lo, hi);
}

double AcGeCurve3d::distanceTo(const AcGePoint3d& pnt, const AcGeTol&) const
{
    return closestTo(form(), lift(pnt)).distance;
}

double AcGeCurve3d::distanceTo(const AcGeCurve3d& crv, const AcGeTol&) const
{
    return closestBetween(form(), crv.form()).distance;
}

AcGePoint3d AcGeCurve3d::closestPointTo(const AcGePoint3d& pnt, const AcGeTol&) const
{
    return toPoint3d(closestTo(form(), lift(pnt)).point);
}

AcGePoint3d AcGeCurve3d::closestPointTo(const AcGeCurve3d& curve3d, AcGePoint3d& pntOnOtherCrv,
                                        const AcGeTol&) const
{
    const FootPair pair = closestBetween(form(), curve3d.form());
    pntOnOtherCrv = toPoint3d(pair.onSecond);
    return toPoint3d(pair.onFirst);
}

void AcGeCurve3d::getClosestPointTo(const AcGePoint3d& pnt, AcGePointOnCurve3d& pntOnCrv,
                                    const AcGeTol& tol) const
{
    pntOnCrv.setCurve(*this).setParameter(paramOf(pnt, tol));
}

void AcGeCurve3d::getClosestPointTo(const AcGeCurve3d& curve3d, AcGePointOnCurve3d& pntOnThisCrv,
                                    AcGePointOnCurve3d& pntOnOtherCrv, const AcGeTol&) const
{
    const FootPair pair = closestBetween(form(), curve3d.form());
    pntOnThisCrv.setCurve(*this).setParameter(pair.s);
    pntOnOtherCrv.setCurve(curve3d).setParameter(pair.t);
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

bool AcGeCurve3d::getNormalPoint(const AcGePoint3d& pnt, AcGePointOnCurve3d& pntOnCrv,
                                 const AcGeTol& tol) const
{
    const Foot foot = closestTo(form(), lift(pnt));
    const AcGeVector3d along = AcGePointOnCurve3d(*this, foot.t).deriv(1);
    const AcGeVector3d towards = pnt - toPoint3d(foot.point);
    if (!(foot.distance <= tol.equalPoint()) &&
        !(std::fabs(towards.normal().dotProduct(along.normal())) <= 1e-7))
        return false;
    pntOnCrv.setCurve(*this).setParameter(foot.t);
    return true;
}

void AcGeCurve3d::getLocalClosestPoints(const AcGePoint3d& point, AcGePointOnCurve3d& approxPnt,
                                        const AcGeInterval* nbhd, const AcGeTol&) const
{
    const CurveForm f = form();
    const double lo = nbhd ? std::max(f.lo, lowerOf(*nbhd)) : f.lo,
                 hi = nbhd ? std::min(f.hi, upperOf(*nbhd)) : f.hi;
    if (!(lo <= hi)) return;
    const Foot foot = f.isBounded() || std::isfinite(hi - lo)
                          ? closestNear(f, lift(point), approxPnt.parameter(), lo, hi)
                          : closestTo(trimmed(f, lo, hi), lift(point));
    approxPnt.setCurve(*this).setParameter(foot.t);
}

AcGeBoundBlock3d AcGeCurve3d::boundBlock() const
{
    return blockOf(form());
}

AcGeBoundBlock3d AcGeCurve3d::boundBlock(const AcGeInterval& range) const
{
    const std::unique_ptr<AcGeCurve3d> part(pieceOf(*this, lowerOf(range), upperOf(range)));
    return part->boundBlock();
}

AcGeBoundBlock3d AcGeCurve3d::orthoBoundBlock() const
{
    return boundBlock();
}

AcGeBoundBlock3d AcGeCurve3d::orthoBoundBlock(const AcGeInterval& range) const
{
    return boundBlock(range);
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

bool AcGeCurve3d::isOn(const AcGePoint3d& pnt, const AcGeTol& tol) const
{
    return distanceTo(pnt, tol) <= tol.equalPoint();
}

bool AcGeCurve3d::isOn(const AcGePoint3d& pnt, double& param, const AcGeTol& tol) const
{
    const Foot foot = closestTo(form(), lift(pnt));
    if (!(foot.distance <= tol.equalPoint())) return false;
    param = foot.t;
    return true;
}

bool AcGeCurve3d::isOn(double param, const AcGeTol& tol) const
{
    const CurveForm f = form();
    return param >= f.lo - tol.equalPoint() && param <= f.hi + tol.equalPoint();
}

double AcGeCurve3d::paramOf(const AcGePoint3d& pnt, const AcGeTol&) const
{
    return closestTo(form(), lift(pnt)).t;
}

void AcGeCurve3d::getTrimmedOffset(double distance, const AcGeVector3d& planeNormal,
                                   AcGeVoidPointerArray& offsetCurveList, AcGe::OffsetCrvExtType,
                                   const AcGeTol& tol) const
{
    AcGeCurve3d* offset = offsetOf(*this, distance, planeNormal, tol);
    if (offset) offsetCurveList.append(offset);
}

bool AcGeCurve3d::isClosed(const AcGeTol& tol) const
{
    return gecore::isClosed(form(), tol.equalPoint());
}

bool AcGeCurve3d::isPlanar(AcGePlane& plane, const AcGeTol& tol) const
{
    const FlatFit fit = fitFlat(shapePoints(form()), tol.equalPoint());
    if (fit.kind == Flatness::kSpatial) return false;
    plane.set(fit.point, fit.kind == Flatness::kPoint ? AcGeVector3d::kZAxis : fit.normal);
    return true;
}

bool AcGeCurve3d::isLinear(AcGeLine3d& line, const AcGeTol& tol) const
{
    const FlatFit fit = fitFlat(shapePoints(form()), tol.equalPoint());
    if (fit.kind != Flatness::kLinear) return false;
    line.set(toPoint3d(fit.point), toVector3d(fit.direction));
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

bool AcGeCurve3d::isPeriodic(double& period) const
{
    const CurveForm f = form();
    const bool turning = f.kind == FormKind::kConic && std::fabs(f.hi - f.lo - kTwoPi) <= 1e-10;
    if (!turning && !(f.kind == FormKind::kSpline && isPeriodicSpline(f))) return false;
    period = f.hi - f.lo;
    return true;
}

double AcGeCurve3d::length(double fromParam, double toParam, double) const
{
    return std::fabs(lengthBetween(form(), fromParam, toParam));
}

double AcGeCurve3d::paramAtLength(double datumParam, double length, bool posParamDir, double) const
{
    return gecore::paramAtLength(form(), datumParam, posParamDir ? length : -length);
}

bool AcGeCurve3d::area(double startParam, double endParam, double& value, const AcGeTol& tol) const
{
    const CurveForm f = form();
    const FlatFit fit = fitFlat(shapePoints(f), tol.equalPoint());
    if (fit.kind == Flatness::kSpatial || !std::isfinite(startParam) || !std::isfinite(endParam))
        return false;
    value = fit.kind == Flatness::kPlanar ? std::fabs(areaBetween(f, startParam, endParam, fit.normal)) : 0;
    return true;
}

bool AcGeCurve3d::isDegenerate(AcGe::EntityId& degenerateType, const AcGeTol& tol) const
{
    const FlatFit fit = fitFlat(shapePoints(form()), tol.equalPoint());
    if (fit.kind != Flatness::kPoint) return false;
    degenerateType = AcGe::kPosition3d;
    return true;
}

void AcGeCurve3d::getSplitCurves(double param, AcGeCurve3d*& piece1, AcGeCurve3d*& piece2) const
{
    const CurveForm f = form();
    piece1 = piece2 = nullptr;
    if (!(param > f.lo && param < f.hi)) return;
    piece1 = pieceOf(*this, f.lo, param);
    piece2 = pieceOf(*this, param, f.hi);
}

bool AcGeCurve3d::explode(AcGeVoidPointerArray& explodedCurves, AcGeIntArray& newExplodedCurve,
                          const AcGeInterval* interval) const
{
    const CurveForm f = form();
    if (f.kind != FormKind::kChain) return false;
    const double lo = interval ? lowerOf(*interval) : f.lo, hi = interval ? upperOf(*interval) : f.hi;
    bool any = false;
    for (const ChainLink& link : *f.chain) {
        const double from = std::max(lo, link.start), to = std::min(hi, link.stop);
        if (!(from < to)) continue;
        explodedCurves.append(curve3dOf(trimmed(link.form, link.inner(from), link.inner(to))));
        newExplodedCurve.append(1);
        any = true;
    }
    return any;
}

bool AcGeCurve3d::hasStartPoint(AcGePoint3d& startPoint) const
{
    const CurveForm f = form();
    if (!(f.lo > -kInfinity)) return false;
    startPoint = toPoint3d(startOf(f));
    return true;
}

bool AcGeCurve3d::hasEndPoint(AcGePoint3d& endPoint) const
{
    const CurveForm f = form();
    if (!(f.hi < kInfinity)) return false;
    endPoint = toPoint3d(endOf(f));
    return true;
}

AcGePoint3d AcGeCurve3d::evalPoint(double param) const
{
    return toPoint3d(pointAt(form(), param));
}

AcGePoint3d AcGeCurve3d::evalPoint(double param, int numDeriv, AcGeVector3dArray& derivArray) const
{
    Arrow d[4];
    const int order = std::clamp(numDeriv, 0, 3);
    derivatives(form(), param, order, d);
    derivArray.setLogicalLength(order);
    for (int k = 1; k <= order; ++k)
        derivArray[k - 1] = toVector3d(d[k]);
    return AcGePoint3d::kOrigin + toVector3d(d[0]);
}

void AcGeCurve3d::getSamplePoints(double fromParam, double toParam, double approxEps,
                                  AcGePoint3dArray& pointArray, AcGeDoubleArray& paramArray, bool) const
{
    const CurveForm f = form();
    pointArray.removeAll();
    paramArray.removeAll();
    for (const double t : sampleParams(f, fromParam, toParam, approxEps)) {
        pointArray.append(toPoint3d(pointAt(f, t)));
        paramArray.append(t);
    }
}

void AcGeCurve3d::getSamplePoints(int numSample, AcGePoint3dArray& pointArray) const
{
    AcGeDoubleArray params;
    getSamplePoints(numSample, pointArray, params);
}

void AcGeCurve3d::getSamplePoints(int numSample, AcGePoint3dArray& pointArray,
                                  AcGeDoubleArray& paramArray) const
{
    const CurveForm f = form();
    pointArray.removeAll();
    paramArray.removeAll();
    if (numSample < 2 || !f.isBounded()) return;
    for (int i = 0; i < numSample; ++i) {
        const double t = i == numSample - 1 ? f.hi : f.lo + (f.hi - f.lo) * i / (numSample - 1);
        pointArray.append(toPoint3d(pointAt(f, t)));
        paramArray.append(t);
    }
}
