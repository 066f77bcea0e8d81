#include "HatchEdges.h"

#include "AreaMoments.h"
#include "geintrvl.h"

#include <algorithm>
#include <cmath>

namespace hatch
{
namespace
{
struct Ends {
    AcGePoint2d start, end;
};

Ends endsOf(const AcGeCurve2d& curve)
{
    AcGeInterval range;
    curve.getInterval(range);
    return {curve.evalPoint(range.lowerBound()), curve.evalPoint(range.upperBound())};
}

/// Ends that people draw at one place differ by rounding: a few digits less than doubles have.
bool meet(const AcGePoint2d& a, const AcGePoint2d& b)
{
    const double size = 1.0 + std::max({std::fabs(a.x), std::fabs(a.y), std::fabs(b.x), std::fabs(b.y)});
    return a.distanceTo(b) <= 1e-6 + 1e-10 * size;
}

/// Finds the curve at `from` or behind that goes on at a point, brings it to `from` and into direction.
bool bringNext(Curves& curves, std::size_t from, const AcGePoint2d& at)
{
    for (std::size_t i = from; i < curves.size(); ++i) {
        const Ends ends = endsOf(*curves[i]);
        const bool isForward = meet(ends.start, at);
        if (!isForward && !meet(ends.end, at)) continue;
        if (!isForward) {
            std::shared_ptr<AcGeCurve2d> turned(static_cast<AcGeCurve2d*>(curves[i]->copy()));
            turned->reverseParam();
            curves[i] = std::move(turned);
        }
        std::swap(curves[from], curves[i]);
        return true;
    }
    return false;
}

bool isInside(const AcGePoint2d& point, const kernel::Polygon& polygon)
{
    bool inside = false;
    for (std::size_t i = 0, last = polygon.size() - 1; i < polygon.size(); last = i++) {
        const AcGePoint2d &a = polygon[i], &b = polygon[last];
        if ((a.y > point.y) == (b.y > point.y)) continue;
        if (point.x < a.x + (point.y - a.y) / (b.y - a.y) * (b.x - a.x)) inside = !inside;
    }
    return inside;
}

struct Box {
    AcGePoint2d low{1e300, 1e300}, high{-1e300, -1e300};
    explicit Box(const kernel::Polygon& polygon) { add(polygon); }
    void add(const kernel::Polygon& polygon)
    {
        for (const AcGePoint2d& p : polygon) {
            low = {std::min(low.x, p.x), std::min(low.y, p.y)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y)};
        }
    }
    bool holds(const Box& other) const
    {
        return low.x <= other.low.x && low.y <= other.low.y && high.x >= other.high.x &&
               high.y >= other.high.y;
    }
};

bool isTextFrame(const Loop& loop)
{
    constexpr std::int32_t textbox = 8;
    return loop.type & textbox;
}

kernel::Polygons polygonsOf(const std::vector<Loop>& loops, double deviation)
{
    kernel::Polygons polygons;
    for (const Loop& loop : loops)
        polygons.push_back(flattened(loop, deviation));
    return polygons;
}

/// Whether a loop at a depth bounds what is filled.
bool counts(int depth, int style)
{
    constexpr int outer = 1, ignore = 2;
    return style == ignore ? depth == 0 : style != outer || depth <= 1;
}

/// Which loops lie in which others.
class Nesting
{
public:
    Nesting(const std::vector<Loop>& loops, const kernel::Polygons& polygons, int style)
        : mLoops(loops), mPolygons(polygons), mStyle(style)
    {
        for (const kernel::Polygon& polygon : polygons)
            mBoxes.emplace_back(polygon);
    }

    std::vector<int> signs() const
    {
        std::vector<int> signs;
        for (std::size_t i = 0; i < mLoops.size(); ++i)
            signs.push_back(signOf(i));
        if (std::none_of(mLoops.begin(), mLoops.end(), isTextFrame)) return signs;
        const std::vector<int> alone = signs;
        for (std::size_t i = 0; i < mLoops.size(); ++i)
            if (depthOf(i,
                        [&](std::size_t outer) { return isTextFrame(mLoops[outer]) && alone[outer] != 0; }))
                signs[i] = 0;
        return signs;
    }

private:
    /// How many of some loops it lies in.
    template <class Choice>
    int depthOf(std::size_t inner, Choice isChosen) const
    {
        int depth = 0;
        for (std::size_t outer = 0; outer < mLoops.size(); ++outer)
            if (inner != outer && isChosen(outer) && !mPolygons[inner].empty() &&
                mBoxes[outer].holds(mBoxes[inner]) && isInside(mPolygons[inner][0], mPolygons[outer]))
                ++depth;
        return depth;
    }

    /// As if no text were around it.
    int signOf(std::size_t loop) const
    {
        const int depth = depthOf(loop, [this](std::size_t outer) { return !isTextFrame(mLoops[outer]); });
        if (!counts(depth, mStyle)) return 0;
        if (depth % 2) return -1;
        return isTextFrame(mLoops[loop]) ? 0 : 1;
    }

    const std::vector<Loop>& mLoops;
    const kernel::Polygons& mPolygons;
    int mStyle;
    std::vector<Box> mBoxes;
};
} // namespace

bool chain(Curves& curves)
{
    if (curves.empty()) return false;
    const Ends first = endsOf(*curves[0]);
    AcGePoint2d at = first.end;
    for (std::size_t i = 1; i < curves.size(); ++i) {
        if (!bringNext(curves, i, at)) return false;
        at = endsOf(*curves[i]).end;
    }
    return meet(at, first.start);
}

double areaOf(const Loop& loop)
{
    const Curves curves = curvesOf(loop);
    std::vector<kernel::Run> runs;
    for (const auto& curve : curves)
        runs.push_back({curve->form(), true});
    return std::fabs(kernel::areaOf(runs));
}

double fineDeviation(const std::vector<Loop>& loops)
{
    Box all(kernel::Polygon{});
    for (const Loop& loop : loops) {
        kernel::Polygon ends = loop.points;
        for (const auto& curve : curvesOf(loop))
            ends.push_back(endsOf(*curve).start);
        all.add(ends);
    }
    const double size = all.low.distanceTo(all.high);
    return size > 0.0 && size < 1e300 ? 1e-5 * size : 1e-5;
}

std::vector<int> signsOf(const std::vector<Loop>& loops, int style, double deviation)
{
    const kernel::Polygons polygons = polygonsOf(loops, deviation);
    return Nesting(loops, polygons, style).signs();
}

kernel::Polygons filledPolygons(const std::vector<Loop>& loops, int style, double deviation)
{
    kernel::Polygons polygons = polygonsOf(loops, deviation);
    if (style == 0 && std::none_of(loops.begin(), loops.end(), isTextFrame)) return polygons;
    const std::vector<int> signs = Nesting(loops, polygons, style).signs();
    kernel::Polygons filled;
    for (std::size_t i = 0; i < polygons.size(); ++i)
        if (signs[i] != 0) filled.push_back(std::move(polygons[i]));
    return filled;
}
} // namespace hatch
