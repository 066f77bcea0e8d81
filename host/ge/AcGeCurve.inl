/// The members of AcGeCurve2d and AcGeCurve3d that are the same in the plane and in space.

#include "CurveDistance.h"
#include "CurveForm.h"
#include "CurveMeasure.h"
#include "CurveSample.h"

#include <algorithm>
#include <memory>

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

BoundBlock blockOf(const CurveForm& form)
{
    const Box box = boxOf(form);
    BoundBlock block;
    if (!box.isEmpty()) block.set(toPoint(box.min), toPoint(box.max));
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

void Curve::getInterval(AcGeInterval& interval) const
{
    interval = intervalOf(form());
}

void Curve::getInterval(AcGeInterval& interval, Point& start, Point& end) const
{
    getInterval(interval);
    hasStartPoint(start);
    hasEndPoint(end);
}

Curve& Curve::reverseParam()
{
    turnRound();
    return *this;
}

Curve& Curve::setInterval()
{
    resetBounds();
    return *this;
}

bool Curve::setInterval(const AcGeInterval& interval)
{
    const double lo = lowerOf(interval), hi = upperOf(interval);
    return lo <= hi && setBounds(lo, hi);
}

double Curve::distanceTo(const Point& pnt, const AcGeTol&) const
{
    return closestTo(form(), lift(pnt)).distance;
}

double Curve::distanceTo(const Curve& crv, const AcGeTol&) const
{
    return closestBetween(form(), crv.form()).distance;
}

Point Curve::closestPointTo(const Point& pnt, const AcGeTol&) const
{
    return toPoint(closestTo(form(), lift(pnt)).point);
}

Point Curve::closestPointTo(const Curve& other, Point& pntOnOtherCrv, const AcGeTol&) const
{
    const FootPair pair = closestBetween(form(), other.form());
    pntOnOtherCrv = toPoint(pair.onSecond);
    return toPoint(pair.onFirst);
}

void Curve::getClosestPointTo(const Point& pnt, PointOnCurve& pntOnCrv, const AcGeTol& tol) const
{
    pntOnCrv.setCurve(*this).setParameter(paramOf(pnt, tol));
}

void Curve::getClosestPointTo(const Curve& other, PointOnCurve& pntOnThisCrv, PointOnCurve& pntOnOtherCrv,
                              const AcGeTol&) const
{
    const FootPair pair = closestBetween(form(), other.form());
    pntOnThisCrv.setCurve(*this).setParameter(pair.s);
    pntOnOtherCrv.setCurve(other).setParameter(pair.t);
}

bool Curve::getNormalPoint(const Point& pnt, PointOnCurve& pntOnCrv, const AcGeTol& tol) const
{
    const Foot foot = closestTo(form(), lift(pnt));
    const Vector along = PointOnCurve(*this, foot.t).deriv(1);
    const Vector towards = pnt - toPoint(foot.point);
    if (!(foot.distance <= tol.equalPoint()) &&
        !(std::fabs(towards.normal().dotProduct(along.normal())) <= 1e-7))
        return false;
    pntOnCrv.setCurve(*this).setParameter(foot.t);
    return true;
}

void Curve::getLocalClosestPoints(const Point& point, PointOnCurve& approxPnt, const AcGeInterval* nbhd,
                                  const AcGeTol&) const
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

BoundBlock Curve::boundBlock() const
{
    return blockOf(form());
}

BoundBlock Curve::boundBlock(const AcGeInterval& range) const
{
    const std::unique_ptr<Curve> part(pieceOf(*this, lowerOf(range), upperOf(range)));
    return part->boundBlock();
}

BoundBlock Curve::orthoBoundBlock() const
{
    return boundBlock();
}

BoundBlock Curve::orthoBoundBlock(const AcGeInterval& range) const
{
    return boundBlock(range);
}

bool Curve::isOn(const Point& pnt, const AcGeTol& tol) const
{
    return distanceTo(pnt, tol) <= tol.equalPoint();
}

bool Curve::isOn(const Point& pnt, double& param, const AcGeTol& tol) const
{
    const Foot foot = closestTo(form(), lift(pnt));
    if (!(foot.distance <= tol.equalPoint())) return false;
    param = foot.t;
    return true;
}

bool Curve::isOn(double param, const AcGeTol& tol) const
{
    const CurveForm f = form();
    return param >= f.lo - tol.equalPoint() && param <= f.hi + tol.equalPoint();
}

double Curve::paramOf(const Point& pnt, const AcGeTol&) const
{
    return closestTo(form(), lift(pnt)).t;
}

bool Curve::isClosed(const AcGeTol& tol) const
{
    return gecore::isClosed(form(), tol.equalPoint());
}

bool Curve::isLinear(Line& line, const AcGeTol& tol) const
{
    const FlatFit fit = fitFlat(shapePoints(form()), tol.equalPoint());
    if (fit.kind != Flatness::kLinear) return false;
    line.set(toPoint(fit.point), toVector(fit.direction));
    return true;
}

bool Curve::isPeriodic(double& period) const
{
    const CurveForm f = form();
    const bool turning = f.kind == FormKind::kConic && std::fabs(f.hi - f.lo - kTwoPi) <= 1e-10;
    if (!turning && !(f.kind == FormKind::kSpline && isPeriodicSpline(f))) return false;
    period = f.hi - f.lo;
    return true;
}

double Curve::length(double fromParam, double toParam, double) const
{
    return std::fabs(lengthBetween(form(), fromParam, toParam));
}

double Curve::paramAtLength(double datumParam, double length, bool posParamDir, double) const
{
    return gecore::paramAtLength(form(), datumParam, posParamDir ? length : -length);
}

bool Curve::area(double startParam, double endParam, double& value, const AcGeTol& tol) const
{
    const CurveForm f = form();
    const FlatFit fit = fitFlat(shapePoints(f), tol.equalPoint());
    if (fit.kind == Flatness::kSpatial || !std::isfinite(startParam) || !std::isfinite(endParam))
        return false;
    value = fit.kind == Flatness::kPlanar ? std::fabs(areaBetween(f, startParam, endParam, fit.normal)) : 0;
    return true;
}

bool Curve::isDegenerate(AcGe::EntityId& degenerateType, const AcGeTol& tol) const
{
    const FlatFit fit = fitFlat(shapePoints(form()), tol.equalPoint());
    if (fit.kind != Flatness::kPoint) return false;
    degenerateType = kPosition;
    return true;
}

void Curve::getSplitCurves(double param, Curve*& piece1, Curve*& piece2) const
{
    const CurveForm f = form();
    piece1 = piece2 = nullptr;
    if (!(param > f.lo && param < f.hi)) return;
    piece1 = pieceOf(*this, f.lo, param);
    piece2 = pieceOf(*this, param, f.hi);
}

bool Curve::explode(AcGeVoidPointerArray& explodedCurves, AcGeIntArray& newExplodedCurve,
                    const AcGeInterval* interval) const
{
    const CurveForm f = form();
    if (f.kind != FormKind::kChain) return false;
    const double lo = interval ? lowerOf(*interval) : f.lo, hi = interval ? upperOf(*interval) : f.hi;
    bool any = false;
    for (const ChainLink& link : *f.chain) {
        const double from = std::max(lo, link.start), to = std::min(hi, link.stop);
        if (!(from < to)) continue;
        explodedCurves.append(curveOf(trimmed(link.form, link.inner(from), link.inner(to))));
        newExplodedCurve.append(1);
        any = true;
    }
    return any;
}

bool Curve::hasStartPoint(Point& startPoint) const
{
    const CurveForm f = form();
    if (!(f.lo > -kInfinity)) return false;
    startPoint = toPoint(startOf(f));
    return true;
}

bool Curve::hasEndPoint(Point& endPoint) const
{
    const CurveForm f = form();
    if (!(f.hi < kInfinity)) return false;
    endPoint = toPoint(endOf(f));
    return true;
}

Point Curve::evalPoint(double param) const
{
    return toPoint(pointAt(form(), param));
}

Point Curve::evalPoint(double param, int numDeriv, Vectors& derivArray) const
{
    Arrow d[4];
    const int order = std::clamp(numDeriv, 0, 3);
    derivatives(form(), param, order, d);
    derivArray.setLogicalLength(order);
    for (int k = 1; k <= order; ++k)
        derivArray[k - 1] = toVector(d[k]);
    return Point::kOrigin + toVector(d[0]);
}

void Curve::getSamplePoints(double fromParam, double toParam, double approxEps, Points& pointArray,
                            AcGeDoubleArray& paramArray, bool) const
{
    const CurveForm f = form();
    pointArray.removeAll();
    paramArray.removeAll();
    for (const double t : sampleParams(f, fromParam, toParam, approxEps)) {
        pointArray.append(toPoint(pointAt(f, t)));
        paramArray.append(t);
    }
}

void Curve::getSamplePoints(int numSample, Points& pointArray) const
{
    AcGeDoubleArray params;
    getSamplePoints(numSample, pointArray, params);
}

void Curve::getSamplePoints(int numSample, Points& pointArray, AcGeDoubleArray& paramArray) const
{
    const CurveForm f = form();
    pointArray.removeAll();
    paramArray.removeAll();
    if (numSample < 2 || !f.isBounded()) return;
    for (int i = 0; i < numSample; ++i) {
        const double t = i == numSample - 1 ? f.hi : f.lo + (f.hi - f.lo) * i / (numSample - 1);
        pointArray.append(toPoint(pointAt(f, t)));
        paramArray.append(t);
    }
}
