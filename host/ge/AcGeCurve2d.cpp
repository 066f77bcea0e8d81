#include "gecurv2d.h"

#include "CurveDistance.h"
#include "CurveFactory.h"
#include "CurveForm.h"
#include "CurveMeasure.h"
#include "CurveSample.h"
#include "Dimension.h"
#include "geblok2d.h"
#include "geline2d.h"
#include "geponc2d.h"

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

AcGeBoundBlock2d blockOf(const CurveForm& form)
{
    const Box box = boxOf(form);
    AcGeBoundBlock2d block;
    if (!box.isEmpty()) block.set(toPoint2d(box.min), toPoint2d(box.max));
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

bool AcGeCurve2d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kCurve2d || AcGeEntity2d::isKindOf(entType);
}

void AcGeCurve2d::getInterval(AcGeInterval& interval) const
{
    interval = intervalOf(form());
}

void AcGeCurve2d::getInterval(AcGeInterval& interval, AcGePoint2d& start, AcGePoint2d& end) const
{
    getInterval(interval);
    hasStartPoint(start);
    hasEndPoint(end);
}

AcGeCurve2d& AcGeCurve2d::reverseParam()
{
    turnRound();
    return *this;
}

AcGeCurve2d& AcGeCurve2d::setInterval()
{
    resetBounds();
    return *this;
}

bool AcGeCurve2d::setInterval(const AcGeInterval& interval)
{
    const double lo = lowerOf(interval), hi = upperOf(interval);
    return lo <= hi && setBounds(lo, hi);
}

double AcGeCurve2d::distanceTo(const AcGePoint2d& pnt, const AcGeTol&) const
{
    return closestTo(form(), lift(pnt)).distance;
}

double AcGeCurve2d::distanceTo(const AcGeCurve2d& crv, const AcGeTol&) const
{
    return closestBetween(form(), crv.form()).distance;
}

AcGePoint2d AcGeCurve2d::closestPointTo(const AcGePoint2d& pnt, const AcGeTol&) const
{
    return toPoint2d(closestTo(form(), lift(pnt)).point);
}

AcGePoint2d AcGeCurve2d::closestPointTo(const AcGeCurve2d& curve2d, AcGePoint2d& pntOnOtherCrv,
                                        const AcGeTol&) const
{
    const FootPair pair = closestBetween(form(), curve2d.form());
    pntOnOtherCrv = toPoint2d(pair.onSecond);
    return toPoint2d(pair.onFirst);
}

void AcGeCurve2d::getClosestPointTo(const AcGePoint2d& pnt, AcGePointOnCurve2d& pntOnCrv,
                                    const AcGeTol& tol) const
{
    pntOnCrv.setCurve(*this).setParameter(paramOf(pnt, tol));
}

void AcGeCurve2d::getClosestPointTo(const AcGeCurve2d& curve2d, AcGePointOnCurve2d& pntOnThisCrv,
                                    AcGePointOnCurve2d& pntOnOtherCrv, const AcGeTol&) const
{
    const FootPair pair = closestBetween(form(), curve2d.form());
    pntOnThisCrv.setCurve(*this).setParameter(pair.s);
    pntOnOtherCrv.setCurve(curve2d).setParameter(pair.t);
}

bool AcGeCurve2d::getNormalPoint(const AcGePoint2d& pnt, AcGePointOnCurve2d& pntOnCrv,
                                 const AcGeTol& tol) const
{
    const Foot foot = closestTo(form(), lift(pnt));
    const AcGeVector2d along = AcGePointOnCurve2d(*this, foot.t).deriv(1);
    const AcGeVector2d towards = pnt - toPoint2d(foot.point);
    if (!(foot.distance <= tol.equalPoint()) &&
        !(std::fabs(towards.normal().dotProduct(along.normal())) <= 1e-7))
        return false;
    pntOnCrv.setCurve(*this).setParameter(foot.t);
    return true;
}

void AcGeCurve2d::getLocalClosestPoints(const AcGePoint2d& point, AcGePointOnCurve2d& approxPnt,
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

AcGeBoundBlock2d AcGeCurve2d::boundBlock() const
{
    return blockOf(form());
}

AcGeBoundBlock2d AcGeCurve2d::boundBlock(const AcGeInterval& range) const
{
    const std::unique_ptr<AcGeCurve2d> part(pieceOf(*this, lowerOf(range), upperOf(range)));
    return part->boundBlock();
}

AcGeBoundBlock2d AcGeCurve2d::orthoBoundBlock() const
{
    return boundBlock();
}

AcGeBoundBlock2d AcGeCurve2d::orthoBoundBlock(const AcGeInterval& range) const
{
    return boundBlock(range);
}

bool AcGeCurve2d::isOn(const AcGePoint2d& pnt, const AcGeTol& tol) const
{
    return distanceTo(pnt, tol) <= tol.equalPoint();
}

bool AcGeCurve2d::isOn(const AcGePoint2d& pnt, double& param, const AcGeTol& tol) const
{
    const Foot foot = closestTo(form(), lift(pnt));
    if (!(foot.distance <= tol.equalPoint())) return false;
    param = foot.t;
    return true;
}

bool AcGeCurve2d::isOn(double param, const AcGeTol& tol) const
{
    const CurveForm f = form();
    return param >= f.lo - tol.equalPoint() && param <= f.hi + tol.equalPoint();
}

double AcGeCurve2d::paramOf(const AcGePoint2d& pnt, const AcGeTol&) const
{
    return closestTo(form(), lift(pnt)).t;
}

void AcGeCurve2d::getTrimmedOffset(double distance, AcGeVoidPointerArray& offsetCurveList,
                                   AcGe::OffsetCrvExtType, const AcGeTol& tol) const
{
    AcGeCurve2d* offset = offsetOf(*this, distance, tol);
    if (offset) offsetCurveList.append(offset);
}

bool AcGeCurve2d::isClosed(const AcGeTol& tol) const
{
    return gecore::isClosed(form(), tol.equalPoint());
}

bool AcGeCurve2d::isLinear(AcGeLine2d& line, const AcGeTol& tol) const
{
    const FlatFit fit = fitFlat(shapePoints(form()), tol.equalPoint());
    if (fit.kind != Flatness::kLinear) return false;
    line.set(toPoint2d(fit.point), toVector2d(fit.direction));
    return true;
}

bool AcGeCurve2d::isPeriodic(double& period) const
{
    const CurveForm f = form();
    const bool turning = f.kind == FormKind::kConic && std::fabs(f.hi - f.lo - kTwoPi) <= 1e-10;
    if (!turning && !(f.kind == FormKind::kSpline && isPeriodicSpline(f))) return false;
    period = f.hi - f.lo;
    return true;
}

double AcGeCurve2d::length(double fromParam, double toParam, double) const
{
    return std::fabs(lengthBetween(form(), fromParam, toParam));
}

double AcGeCurve2d::paramAtLength(double datumParam, double length, bool posParamDir, double) const
{
    return gecore::paramAtLength(form(), datumParam, posParamDir ? length : -length);
}

bool AcGeCurve2d::area(double startParam, double endParam, double& value, const AcGeTol& tol) const
{
    const CurveForm f = form();
    const FlatFit fit = fitFlat(shapePoints(f), tol.equalPoint());
    if (fit.kind == Flatness::kSpatial || !std::isfinite(startParam) || !std::isfinite(endParam))
        return false;
    value = fit.kind == Flatness::kPlanar ? std::fabs(areaBetween(f, startParam, endParam, fit.normal)) : 0;
    return true;
}

bool AcGeCurve2d::isDegenerate(AcGe::EntityId& degenerateType, const AcGeTol& tol) const
{
    const FlatFit fit = fitFlat(shapePoints(form()), tol.equalPoint());
    if (fit.kind != Flatness::kPoint) return false;
    degenerateType = AcGe::kPosition2d;
    return true;
}

void AcGeCurve2d::getSplitCurves(double param, AcGeCurve2d*& piece1, AcGeCurve2d*& piece2) const
{
    const CurveForm f = form();
    piece1 = piece2 = nullptr;
    if (!(param > f.lo && param < f.hi)) return;
    piece1 = pieceOf(*this, f.lo, param);
    piece2 = pieceOf(*this, param, f.hi);
}

bool AcGeCurve2d::explode(AcGeVoidPointerArray& explodedCurves, AcGeIntArray& newExplodedCurve,
                          const AcGeInterval* interval) const
{
    const CurveForm f = form();
    if (f.kind != FormKind::kChain) return false;
    const double lo = interval ? lowerOf(*interval) : f.lo, hi = interval ? upperOf(*interval) : f.hi;
    bool any = false;
    for (const ChainLink& link : *f.chain) {
        const double from = std::max(lo, link.start), to = std::min(hi, link.stop);
        if (!(from < to)) continue;
        explodedCurves.append(curve2dOf(trimmed(link.form, link.inner(from), link.inner(to))));
        newExplodedCurve.append(1);
        any = true;
    }
    return any;
}

bool AcGeCurve2d::hasStartPoint(AcGePoint2d& startPoint) const
{
    const CurveForm f = form();
    if (!(f.lo > -kInfinity)) return false;
    startPoint = toPoint2d(startOf(f));
    return true;
}

bool AcGeCurve2d::hasEndPoint(AcGePoint2d& endPoint) const
{
    const CurveForm f = form();
    if (!(f.hi < kInfinity)) return false;
    endPoint = toPoint2d(endOf(f));
    return true;
}

AcGePoint2d AcGeCurve2d::evalPoint(double param) const
{
    return toPoint2d(pointAt(form(), param));
}

AcGePoint2d AcGeCurve2d::evalPoint(double param, int numDeriv, AcGeVector2dArray& derivArray) const
{
    Arrow d[4];
    const int order = std::clamp(numDeriv, 0, 3);
    derivatives(form(), param, order, d);
    derivArray.setLogicalLength(order);
    for (int k = 1; k <= order; ++k)
        derivArray[k - 1] = toVector2d(d[k]);
    return AcGePoint2d::kOrigin + toVector2d(d[0]);
}

void AcGeCurve2d::getSamplePoints(double fromParam, double toParam, double approxEps,
                                  AcGePoint2dArray& pointArray, AcGeDoubleArray& paramArray, bool) const
{
    const CurveForm f = form();
    pointArray.removeAll();
    paramArray.removeAll();
    for (const double t : sampleParams(f, fromParam, toParam, approxEps)) {
        pointArray.append(toPoint2d(pointAt(f, t)));
        paramArray.append(t);
    }
}

void AcGeCurve2d::getSamplePoints(int numSample, AcGePoint2dArray& pointArray) const
{
    AcGeDoubleArray params;
    getSamplePoints(numSample, pointArray, params);
}

void AcGeCurve2d::getSamplePoints(int numSample, AcGePoint2dArray& pointArray,
                                  AcGeDoubleArray& paramArray) const
{
    const CurveForm f = form();
    pointArray.removeAll();
    paramArray.removeAll();
    if (numSample < 2 || !f.isBounded()) return;
    for (int i = 0; i < numSample; ++i) {
        const double t = i == numSample - 1 ? f.hi : f.lo + (f.hi - f.lo) * i / (numSample - 1);
        pointArray.append(toPoint2d(pointAt(f, t)));
        paramArray.append(t);
    }
}
