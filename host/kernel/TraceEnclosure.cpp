#include "AreaMoments.h"
#include "CurveMeet.h"
#include "TraceSteps.h"

#include <cmath>
#include <optional>
#include <unordered_set>

namespace kernel
{
using namespace gecore;

namespace
{
/// Where a ray from the picked point meets an edge, on the side that faces the point.
struct Hit {
    double distance = 0;
    int strand = 0;
    double t = 0;
    bool tangential = false;
};

/// A ray that passes a vertex or touches a curve tells nothing; another direction is tried.
constexpr int kDirections = 24;

class Search
{
public:
    Search(Arrangement& plane, const AcGePoint2d& pick) : mPlane(plane), mPick(pick) {}

    Enclosure run()
    {
        if (isOnCurve()) return {TraceStatus::kOnCurve, {}, {}};
        for (int i = 0; i < kDirections; ++i) {
            // The golden angle: no two directions are near, none is along an axis.
            const double angle = 0.4142 + 2.39996322972865332 * i;
            if (std::optional<Enclosure> found = along(AcGeVector2d(std::cos(angle), std::sin(angle))))
                return *found;
        }
        return {TraceStatus::kOnCurve, {}, {}};
    }

private:
    bool isOnCurve() const
    {
        bool on = false;
        Box2 place;
        place.add(mPick);
        mPlane.tree().eachIn(place.grown(mPlane.tolerance()), [&](int i) {
            on = on || isNear(mPlane.strand(i).form, mPick, mPlane.tolerance());
        });
        return on;
    }

    std::vector<Hit> hitsAlong(const AcGeVector2d& direction) const
    {
        Box2 all = mPlane.tree().total();
        all.add(mPick);
        const double reach = 2 * all.diagonal() + 1;
        const AcGePoint2d far = mPick + direction * reach;
        const CurveForm ray = lineForm({mPick.x, mPick.y, 0}, {direction.x, direction.y, 0}, 0, reach);
        std::vector<Hit> hits;
        const double slack = mPlane.tolerance();
        mPlane.tree().each(
            [&](const Box2& b) { return b.grown(slack).meetsSegment(mPick, far); },
            [&](int i) {
                const Meetings found = meet(ray, mPlane.strand(i).form, slack);
                for (std::size_t k = 0; k < found.points.size(); ++k)
                    hits.push_back({found.points[k].s, i, found.points[k].t, found.points[k].tangential});
                for (std::size_t k = 0; k < found.overlaps.size(); ++k)
                    hits.push_back({found.overlaps[k].s0, i, found.overlaps[k].t0, true});
            });
        std::sort(hits.begin(), hits.end(),
                  [](const Hit& a, const Hit& b) { return a.distance < b.distance; });
        return hits;
    }

    /// Nothing when the direction is not a clear one.
    std::optional<Enclosure> along(const AcGeVector2d& direction)
    {
        for (const Hit& hit : hitsAlong(direction)) {
            const std::optional<HalfEdge> facing = edgeAt(hit, direction);
            if (!facing) return std::nullopt;
            if (mPlane.isRepeated(facing->strand, facing->index) || mWalked.count(facing->key())) continue;
            if (std::optional<Enclosure> found = fromFace(*facing)) return found;
        }
        return Enclosure();
    }

    std::optional<HalfEdge> edgeAt(const Hit& hit, const AcGeVector2d& direction)
    {
        const CurveForm& form = mPlane.strand(hit.strand).form;
        AcGeVector3d d[2];
        derivatives(form, hit.t, 1, d);
        const AcGePoint2d p(d[0].x, d[0].y);
        const double turn = d[1].y * direction.x - d[1].x * direction.y;
        if (hit.tangential || std::fabs(turn) < 1e-6 * d[1].length()) return std::nullopt;
        const auto& events = mPlane.events(hit.strand);
        int index = 0;
        for (std::size_t i = 0; i < events.size(); ++i) {
            if (mPlane.point(events[i].vertex).distanceTo(p) <= 20 * mPlane.tolerance()) return std::nullopt;
            if (i + 1 < events.size() && events[i].t < hit.t) index = static_cast<int>(i);
        }
        return HalfEdge{hit.strand, index, turn > 0};
    }

    std::optional<Enclosure> fromFace(const HalfEdge& facing)
    {
        const Cycle walk = walkFace(mPlane, facing);
        for (const HalfEdge& h : walk)
            mWalked.insert(h.key());
        Enclosure found;
        for (Cycle& cycle : simpleCycles(mPlane, walk)) {
            const std::vector<Run> runs = runsOf(mPlane, cycle);
            const bool around = windingNumber(runs, mPick) > 0;
            if (around) found.status = TraceStatus::kOk;
            if (around) {
                found.outer = std::move(cycle);
            } else {
                found.attached.push_back(std::move(cycle));
            }
        }
        if (found.status != TraceStatus::kOk) return std::nullopt;
        return found;
    }

    Arrangement& mPlane;
    AcGePoint2d mPick;
    std::unordered_set<std::uint64_t> mWalked;
};
} // namespace

Enclosure enclosureOf(Arrangement& plane, const AcGePoint2d& pick)
{
    return Search(plane, pick).run();
}
} // namespace kernel
