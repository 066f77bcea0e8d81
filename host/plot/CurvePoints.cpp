#include "CurvePoints.h"

#include <algorithm>
#include <cmath>

namespace plot
{
namespace
{
constexpr double pi = 3.14159265358979323846;

/// The chords for an arc: a chord over the angle d is r (1 - cos d/2) away from it.
int chords(double radius, double sweep, double tolerance)
{
    constexpr double coarsest = pi / 6, most = 20000;
    double step = coarsest;
    if (tolerance > 0 && radius > 2 * tolerance) step = std::min(step, 2 * std::acos(1 - tolerance / radius));
    const double count = std::ceil(std::fabs(sweep) / step);
    return count >= 1 && count <= most ? static_cast<int>(count) : count > most ? static_cast<int>(most) : 1;
}
} // namespace

Points arcPoints(const AcGePoint2d& center, const AcGeVector2d& a, const AcGeVector2d& b, double start, double sweep,
                 double tolerance)
{
    const int count = chords(std::max(a.length(), b.length()), sweep, tolerance);
    Points points;
    points.reserve(static_cast<std::size_t>(count) + 1);
    for (int i = 0; i <= count; ++i) {
        const double t = start + sweep * i / count;
        points.push_back(center + std::cos(t) * a + std::sin(t) * b);
    }
    return points;
}

void appendSegment(Points& points, const BulgeSegment& segment, double tolerance)
{
    const int count = segment.isArc() ? chords(segment.radius(), segment.sweep(), tolerance) : 1;
    for (int i = 1; i < count; ++i)
        points.push_back(segment.pointAt(static_cast<double>(i) / count));
    points.push_back(segment.end());
}
} // namespace plot
