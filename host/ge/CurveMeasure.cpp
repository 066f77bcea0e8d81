#include "CurveMeasure.h"

#include "Spline.h"

#include <algorithm>

namespace gecore
{
namespace
{
// Ten-point Gauss-Legendre rule on -1..1 (Abramowitz and Stegun, table 25.4).
constexpr double kNode[] = {0.148874338981631211, 0.433395394129247191, 0.679409568299024406,
                            0.865063366688984511, 0.973906528517171720};
constexpr double kWeight[] = {0.295524224714752870, 0.269266719309996355, 0.219086362515982044,
                              0.149451349150580593, 0.066671344308688138};
constexpr int kDeepest = 24;
constexpr int kMostHalvings = 4096; // the roughest of sound curves need some hundreds

template <class F>
double gauss(const F& f, double a, double b)
{
    const double middle = (a + b) / 2, half = (b - a) / 2;
    double sum = 0;
    for (int i = 0; i < 5; ++i)
        sum += kWeight[i] * (f(middle - half * kNode[i]) + f(middle + half * kNode[i]));
    return sum * half;
}

/// Halves the range until two halves agree with the whole, or `halvings` are used up: lengths of curves
/// beyond the reach of numbers never agree.
template <class F>
double integrate(const F& f, double a, double b, double whole, double accuracy, int depth, int& halvings)
{
    const double middle = (a + b) / 2, left = gauss(f, a, middle), right = gauss(f, middle, b);
    const double sum = left + right;
    if (!(std::fabs(sum - whole) > accuracy) || depth >= kDeepest || --halvings < 0) return sum;
    return integrate(f, a, middle, left, accuracy / 2, depth + 1, halvings) +
           integrate(f, middle, b, right, accuracy / 2, depth + 1, halvings);
}

template <class F>
double integrate(const F& f, double a, double b, double whole, double accuracy)
{
    int halvings = kMostHalvings;
    return integrate(f, a, b, whole, accuracy, 0, halvings);
}

double speed(const CurveForm& form, double t)
{
    AcGeVector3d d[2];
    derivatives(form, t, 1, d);
    return d[1].length();
}

double smoothLength(const CurveForm& form, double a, double b)
{
    if (form.kind == FormKind::kLine) return form.u.length() * (b - a);
    if (isCircle(form)) return form.u.length() * (b - a);
    const auto f = [&](double t) { return speed(form, t); };
    const double whole = gauss(f, a, b);
    return integrate(f, a, b, whole, 1e-13 * std::fabs(whole));
}

/// Runs over the smooth stretches of a..b.
template <class F>
void forSmooth(const CurveForm& form, double a, double b, const F& f)
{
    if (form.kind == FormKind::kLine || form.kind == FormKind::kConic) return f(a, b);
    double from = a;
    for (const double t : smoothBreaks(form)) {
        if (t <= from) continue;
        const double to = std::min(t, b);
        if (to > from) f(from, to);
        from = std::max(from, to);
    }
    if (from < b) f(from, b);
}

double smoothArea(const CurveForm& form, double a, double b, const AcGePoint3d& base, const AcGeVector3d& n)
{
    const AcGeVector3d from = pointAt(form, a) - base, to = pointAt(form, b) - base;
    if (form.kind == FormKind::kLine) return n.dotProduct(from.crossProduct(to)) / 2;
    if (form.kind == FormKind::kConic) {
        const AcGeVector3d shift = (form.origin - base).crossProduct(to - from);
        return n.dotProduct(shift + form.u.crossProduct(form.v) * (b - a)) / 2;
    }
    const auto f = [&](double t) {
        AcGeVector3d d[2];
        derivatives(form, t, 1, d);
        return n.dotProduct((d[0] - base.asVector()).crossProduct(d[1])) / 2;
    };
    const double whole = gauss(f, a, b);
    const double size = smoothLength(form, a, b);
    return integrate(f, a, b, whole, 1e-14 * size * size);
}

/// The extremes of one coordinate of a conic: cos t u + sin t v is largest where tan t = v / u.
void addConicExtremes(const CurveForm& form, Box& box)
{
    for (unsigned int axis = 0; axis < 3; ++axis) {
        const double peak = std::atan2(form.v[axis], form.u[axis]);
        const double first = peak + kPi * std::ceil((form.lo - peak) / kPi);
        for (double t = first; t <= form.hi && t <= first + kTwoPi; t += kPi)
            box.add(pointAt(form, t));
    }
}

/// The zero of a coordinate's derivative between a and b, where its signs differ: bisection and Newton.
double extremeBetween(const CurveForm& form, unsigned int axis, double a, double b)
{
    AcGeVector3d d[3];
    derivatives(form, a, 1, d);
    const bool rising = d[1][axis] < 0;
    double t = (a + b) / 2;
    for (int i = 0; i < 80 && b - a > 1e-15 * (std::fabs(a) + std::fabs(b)); ++i) {
        derivatives(form, t, 2, d);
        ((d[1][axis] < 0) == rising ? a : b) = t;
        const double step = t - d[1][axis] / d[2][axis];
        t = step > a && step < b && i % 3 != 2 ? step : (a + b) / 2;
    }
    return t;
}

void addSplineExtremes(const CurveForm& form, Box& box)
{
    const int cuts = 4 * (form.spline->degree + 1);
    forSmooth(form, form.lo, form.hi, [&](double from, double to) {
        for (unsigned int axis = 0; axis < 3; ++axis) {
            AcGeVector3d before[2], after[2];
            derivatives(form, from, 1, before);
            for (int i = 1; i <= cuts; ++i, before[1] = after[1]) {
                const double a = from + (to - from) * (i - 1) / cuts, b = from + (to - from) * i / cuts;
                derivatives(form, b, 1, after);
                if (before[1][axis] * after[1][axis] < 0)
                    box.add(pointAt(form, extremeBetween(form, axis, a, b)));
                box.add(pointAt(form, b));
            }
        }
    });
}
} // namespace

void Box::add(const AcGePoint3d& p)
{
    min = {std::min(min.x, p.x), std::min(min.y, p.y), std::min(min.z, p.z)};
    max = {std::max(max.x, p.x), std::max(max.y, p.y), std::max(max.z, p.z)};
}

void Box::add(const Box& box)
{
    if (box.isEmpty()) return;
    add(box.min);
    add(box.max);
}

double lengthBetween(const CurveForm& form, double a, double b)
{
    if (b < a) return -lengthBetween(form, b, a);
    double sum = 0;
    forSmooth(form, a, b, [&](double from, double to) { sum += smoothLength(form, from, to); });
    return sum;
}

double paramAtLength(const CurveForm& form, double from, double length)
{
    if (length == 0 || !std::isfinite(length)) return from;
    if (form.kind == FormKind::kLine || isCircle(form)) {
        const double pace = form.u.length();
        return pace > 0 ? form.clamped(from + length / pace) : from;
    }
    const bool ahead = length > 0;
    double lo = ahead ? from : form.lo, hi = ahead ? form.hi : from;
    const double total = lengthBetween(form, from, ahead ? hi : lo);
    if (std::fabs(length) >= std::fabs(total)) return ahead ? hi : lo;
    double t = from + (ahead ? hi - from : from - lo) * (length / std::fabs(total));
    for (int i = 0; i < 100; ++i) {
        const double miss = lengthBetween(form, from, t) - length;
        (miss > 0 ? hi : lo) = t;
        const double pace = speed(form, t), step = t - miss / pace;
        const double next = pace > 0 && step > lo && step < hi ? step : (lo + hi) / 2;
        if (std::fabs(miss) <= 1e-14 * std::fabs(total) || !(std::fabs(next - t) > 1e-16 * std::fabs(t)))
            break;
        t = next;
    }
    return t;
}

double areaBetween(const CurveForm& form, double a, double b, const AcGeVector3d& n)
{
    if (b < a) return -areaBetween(form, b, a, n);
    const AcGePoint3d base = pointAt(form, a);
    if (form.kind != FormKind::kChain) {
        double sum = 0;
        forSmooth(form, a, b, [&](double from, double to) { sum += smoothArea(form, from, to, base, n); });
        return sum;
    }
    double sum = 0;
    for (const ChainLink& link : *form.chain) {
        const double from = std::max(a, link.start), to = std::min(b, link.stop);
        if (!(to > from)) continue;
        const double s = link.inner(from), e = link.inner(to);
        const AcGeVector3d v = pointAt(link.form, s) - base, w = pointAt(link.form, e) - base;
        sum += areaBetween(link.form, s, e, n) + n.dotProduct(v.crossProduct(w)) / 2;
    }
    return sum;
}

Box boxOf(const CurveForm& form)
{
    Box box;
    if (form.kind == FormKind::kChain) {
        for (const ChainLink& link : *form.chain)
            box.add(boxOf(link.form));
        return box;
    }
    if (!form.isBounded()) return {{-kInfinity, -kInfinity, -kInfinity}, {kInfinity, kInfinity, kInfinity}};
    box.add(startOf(form));
    box.add(endOf(form));
    if (form.kind == FormKind::kConic) addConicExtremes(form, box);
    if (form.kind == FormKind::kSpline && !form.spline->isEmpty()) addSplineExtremes(form, box);
    return box;
}

std::vector<AcGePoint3d> shapePoints(const CurveForm& form)
{
    switch (form.kind) {
    case FormKind::kLine:
        return {pointAt(form, std::isfinite(form.lo) ? form.lo : 0),
                pointAt(form, std::isfinite(form.hi)   ? form.hi
                              : std::isfinite(form.lo) ? form.lo + 1
                                                       : 1)};
    case FormKind::kConic:
        return {form.origin, form.origin + form.u, form.origin + form.v};
    case FormKind::kSpline:
        return form.spline->points;
    case FormKind::kChain:
        break;
    }
    std::vector<AcGePoint3d> points;
    for (const ChainLink& link : *form.chain)
        for (const AcGePoint3d& p : shapePoints(link.form))
            points.push_back(p);
    return points;
}

FlatFit fitFlat(const std::vector<AcGePoint3d>& points, double tol)
{
    FlatFit fit;
    if (points.empty()) return fit;
    fit.point = points.front();
    AcGeVector3d furthest;
    for (const AcGePoint3d& p : points)
        if ((p - fit.point).lengthSqrd() > furthest.lengthSqrd()) furthest = p - fit.point;
    if (!(furthest.length() > tol)) return fit;
    fit.kind = Flatness::kLinear;
    fit.direction = furthest / furthest.length();
    fit.normal = fit.direction.perpVector();
    AcGeVector3d widest;
    for (const AcGePoint3d& p : points) {
        const AcGeVector3d side = fit.direction.crossProduct(p - fit.point);
        if (side.lengthSqrd() > widest.lengthSqrd()) widest = side;
    }
    if (!(widest.length() > tol)) return fit;
    fit.kind = Flatness::kPlanar;
    fit.normal = widest / widest.length();
    for (const AcGePoint3d& p : points)
        if (std::fabs((p - fit.point).dotProduct(fit.normal)) > tol) fit.kind = Flatness::kSpatial;
    return fit;
}
} // namespace gecore
