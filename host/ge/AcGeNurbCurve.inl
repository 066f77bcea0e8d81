/// The members of AcGeNurbCurve2d and AcGeNurbCurve3d that are the same in the plane and in space.

#include "CurveForm.h"
#include "SplineBuild.h"

#include <algorithm>

namespace
{
std::vector<Place> liftAll(const Points& points)
{
    std::vector<Place> lifted;
    for (const Point& p : points)
        lifted.push_back(lift(p));
    return lifted;
}

Spline splineOf(int degree, const AcGeKnotVector& knots, const Points& points, const AcGeDoubleArray& weights,
                bool periodic)
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

/// An empty spline when the points do not make two different ones.
Spline throughWithTangents(const Points& fitPoints, const Vectors& fitTangents, const AcGeTol& tol,
                           bool isPeriodic)
{
    std::vector<Place> points;
    std::vector<Arrow> tangents;
    for (int i = 0; i < std::min(fitPoints.length(), fitTangents.length()); ++i) {
        if (!points.empty() && !(points.back().distanceTo(lift(fitPoints[i])) > tol.equalPoint())) continue;
        points.push_back(lift(fitPoints[i]));
        tangents.push_back(lift(fitTangents[i]));
    }
    if (isPeriodic && points.size() > 1 && points.front().distanceTo(points.back()) > tol.equalPoint()) {
        points.push_back(points.front());
        tangents.push_back(tangents.front());
    }
    if (points.size() < 2) return {};
    for (Arrow& t : tangents) // chord-length parameters: speed 1
        if (t.length() > 0) t /= t.length();
    Spline spline = hermite(points, fitParams(points, AcGe::kChord), tangents);
    spline.periodic = isPeriodic;
    return spline;
}

Spline straight(const Point& start, const Point& end)
{
    Spline spline;
    spline.degree = 1;
    spline.knots = {0, 0, 1, 1};
    spline.points = {lift(start), lift(end)};
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

/// What a fitted curve was made of.
struct NurbCurve::Fit {
    Points points;
    Vector start, end;
    AcGeTol tol;
    AcGe::KnotParameterization rule;
};

void NurbCurve::fit(const Points& points, const Vector* start, const Vector* end, const AcGeTol& tol,
                    AcGe::KnotParameterization knotParam, bool closed)
{
    const std::vector<Place> places = distinctPoints(liftAll(points), tol.equalPoint());
    const std::size_t n = places.size();
    if (n < 2) return;
    const std::vector<double> params = fitParams(places, knotParam);
    const auto scaled = [&](const Vector* direction, std::size_t i) {
        return direction
                   ? scaledTangent(lift(*direction), places[i], places[i + 1], params[i + 1] - params[i])
                   : Arrow();
    };
    const Arrow first = scaled(start, 0), last = scaled(end, n - 2);
    const bool hasFirst = first.length() > 0, hasLast = last.length() > 0;
    Spline spline =
        interpolate(places, params, hasFirst ? &first : nullptr, hasLast ? &last : nullptr, closed);
    SplineEnt::setSpline(std::move(spline));
    mFit = std::make_shared<const Fit>(
        Fit{points, start ? *start : Vector(), end ? *end : Vector(), tol, knotParam});
}

NurbCurve& NurbCurve::transformBy(const Matrix& xfm)
{
    std::shared_ptr<Fit> moved = mFit ? std::make_shared<Fit>(*mFit) : nullptr;
    SplineEnt::transformBy(xfm);
    if (!moved) return *this;
    for (Point& p : moved->points)
        p.transformBy(xfm);
    moved->start.transformBy(xfm);
    moved->end.transformBy(xfm);
    mFit = moved;
    return *this;
}

int NurbCurve::numFitPoints() const
{
    return mFit ? mFit->points.length() : 0;
}

bool NurbCurve::getFitPointAt(int index, Point& point) const
{
    if (index < 0 || index >= numFitPoints()) return false;
    point = mFit->points[index];
    return true;
}

bool NurbCurve::getFitTolerance(AcGeTol& fitTolerance) const
{
    if (mFit) fitTolerance = mFit->tol;
    return hasFitData();
}

bool NurbCurve::getFitTangents(Vector& startTangent, Vector& endTangent) const
{
    if (!mFit) return false;
    startTangent = mFit->start;
    endTangent = mFit->end;
    return startTangent.length() > 0 || endTangent.length() > 0;
}

bool NurbCurve::getFitKnotParameterization(AcGe::KnotParameterization& knotParam) const
{
    if (mFit) knotParam = mFit->rule;
    return hasFitData();
}

bool NurbCurve::getFitData(Points& fitPoints, AcGeTol& fitTolerance, bool& tangentsExist,
                           Vector& startTangent, Vector& endTangent) const
{
    if (!mFit) return false;
    fitPoints = mFit->points;
    fitTolerance = mFit->tol;
    tangentsExist = getFitTangents(startTangent, endTangent);
    return true;
}

bool NurbCurve::setFitData(const Points& fitPoints, const Vector& startTangent, const Vector& endTangent,
                           const AcGeTol& fitTol)
{
    const NurbCurve fitted(fitPoints, startTangent, endTangent, true, true, fitTol);
    if (!fitted.hasFitData()) return false;
    *this = fitted;
    return true;
}

bool NurbCurve::purgeFitData()
{
    const bool had = hasFitData();
    mFit.reset();
    return had;
}

void NurbCurve::getDefinitionData(int& degreeOut, bool& rational, bool& periodic, AcGeKnotVector& knotsOut,
                                  Points& controlPoints, AcGeDoubleArray& weights) const
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

int NurbCurve::numWeights() const
{
    return static_cast<int>(spline().weights.size());
}

double NurbCurve::weightAt(int idx) const
{
    return idx >= 0 && idx < numWeights() ? spline().weights[static_cast<std::size_t>(idx)] : 0;
}

bool NurbCurve::setWeightAt(int idx, double val)
{
    if (idx < 0 || idx >= numWeights() || !(val > 0) || !std::isfinite(val)) return false;
    Spline changed = spline();
    changed.weights[static_cast<std::size_t>(idx)] = val;
    setSpline(std::move(changed));
    return true;
}

NurbCurve& NurbCurve::makeRational(double weight)
{
    if (isRational() || !(weight > 0)) return *this;
    Spline changed = spline();
    changed.weights.assign(changed.points.size(), weight);
    setSpline(std::move(changed));
    return *this;
}

NurbCurve& NurbCurve::insertKnot(double newKnot)
{
    Spline changed = spline();
    changed.insertKnot(newKnot);
    setSpline(std::move(changed));
    return *this;
}

NurbCurve& NurbCurve::elevateDegree(int plusDegree)
{
    Spline changed = spline();
    for (int i = 0; i < plusDegree; ++i)
        changed.elevate();
    setSpline(std::move(changed));
    return *this;
}

bool NurbCurve::hardTrimByParams(double newStartParam, double newEndParam)
{
    return setInterval(AcGeInterval(newStartParam, newEndParam));
}

NurbCurve& NurbCurve::joinWith(const NurbCurve& curve, AcGeError& error)
{
    error = numControlPoints() == 0                         ? AcGe::k0This
            : curve.numControlPoints() == 0                 ? AcGe::k0Arg1
            : !endPoint().isEqualTo(curve.startPoint(), {}) ? AcGe::kArg1TooBig
                                                            : AcGe::kOk;
    if (error == AcGe::kOk) setSpline(joined(spline(), curve.spline()));
    return *this;
}

bool NurbCurve::getParamsOfC1Discontinuity(AcGeDoubleArray& params, const AcGeTol& tol) const
{
    return discontinuities(spline(), false, tol.equalVector(), params);
}

bool NurbCurve::getParamsOfG1Discontinuity(AcGeDoubleArray& params, const AcGeTol& tol) const
{
    return discontinuities(spline(), true, tol.equalVector(), params);
}

CurveForm NurbCurve::form() const
{
    return splineForm(spline());
}

void NurbCurve::setSpline(Spline changed)
{
    mFit.reset();
    SplineEnt::setSpline(std::move(changed));
}

void NurbCurve::turnRound()
{
    std::shared_ptr<Fit> turned = mFit ? std::make_shared<Fit>(*mFit) : nullptr;
    SplineEnt::turnRound();
    if (!turned) return;
    turned->points.reverse();
    std::swap(turned->start, turned->end);
    turned->start.negate();
    turned->end.negate();
    mFit = turned;
}
