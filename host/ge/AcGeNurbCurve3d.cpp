#include "genurb3d.h"

#include "CurveForm.h"
#include "Dimension.h"
#include "geell3d.h"
#include "gelnsg3d.h"
#include "SplineBuild.h"

#include <algorithm>

using namespace gecore;

/// What a fitted curve was made of.
struct AcGeNurbCurve3d::Fit {
    AcGePoint3dArray points;
    AcGeVector3d start, end;
    AcGeTol tol;
    AcGe::KnotParameterization rule;
};

namespace
{
std::vector<Place> liftAll(const AcGePoint3dArray& points)
{
    std::vector<Place> lifted;
    for (const AcGePoint3d& p : points)
        lifted.push_back(lift(p));
    return lifted;
}

Spline splineOf(int degree, const AcGeKnotVector& knots, const AcGePoint3dArray& points,
                const AcGeDoubleArray& weights, bool periodic)
{
    const std::vector<double> k(knots.asArrayPtr(), knots.asArrayPtr() + knots.length());
    const std::vector<double> w(weights.begin(), weights.end());
    if (periodic && knots.length() == points.length() + 1)
        return wrappedPeriod(degree, k, liftAll(points), w);
    Spline spline;
    spline.degree = degree;
    spline.periodic = periodic;
    spline.knots = k;
    spline.points = liftAll(points);
    spline.weights = w;
    return spline;
}

/// The derivative just before (side -1) or after (side 1) an inner knot.
Arrow oneSided(const Spline& spline, double lo, double knot, double hi, int side)
{
    Spline part = spline;
    Arrow d[2];
    if (side < 0)
        part.trim(lo, knot);
    else
        part.trim(knot, hi);
    part.derivatives(knot, 1, d);
    return d[1];
}

bool discontinuities(const Spline& spline, bool byDirection, double tol, AcGeDoubleArray& params)
{
    params.removeAll();
    for (std::size_t i = 0; i < spline.knots.size(); ++i) {
        const double knot = spline.knots[i];
        const bool inner = knot > spline.lower() && knot < spline.upper();
        if (!inner || (!params.isEmpty() && params.last() == knot) ||
            spline.multiplicity(knot) < spline.degree)
            continue;
        Arrow before = oneSided(spline, spline.lower(), knot, spline.upper(), -1);
        Arrow after = oneSided(spline, spline.lower(), knot, spline.upper(), 1);
        if (byDirection) before.normalize(), after.normalize();
        const double size = byDirection ? 1 : std::max(before.length(), after.length());
        if (!((before - after).length() <= std::max(tol, 1e-12) * std::max(size, 1.0))) params.append(knot);
    }
    return !params.isEmpty();
}
} // namespace

AcGeNurbCurve3d::AcGeNurbCurve3d(int degree, const AcGeKnotVector& knots, const AcGePoint3dArray& cntrlPnts,
                                 bool isPeriodic)
    : AcGeNurbCurve3d(degree, knots, cntrlPnts, AcGeDoubleArray(), isPeriodic)
{
}

AcGeNurbCurve3d::AcGeNurbCurve3d(int degree, const AcGeKnotVector& knots, const AcGePoint3dArray& cntrlPnts,
                                 const AcGeDoubleArray& weights, bool isPeriodic)
{
    AcGeSplineEnt3d::setSpline(splineOf(degree, knots, cntrlPnts, weights, isPeriodic));
}

AcGeNurbCurve3d::AcGeNurbCurve3d(const AcGePoint3dArray& fitPnts, const AcGeVector3d& startTangent,
                                 const AcGeVector3d& endTangent, bool startTangentDefined,
                                 bool endTangentDefined, const AcGeTol& fitTolerance,
                                 AcGe::KnotParameterization knotParam)
{
    fit(fitPnts, startTangentDefined ? &startTangent : nullptr, endTangentDefined ? &endTangent : nullptr,
        fitTolerance, knotParam, false);
}

AcGeNurbCurve3d::AcGeNurbCurve3d(const AcGePoint3dArray& fitPnts, const AcGeTol& fitTolerance,
                                 AcGe::KnotParameterization knotParam)
{
    const bool closed = fitPnts.length() > 3 && fitPnts.first().isEqualTo(fitPnts.last(), fitTolerance);
    fit(fitPnts, nullptr, nullptr, fitTolerance, knotParam, closed);
}

AcGeNurbCurve3d::AcGeNurbCurve3d(const AcGePoint3dArray& fitPnts, const AcGeVector3dArray& fitTangents,
                                 const AcGeTol& fitTolerance, bool isPeriodic)
{
    std::vector<Place> points;
    std::vector<Arrow> tangents;
    for (int i = 0; i < std::min(fitPnts.length(), fitTangents.length()); ++i) {
        if (!points.empty() && !(points.back().distanceTo(lift(fitPnts[i])) > fitTolerance.equalPoint()))
            continue;
        points.push_back(lift(fitPnts[i]));
        tangents.push_back(lift(fitTangents[i]));
    }
    if (isPeriodic && points.size() > 1 &&
        points.front().distanceTo(points.back()) > fitTolerance.equalPoint()) {
        points.push_back(points.front());
        tangents.push_back(tangents.front());
    }
    if (points.size() < 2) return;
    for (Arrow& t : tangents) // chord-length parameters: speed 1
        if (t.length() > 0) t /= t.length();
    Spline spline = hermite(points, fitParams(points, AcGe::kChord), tangents);
    spline.periodic = isPeriodic;
    AcGeSplineEnt3d::setSpline(std::move(spline));
}

AcGeNurbCurve3d::AcGeNurbCurve3d(const AcGeEllipArc3d& ellipse)
{
    AcGeSplineEnt3d::setSpline(splineOfConic(ellipse.form()));
}

AcGeNurbCurve3d::AcGeNurbCurve3d(const AcGeLineSeg3d& linSeg)
{
    Spline spline;
    spline.degree = 1;
    spline.knots = {0, 0, 1, 1};
    spline.points = {lift(linSeg.startPoint()), lift(linSeg.endPoint())};
    AcGeSplineEnt3d::setSpline(std::move(spline));
}

void AcGeNurbCurve3d::fit(const AcGePoint3dArray& points, const AcGeVector3d* start, const AcGeVector3d* end,
                          const AcGeTol& tol, AcGe::KnotParameterization knotParam, bool closed)
{
    const std::vector<Place> places = distinctPoints(liftAll(points), tol.equalPoint());
    const std::size_t n = places.size();
    if (n < 2) return;
    const std::vector<double> params = fitParams(places, knotParam);
    const auto scaled = [&](const AcGeVector3d* direction, std::size_t i) {
        return direction
                   ? scaledTangent(lift(*direction), places[i], places[i + 1], params[i + 1] - params[i])
                   : Arrow();
    };
    const Arrow first = scaled(start, 0), last = scaled(end, n - 2);
    const bool hasFirst = first.length() > 0, hasLast = last.length() > 0;
    Spline spline =
        interpolate(places, params, hasFirst ? &first : nullptr, hasLast ? &last : nullptr, closed);
    AcGeSplineEnt3d::setSpline(std::move(spline));
    mFit = std::make_shared<const Fit>(
        Fit{points, start ? *start : AcGeVector3d(), end ? *end : AcGeVector3d(), tol, knotParam});
}

AcGeNurbCurve3d& AcGeNurbCurve3d::transformBy(const AcGeMatrix3d& xfm)
{
    std::shared_ptr<Fit> moved = mFit ? std::make_shared<Fit>(*mFit) : nullptr;
    AcGeSplineEnt3d::transformBy(xfm);
    if (!moved) return *this;
    for (AcGePoint3d& p : moved->points)
        p.transformBy(xfm);
    moved->start.transformBy(xfm);
    moved->end.transformBy(xfm);
    mFit = moved;
    return *this;
}

int AcGeNurbCurve3d::numFitPoints() const
{
    return mFit ? mFit->points.length() : 0;
}

bool AcGeNurbCurve3d::getFitPointAt(int index, AcGePoint3d& point) const
{
    if (index < 0 || index >= numFitPoints()) return false;
    point = mFit->points[index];
    return true;
}

bool AcGeNurbCurve3d::getFitTolerance(AcGeTol& fitTolerance) const
{
    if (mFit) fitTolerance = mFit->tol;
    return hasFitData();
}

bool AcGeNurbCurve3d::getFitTangents(AcGeVector3d& startTangent, AcGeVector3d& endTangent) const
{
    if (!mFit) return false;
    startTangent = mFit->start;
    endTangent = mFit->end;
    return startTangent.length() > 0 || endTangent.length() > 0;
}

bool AcGeNurbCurve3d::getFitKnotParameterization(AcGe::KnotParameterization& knotParam) const
{
    if (mFit) knotParam = mFit->rule;
    return hasFitData();
}

bool AcGeNurbCurve3d::getFitData(AcGePoint3dArray& fitPoints, AcGeTol& fitTolerance, bool& tangentsExist,
                                 AcGeVector3d& startTangent, AcGeVector3d& endTangent) const
{
    if (!mFit) return false;
    fitPoints = mFit->points;
    fitTolerance = mFit->tol;
    tangentsExist = getFitTangents(startTangent, endTangent);
    return true;
}

bool AcGeNurbCurve3d::setFitData(const AcGePoint3dArray& fitPoints, const AcGeVector3d& startTangent,
                                 const AcGeVector3d& endTangent, const AcGeTol& fitTol)
{
    const AcGeNurbCurve3d fitted(fitPoints, startTangent, endTangent, true, true, fitTol);
    if (!fitted.hasFitData()) return false;
    *this = fitted;
    return true;
}

bool AcGeNurbCurve3d::purgeFitData()
{
    const bool had = hasFitData();
    mFit.reset();
    return had;
}

void AcGeNurbCurve3d::getDefinitionData(int& degreeOut, bool& rational, bool& periodic,
                                        AcGeKnotVector& knotsOut, AcGePoint3dArray& controlPoints,
                                        AcGeDoubleArray& weights) const
{
    degreeOut = degree();
    rational = isRational();
    periodic = spline().periodic;
    knotsOut = knots();
    controlPoints.removeAll();
    weights.removeAll();
    for (int i = 0; i < numControlPoints(); ++i)
        controlPoints.append(controlPointAt(i));
    for (const double w : spline().weights)
        weights.append(w);
}

int AcGeNurbCurve3d::numWeights() const
{
    return static_cast<int>(spline().weights.size());
}

double AcGeNurbCurve3d::weightAt(int idx) const
{
    return idx >= 0 && idx < numWeights() ? spline().weights[static_cast<std::size_t>(idx)] : 0;
}

bool AcGeNurbCurve3d::setWeightAt(int idx, double val)
{
    if (idx < 0 || idx >= numWeights() || !(val > 0) || !std::isfinite(val)) return false;
    Spline changed = spline();
    changed.weights[static_cast<std::size_t>(idx)] = val;
    setSpline(std::move(changed));
    return true;
}

AcGeNurbCurve3d& AcGeNurbCurve3d::makeRational(double weight)
{
    if (isRational() || !(weight > 0)) return *this;
    Spline changed = spline();
    changed.weights.assign(changed.points.size(), weight);
    setSpline(std::move(changed));
    return *this;
}

AcGeNurbCurve3d& AcGeNurbCurve3d::insertKnot(double newKnot)
{
    Spline changed = spline();
    changed.insertKnot(newKnot);
    setSpline(std::move(changed));
    return *this;
}

AcGeNurbCurve3d& AcGeNurbCurve3d::elevateDegree(int plusDegree)
{
    Spline changed = spline();
    for (int i = 0; i < plusDegree; ++i)
        changed.elevate();
    setSpline(std::move(changed));
    return *this;
}

bool AcGeNurbCurve3d::hardTrimByParams(double newStartParam, double newEndParam)
{
    return setInterval(AcGeInterval(newStartParam, newEndParam));
}

AcGeNurbCurve3d& AcGeNurbCurve3d::joinWith(const AcGeNurbCurve3d& curve, AcGeError& error)
{
    error = numControlPoints() == 0                         ? AcGe::k0This
            : curve.numControlPoints() == 0                 ? AcGe::k0Arg1
            : !endPoint().isEqualTo(curve.startPoint(), {}) ? AcGe::kArg1TooBig
                                                            : AcGe::kOk;
    if (error == AcGe::kOk) setSpline(joined(spline(), curve.spline()));
    return *this;
}

bool AcGeNurbCurve3d::getParamsOfC1Discontinuity(AcGeDoubleArray& params, const AcGeTol& tol) const
{
    return discontinuities(spline(), false, tol.equalVector(), params);
}

bool AcGeNurbCurve3d::getParamsOfG1Discontinuity(AcGeDoubleArray& params, const AcGeTol& tol) const
{
    return discontinuities(spline(), true, tol.equalVector(), params);
}

CurveForm AcGeNurbCurve3d::form() const
{
    return splineForm(spline());
}

void AcGeNurbCurve3d::setSpline(Spline changed)
{
    mFit.reset();
    AcGeSplineEnt3d::setSpline(std::move(changed));
}

void AcGeNurbCurve3d::turnRound()
{
    std::shared_ptr<Fit> turned = mFit ? std::make_shared<Fit>(*mFit) : nullptr;
    AcGeSplineEnt3d::turnRound();
    if (!turned) return;
    turned->points.reverse();
    std::swap(turned->start, turned->end);
    turned->start.negate();
    turned->end.negate();
    mFit = turned;
}
