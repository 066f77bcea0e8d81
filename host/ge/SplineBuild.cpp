#include "SplineBuild.h"

#include <algorithm>

namespace gecore
{
std::vector<AcGePoint3d> distinctPoints(const std::vector<AcGePoint3d>& points, double tol)
{
    std::vector<AcGePoint3d> distinct;
    for (const AcGePoint3d& p : points)
        if (distinct.empty() || p.distanceTo(distinct.back()) > tol) distinct.push_back(p);
    return distinct;
}

std::vector<double> fitParams(const std::vector<AcGePoint3d>& points, AcGe::KnotParameterization rule)
{
    std::vector<double> params{0};
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double chord = points[i].distanceTo(points[i - 1]);
        params.push_back(params.back() + (rule == AcGe::kUniform     ? 1
                                          : rule == AcGe::kSqrtChord ? std::sqrt(chord)
                                                                     : chord));
    }
    return params;
}

AcGeVector3d scaledTangent(const AcGeVector3d& direction, const AcGePoint3d& a, const AcGePoint3d& b,
                           double width)
{
    const double size = direction.length();
    return size > 0 ? direction * (a.distanceTo(b) / width / size) : direction;
}

Spline splineOfConic(const CurveForm& conic)
{
    const int pieces =
        std::clamp(static_cast<int>(std::ceil((conic.hi - conic.lo) / (kPi / 2) - 1e-9)), 1, 4096);
    const double step = (conic.hi - conic.lo) / pieces, w = std::cos(step / 2);
    Spline spline;
    spline.degree = 2;
    spline.knots.assign(3, conic.lo);
    spline.points.push_back(startOf(conic));
    spline.weights.push_back(1);
    for (int i = 1; i <= pieces; ++i) {
        const double end = i == pieces ? conic.hi : conic.lo + i * step, middle = conic.lo + (i - 0.5) * step;
        spline.points.push_back(conic.origin + (pointAt(conic, middle) - conic.origin) / w);
        spline.points.push_back(pointAt(conic, end));
        spline.weights.insert(spline.weights.end(), {w, 1.0});
        spline.knots.insert(spline.knots.end(), i == pieces ? 3 : 2, end);
    }
    return spline;
}

Spline wrappedPeriod(int degree, const std::vector<double>& knots, const std::vector<AcGePoint3d>& points,
                     const std::vector<double>& weights)
{
    Spline spline;
    const auto p = static_cast<std::size_t>(std::max(degree, 0));
    if (degree < 1 || points.size() < p || knots.size() != points.size() + 1) return spline;
    spline.degree = degree;
    spline.periodic = true;
    spline.points = points;
    spline.weights = weights;
    const double period = knots.back() - knots.front();
    for (std::size_t i = 0; i < p; ++i) {
        spline.points.push_back(points[i]);
        if (i < weights.size()) spline.weights.push_back(weights[i]);
        spline.knots.push_back(knots[knots.size() - 1 - p + i] - period);
    }
    spline.knots.insert(spline.knots.end(), knots.begin(), knots.end());
    for (std::size_t i = 1; i <= p; ++i)
        spline.knots.push_back(knots[i] + period);
    return spline;
}

Spline joined(Spline first, Spline second)
{
    first.trim(first.lower(), first.upper());
    second.trim(second.lower(), second.upper());
    while (first.degree < second.degree)
        first.elevate();
    while (second.degree < first.degree)
        second.elevate();
    const double shift = first.upper() - second.lower();
    for (Spline* s : {&first, &second})
        if (!s->isRational() && (first.isRational() || second.isRational()))
            s->weights.assign(s->points.size(), 1);
    const double even = first.isRational() ? first.weights.back() / second.weights.front() : 1;
    for (double& w : second.weights)
        w *= even;
    first.knots.pop_back();
    for (auto knot = second.knots.begin() + second.degree + 1; knot != second.knots.end(); ++knot)
        first.knots.push_back(*knot + shift);
    first.points.insert(first.points.end(), second.points.begin() + 1, second.points.end());
    if (first.isRational())
        first.weights.insert(first.weights.end(), second.weights.begin() + 1, second.weights.end());
    return first;
}
} // namespace gecore
