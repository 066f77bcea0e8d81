#include "AreaMoments.h"

#include "Spline.h"

#include <algorithm>
#include <cmath>

namespace kernel
{
using namespace gecore;

namespace
{
// Nodes and weights of the 16-point Gauss-Legendre rule (M. Abramowitz and I. Stegun, table 25.4).
constexpr double kNodes[8] = {0.0950125098376374402, 0.2816035507792589132, 0.4580167776572273863,
                              0.6178762444026437484, 0.7554044083550030339, 0.8656312023878317439,
                              0.9445750230732325761, 0.9894009349916499326};
constexpr double kWeights[8] = {0.1894506104550684963, 0.1826034150449235889, 0.1691565193950025382,
                                0.1495959888165767321, 0.1246289712555338720, 0.0951585116824927848,
                                0.0622535239386478929, 0.0271524594117540949};
constexpr int kMostHalvings = 12;

void addSample(const CurveForm& form, double t, double weight, const AcGePoint2d& origin, Moments& m)
{
    AcGeVector3d d[2];
    derivatives(form, t, 1, d);
    const double x = d[0].x - origin.x, y = d[0].y - origin.y, dx = d[1].x * weight, dy = d[1].y * weight;
    m.area += (x * dy - y * dx) / 2;
    m.x += x * x * dy / 2;
    m.y -= y * y * dx / 2;
    m.xx += x * x * x * dy / 3;
    m.yy -= y * y * y * dx / 3;
    m.xy += x * x * y * dy / 2;
}

Moments gauss(const CurveForm& form, double lo, double hi, const AcGePoint2d& origin)
{
    Moments m;
    const double middle = (lo + hi) / 2, half = (hi - lo) / 2;
    for (int i = 0; i < 8; ++i) {
        addSample(form, middle - half * kNodes[i], half * kWeights[i], origin, m);
        addSample(form, middle + half * kNodes[i], half * kWeights[i], origin, m);
    }
    return m;
}

/// What rounding leaves of the sums: that of the coordinates over the distance of the curve's far end.
struct Noise {
    double area = 0, second = 0;

    Noise(const CurveForm& form, double lo, double hi, const AcGePoint2d& origin)
    {
        double reach = 0, size = std::max(std::fabs(origin.x), std::fabs(origin.y));
        for (const double t : {lo, (lo + hi) / 2, hi}) {
            const AcGePoint3d p = pointAt(form, t);
            reach = std::max({reach, std::fabs(p.x - origin.x), std::fabs(p.y - origin.y)});
        }
        size += reach;
        area = 1e-15 * size * reach;
        second = area * reach * reach;
    }
};

bool isSettled(const Moments& a, const Moments& b, const Noise& noise)
{
    const auto close = [](double u, double v, double least) {
        return std::fabs(u - v) <= std::max(least, 1e-13 * std::fabs(v));
    };
    return close(a.area, b.area, noise.area) && close(a.xx, b.xx, noise.second) &&
           close(a.yy, b.yy, noise.second);
}

Moments settled(const CurveForm& form, double lo, double hi, const AcGePoint2d& origin, const Noise& noise,
                const Moments& whole, int depth)
{
    const double middle = (lo + hi) / 2;
    const Moments left = gauss(form, lo, middle, origin), right = gauss(form, middle, hi, origin);
    Moments both = left;
    both += right;
    if (depth == 0 || isSettled(whole, both, noise)) return both;
    both = settled(form, lo, middle, origin, noise, left, depth - 1);
    both += settled(form, middle, hi, origin, noise, right, depth - 1);
    return both;
}

/// The integrands are polynomials to degree 31, for which the rule is exact.
bool isExact(const CurveForm& form)
{
    if (form.kind == FormKind::kLine) return true;
    return form.kind == FormKind::kSpline && !form.spline->isRational() && form.spline->degree <= 8;
}
} // namespace

Moments& Moments::operator+=(const Moments& o)
{
    area += o.area;
    x += o.x;
    y += o.y;
    xx += o.xx;
    yy += o.yy;
    xy += o.xy;
    return *this;
}

Moments Moments::movedTo(double dx, double dy) const
{
    Moments m = *this;
    m.x -= dx * area;
    m.y -= dy * area;
    m.xx += dx * dx * area - 2 * dx * x;
    m.yy += dy * dy * area - 2 * dy * y;
    m.xy += dx * dy * area - dx * y - dy * x;
    return m;
}

Moments momentsOf(const Run& run, const AcGePoint2d& origin)
{
    const std::vector<double> breaks = smoothBreaks(run.form);
    Moments m;
    for (std::size_t i = 1; i < breaks.size(); ++i) {
        const double lo = breaks[i - 1], hi = breaks[i];
        const Moments whole = gauss(run.form, lo, hi, origin);
        const Noise noise(run.form, lo, hi, origin);
        m += isExact(run.form) ? whole : settled(run.form, lo, hi, origin, noise, whole, kMostHalvings);
    }
    if (run.forward) return m;
    return {-m.area, -m.x, -m.y, -m.xx, -m.yy, -m.xy};
}

Moments momentsOf(const std::vector<Run>& runs, const AcGePoint2d& origin)
{
    Moments m;
    for (const Run& run : runs)
        m += momentsOf(run, origin);
    return m;
}
} // namespace kernel
