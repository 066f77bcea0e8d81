#include "LineTypeDash.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace plot
{
namespace
{
constexpr double mostPatterns = 1e6;

bool isUsable(const DashPattern& pattern)
{
    return std::all_of(pattern.begin(), pattern.end(), [](double d) { return std::isfinite(d); }) &&
           std::any_of(pattern.begin(), pattern.end(), [](double d) { return d < 0; });
}

double lengthOf(const DashPattern& pattern)
{
    double length = 0;
    for (const double part : pattern)
        length += std::abs(part);
    return length;
}

double lengthOf(const Points& points)
{
    double length = 0;
    for (std::size_t i = 1; i < points.size(); ++i)
        length += points[i].distanceTo(points[i - 1]);
    return length;
}

/// The finite points of a curve, without neighbours in one place.
Points cleaned(const Points& points, bool isClosed)
{
    Points clean;
    const auto add = [&](const AcGePoint2d& p) {
        if (!std::isfinite(p.x) || !std::isfinite(p.y)) return;
        if (clean.empty() || p.x != clean.back().x || p.y != clean.back().y) clean.push_back(p);
    };
    std::for_each(points.begin(), points.end(), add);
    if (isClosed && !points.empty()) add(points.front());
    return clean;
}

/// Walks along a curve and leaves dashes, gaps and dots behind.
class Walker
{
public:
    Walker(const Points& points, DashedLine& line) : mPoints(points), mPlace(points.front()), mLine(line) {}

    void dash(double length)
    {
        if (length <= 0) return;
        mLine.dashes.push_back({mPlace});
        move(length, &mLine.dashes.back());
        if (mLine.dashes.back().size() < 2) mLine.dashes.pop_back();
    }
    void gap(double length) { move(length, nullptr); }
    void dot() { mLine.dots.push_back(mPlace); }
    /// The rest of the curve as one dash: no rounding is left at its end.
    void dashToEnd() { dash(std::numeric_limits<double>::infinity()); }

private:
    void move(double length, Points* trace)
    {
        while (mNext < mPoints.size()) {
            const double rest = mPlace.distanceTo(mPoints[mNext]);
            if (length < rest) break;
            length -= rest;
            stand(mPoints[mNext++], trace);
        }
        if (mNext == mPoints.size() || length <= 0) return;
        const AcGeVector2d way = mPoints[mNext] - mPlace;
        stand(mPlace + way * (length / way.length()), trace);
    }
    void stand(const AcGePoint2d& place, Points* trace)
    {
        if (trace && (place.x != mPlace.x || place.y != mPlace.y)) trace->push_back(place);
        mPlace = place;
    }

    const Points& mPoints;
    AcGePoint2d mPlace;
    std::size_t mNext = 1;
    DashedLine& mLine;
};

void apply(Walker& walker, double part)
{
    if (part > 0)
        walker.dash(part);
    else if (part < 0)
        walker.gap(-part);
    else
        walker.dot();
}

void dashCurve(const Points& points, const DashPattern& pattern, double finest, DashedLine& line)
{
    const double whole = lengthOf(points), period = lengthOf(pattern);
    const double count = std::floor(whole / period * (1 + 1e-12));
    if (!(count >= 1) || count > mostPatterns || period < 2 * finest) {
        line.dashes.push_back(points);
        return;
    }
    // The dash at each end: with it, (count - 1) whole first dashes and `count` times the rest the curve is
    // full.
    const double first = std::max(pattern.front(), 0.0), end = (whole - count * period + first) / 2;
    const bool startsWithDash = pattern.front() > 0;
    Walker walker(points, line);
    startsWithDash ? walker.dash(end) : walker.gap(end);
    for (double i = 0; i < count; ++i) {
        if (i > 0 || !startsWithDash) apply(walker, pattern.front());
        for (std::size_t k = 1; k < pattern.size(); ++k)
            apply(walker, pattern[k]);
    }
    if (startsWithDash) walker.dashToEnd();
}
} // namespace

DashedLine dashLine(const Points& points, const DashPattern& pattern, const DashOptions& options)
{
    DashedLine line;
    const Points curve = cleaned(points, options.isClosed);
    if (curve.size() < 2) return line;
    if (!isUsable(pattern) || !(options.scale > 0) || !std::isfinite(options.scale)) {
        line.dashes.push_back(curve);
        return line;
    }
    DashPattern scaled = pattern;
    for (double& part : scaled)
        part *= options.scale;
    if (!options.perSegment) {
        dashCurve(curve, scaled, options.finest, line);
        return line;
    }
    for (std::size_t i = 1; i < curve.size(); ++i)
        dashCurve({curve[i - 1], curve[i]}, scaled, options.finest, line);
    return line;
}
} // namespace plot
