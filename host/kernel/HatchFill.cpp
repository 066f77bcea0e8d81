#include "HatchFill.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace kernel
{
namespace
{
/// Where an edge meets a line of the family.
struct Crossing {
    std::int64_t line;
    double along;
    bool operator<(const Crossing& other) const
    {
        return line != other.line ? line < other.line : along < other.along;
    }
};

/// The axes of a family: along its lines and across them, from its base.
class FamilyAxes
{
public:
    explicit FamilyAxes(const HatchFamily& family)
        : mBase(family.base), mAlong(std::cos(family.angle), std::sin(family.angle)),
          mAcross(-mAlong.y, mAlong.x)
    {
        const double across = family.offset.dotProduct(mAcross);
        // A family may go down as well as up.
        mShift = family.offset.dotProduct(mAlong) * (across < 0 ? -1 : 1);
        mSpacing = std::abs(across);
    }

    double spacing() const { return mSpacing; }
    /// Where the dashes of a line begin.
    double dashStart(std::int64_t line) const { return static_cast<double>(line) * mShift; }
    double height(std::int64_t line) const { return static_cast<double>(line) * mSpacing; }
    AcGePoint2d toLocal(const AcGePoint2d& p) const
    {
        const AcGeVector2d v = p - mBase;
        return {v.dotProduct(mAlong), v.dotProduct(mAcross)};
    }
    AcGePoint2d toDrawing(std::int64_t line, double along) const
    {
        return mBase + mAlong * along + mAcross * height(line);
    }
    /// The first line at or above a height: a function of the height alone, so that the two edges at a vertex
    /// agree, and every line crosses a loop an even number of times.
    double firstLine(double y) const { return std::ceil(y / mSpacing); }

private:
    AcGePoint2d mBase;
    AcGeVector2d mAlong, mAcross;
    double mShift = 0, mSpacing = 0;
};

bool isFinite(const AcGePoint2d& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y);
}

bool isArea(const Polygon& loop)
{
    return loop.size() > 2 && std::all_of(loop.begin(), loop.end(), isFinite);
}

bool isUsable(const HatchFamily& family)
{
    return std::isfinite(family.angle) && isFinite(family.base) && std::isfinite(family.offset.x) &&
           std::isfinite(family.offset.y);
}

/// Draws the pieces of one family.
class FamilyFill
{
public:
    FamilyFill(const HatchFamily& family, const HatchLimits& limits, HatchPieces& pieces)
        : mAxes(family), mDashes(family.dashes), mLimits(limits), mPieces(pieces)
    {
        for (const double dash : mDashes)
            mPeriod += std::abs(dash);
        const bool hasGap = std::any_of(mDashes.begin(), mDashes.end(), [](double d) { return d < 0; });
        mIsContinuous = !hasGap || !std::isfinite(mPeriod) || mPeriod < 2 * limits.finest;
    }

    /// False when the family is too dense; nothing is drawn then.
    bool run(const Polygons& loops)
    {
        if (!(mAxes.spacing() > 0) || mAxes.spacing() < 1.5 * mLimits.finest || !collect(loops)) return false;
        std::sort(mCrossings.begin(), mCrossings.end());
        if (!hasRoom()) return false;
        for (std::size_t i = 1; i < mCrossings.size(); i += 2)
            interval(mCrossings[i - 1].line, mCrossings[i - 1].along, mCrossings[i].along);
        return true;
    }

private:
    bool collect(const Polygons& loops)
    {
        for (const Polygon& loop : loops) {
            if (!isArea(loop)) continue;
            AcGePoint2d last = mAxes.toLocal(loop.back());
            for (const AcGePoint2d& point : loop) {
                const AcGePoint2d next = mAxes.toLocal(point);
                if (!edge(last.y < next.y ? last : next, last.y < next.y ? next : last)) return false;
                last = next;
            }
        }
        return true;
    }
    bool edge(const AcGePoint2d& low, const AcGePoint2d& high)
    {
        const double first = mAxes.firstLine(low.y), end = mAxes.firstLine(high.y);
        constexpr double farthest = 1e15; // line numbers are exact up to here
        if (std::abs(first) > farthest || std::abs(end) > farthest) return false;
        if (end - first > 2.0 * static_cast<double>(mLimits.mostPieces - mCrossings.size() / 2)) return false;
        for (auto line = static_cast<std::int64_t>(first); line < static_cast<std::int64_t>(end); ++line) {
            const double part = (mAxes.height(line) - low.y) / (high.y - low.y);
            mCrossings.push_back({line, low.x + (high.x - low.x) * std::clamp(part, 0.0, 1.0)});
        }
        return mCrossings.size() / 2 < mLimits.mostPieces;
    }
    /// Counts what interval() will add at most.
    bool hasRoom() const
    {
        double count = static_cast<double>(mPieces.lines.size() + mPieces.dots.size());
        for (std::size_t i = 1; i < mCrossings.size(); i += 2) {
            const double periods = (mCrossings[i].along - mCrossings[i - 1].along) / mPeriod + 1;
            count += mIsContinuous ? 1 : periods * static_cast<double>((mDashes.size() + 1) / 2);
        }
        return count <= static_cast<double>(mLimits.mostPieces);
    }

    void interval(std::int64_t line, double start, double end)
    {
        if (mIsContinuous) {
            piece(line, start, end);
            return;
        }
        const double origin = mAxes.dashStart(line);
        double at = origin + std::floor((start - origin) / mPeriod) * mPeriod;
        for (std::size_t i = 0; at <= end; i = (i + 1) % mDashes.size()) {
            const double dash = mDashes[i], next = at + std::abs(dash);
            if (dash > 0) piece(line, std::max(at, start), std::min(next, end));
            if (dash == 0 && at >= start) mPieces.dots.push_back(mAxes.toDrawing(line, at));
            at = next;
        }
    }
    void piece(std::int64_t line, double start, double end)
    {
        if (end > start) mPieces.lines.push_back({mAxes.toDrawing(line, start), mAxes.toDrawing(line, end)});
    }

    FamilyAxes mAxes;
    const DashList& mDashes;
    const HatchLimits& mLimits;
    HatchPieces& mPieces;
    std::vector<Crossing> mCrossings;
    double mPeriod = 0;
    bool mIsContinuous = true;
};
} // namespace

HatchPieces hatchLoops(const Polygons& loops, const std::vector<HatchFamily>& pattern, const HatchLimits& limits)
{
    HatchPieces pieces;
    for (const HatchFamily& family : pattern)
        if (!isUsable(family) || !FamilyFill(family, limits, pieces).run(loops)) pieces.isTooDense = true;
    return pieces;
}
} // namespace kernel
