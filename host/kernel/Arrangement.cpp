#include "Arrangement.h"

#include "CurveDistance.h"
#include "CurveMeet.h"

#include <cmath>

namespace kernel
{
using namespace gecore;

namespace
{
/// Meetings of the same place, found from several pairs of curves, differ by less than this many tolerances.
constexpr double kSnap = 4;
/// The width of a cell of the grid of vertices in such distances: most places are near to one cell only.
constexpr double kCell = 32;
/// Directions closer than this are told apart by their course and not by their tangents.
constexpr double kClearAngle = 1e-3;

std::vector<Box2> boxesOf(const std::vector<Strand>& strands)
{
    std::vector<Box2> boxes;
    boxes.reserve(strands.size());
    for (const Strand& strand : strands)
        boxes.push_back(flatBoxOf(strand.form));
    return boxes;
}

AcGePoint2d flat(const AcGePoint3d& p)
{
    return {p.x, p.y};
}

std::uint64_t cellKey(double x, double y)
{
    const auto column = static_cast<std::int64_t>(x), row = static_cast<std::int64_t>(y);
    return static_cast<std::uint64_t>(column) * 0x9E3779B97F4A7C15u ^ static_cast<std::uint64_t>(row);
}
} // namespace

Arrangement::Arrangement(std::vector<Strand> strands, double tol)
    : mStrands(std::move(strands)), mBoxes(boxesOf(mStrands)), mTree(mBoxes), mTol(tol),
      mNodeOf(mStrands.size(), -1)
{
}

Arrangement::Node& Arrangement::node(int i)
{
    int& at = mNodeOf[static_cast<std::size_t>(i)];
    if (at < 0) {
        at = static_cast<int>(mNodes.size());
        mNodes.emplace_back();
    }
    return mNodes[static_cast<std::size_t>(at)];
}

int Arrangement::vertexAt(const AcGePoint2d& p)
{
    const double reach = kSnap * mTol, cell = kCell * reach;
    const auto index = [&](double x) { return std::floor(x / cell); };
    int best = -1;
    double least = reach;
    for (double column = index(p.x - reach); column <= index(p.x + reach); ++column)
        for (double row = index(p.y - reach); row <= index(p.y + reach); ++row) {
            const auto range = mCells.equal_range(cellKey(column, row));
            for (auto it = range.first; it != range.second; ++it) {
                const double distance = point(it->second).distanceTo(p);
                if (distance > least) continue;
                least = distance;
                best = it->second;
            }
        }
    if (best >= 0) return best;
    mVertices.push_back(p);
    best = static_cast<int>(mVertices.size()) - 1;
    mCells.emplace(cellKey(index(p.x), index(p.y)), best);
    return best;
}

/// A touch is known only roughly along the curves. Where an end lies in it, the end is the better place.
void Arrangement::snapToEnd(int first, double& s, int second, double& t) const
{
    const CurveForm &a = strand(first).form, &b = strand(second).form;
    for (const double end : {a.lo, a.hi}) {
        const AcGePoint3d p = pointAt(a, end), half = pointAt(a, (s + end) / 2);
        const Foot foot = closestNear(b, p, t, b.lo, b.hi);
        if (foot.distance > 2 * mTol) continue;
        if (closestNear(b, half, (t + foot.t) / 2, b.lo, b.hi).distance > 2 * mTol) continue;
        if (half.distanceTo(p) > 1e-2 * mBoxes[static_cast<std::size_t>(first)].diagonal()) continue;
        s = end;
        t = foot.t;
        return;
    }
}

void Arrangement::addMeeting(int first, double s, int second, double t)
{
    const int vertex = vertexAt(flat(pointAt(strand(first).form, s)));
    node(first).events.push_back({s, vertex});
    node(second).events.push_back({t, vertex});
}

void Arrangement::meetStrands(int first, int second)
{
    const Meetings found = meet(strand(first).form, strand(second).form, mTol);
    for (std::size_t i = 0; i < found.points.size(); ++i) {
        double s = found.points[i].s, t = found.points[i].t;
        if (found.points[i].tangential) {
            snapToEnd(first, s, second, t);
            snapToEnd(second, t, first, s);
        }
        addMeeting(first, s, second, t);
    }
    for (std::size_t i = 0; i < found.overlaps.size(); ++i) {
        const Overlap& o = found.overlaps[i];
        const bool same = o.t0 <= o.t1;
        addMeeting(first, o.s0, second, o.t0);
        addMeeting(first, o.s1, second, o.t1);
        node(first).shared.push_back({o.s0, o.s1, second, same});
        node(second).shared.push_back({std::min(o.t0, o.t1), std::max(o.t0, o.t1), first, same});
    }
}

bool Arrangement::isSameEvent(int i, const Event& a, const Event& b) const
{
    if (a.vertex != b.vertex) return false;
    const AcGePoint2d between = flat(pointAt(strand(i).form, (a.t + b.t) / 2));
    return between.distanceTo(point(a.vertex)) <= 2 * kSnap * mTol;
}

void Arrangement::sortEvents(int i)
{
    std::vector<Event>& events = node(i).events;
    const CurveForm& form = strand(i).form;
    for (const double end : {form.lo, form.hi})
        events.push_back({end, vertexAt(flat(pointAt(form, end)))});
    std::stable_sort(events.begin(), events.end(), [](const Event& a, const Event& b) { return a.t < b.t; });
    std::vector<Event> kept;
    for (const Event& event : events)
        if (kept.empty() || !isSameEvent(i, kept.back(), event)) kept.push_back(event);
    kept.front().t = form.lo;
    kept.back().t = form.hi;
    events = std::move(kept);
}

const std::vector<Arrangement::Event>& Arrangement::events(int i)
{
    if (!node(i).done) {
        node(i).done = true;
        mTree.eachIn(box(i).grown(mTol), [&](int other) {
            if (!node(other).done) meetStrands(std::min(i, other), std::max(i, other));
        });
        sortEvents(i);
    }
    return node(i).events;
}

std::vector<Arrangement::Shared> Arrangement::sharedWith(int i, int index)
{
    const double t = middle({i, index, true});
    std::vector<Shared> result;
    for (const Shared& shared : node(i).shared)
        if (t > shared.lo && t < shared.hi) result.push_back(shared);
    return result;
}

bool Arrangement::isRepeated(int i, int index)
{
    if (node(i).shared.empty()) return false;
    for (const Shared& shared : sharedWith(i, index))
        if (shared.other < i) return true;
    return false;
}

int Arrangement::startOf(const HalfEdge& h)
{
    return events(h.strand)[static_cast<std::size_t>(h.forward ? h.index : h.index + 1)].vertex;
}

double Arrangement::middle(const HalfEdge& h)
{
    const std::vector<Event>& list = events(h.strand);
    const auto at = static_cast<std::size_t>(h.index);
    return (list[at].t + list[at + 1].t) / 2;
}

AcGePoint2d Arrangement::middlePoint(const HalfEdge& h)
{
    return flat(pointAt(strand(h.strand).form, middle(h)));
}

Run Arrangement::run(const HalfEdge& h)
{
    const std::vector<Event>& list = events(h.strand);
    const auto at = static_cast<std::size_t>(h.index);
    return {trimmed(strand(h.strand).form, list[at].t, list[at + 1].t), h.forward};
}

std::vector<HalfEdge> Arrangement::leaving(int vertex)
{
    std::vector<HalfEdge> result;
    Box2 place;
    place.add(point(vertex));
    mTree.eachIn(place.grown(2 * kSnap * mTol), [&](int i) {
        // The boxes of long curves lie around most vertices.
        if (!isNear(strand(i).form, point(vertex), 2 * kSnap * mTol)) return;
        const int count = static_cast<int>(events(i).size());
        for (int k = 0; k < count; ++k) {
            if (node(i).events[static_cast<std::size_t>(k)].vertex != vertex) continue;
            if (k + 1 < count && !isRepeated(i, k)) result.push_back({i, k, true});
            if (k > 0 && !isRepeated(i, k - 1)) result.push_back({i, k - 1, false});
        }
    });
    return result;
}

const std::vector<HalfEdge>& Arrangement::fan(int vertex)
{
    const auto known = mFans.find(vertex);
    if (known != mFans.end()) return known->second;
    std::vector<HalfEdge> sorted = leaving(vertex);
    if (sorted.size() > 2) sortByTangent(vertex, sorted);
    return mFans.emplace(vertex, std::move(sorted)).first->second;
}

void Arrangement::sortByTangent(int vertex, std::vector<HalfEdge>& fan)
{
    std::vector<std::pair<double, HalfEdge>> sorted;
    for (const HalfEdge& h : fan) {
        const Run part = run(h);
        AcGeVector3d d[2];
        derivatives(part.form, h.forward ? part.form.lo : part.form.hi, 1, d);
        sorted.emplace_back(h.forward ? std::atan2(d[1].y, d[1].x) : std::atan2(-d[1].y, -d[1].x), h);
        if (!(d[1].length() > 0)) return sortAtDistance(vertex, fan);
    }
    std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        const bool last = i + 1 == sorted.size();
        const double gap =
            last ? sorted[0].first + kTwoPi - sorted[i].first : sorted[i + 1].first - sorted[i].first;
        if (gap < kClearAngle) return sortAtDistance(vertex, fan);
    }
    for (std::size_t i = 0; i < sorted.size(); ++i)
        fan[i] = sorted[i].second;
}

/// Edges do not cross between vertices, so they leave every small circle in the order in which they start.
void Arrangement::sortAtDistance(int vertex, std::vector<HalfEdge>& fan)
{
    const AcGePoint2d center = point(vertex);
    double radius = kInfinity;
    for (const HalfEdge& h : fan)
        radius = std::min(radius, middlePoint(h).distanceTo(center));
    radius *= 0.5;
    std::vector<std::pair<double, HalfEdge>> sorted;
    for (const HalfEdge& h : fan)
        sorted.emplace_back(angleAtDistance(h, center, radius), h);
    std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (std::size_t i = 0; i < sorted.size(); ++i)
        fan[i] = sorted[i].second;
}

double Arrangement::angleAtDistance(const HalfEdge& h, const AcGePoint2d& center, double radius)
{
    const Run part = run(h);
    double near = h.forward ? part.form.lo : part.form.hi, far = (part.form.lo + part.form.hi) / 2;
    for (int step = 0; step < 60; ++step) {
        const double t = (near + far) / 2;
        (flat(pointAt(part.form, t)).distanceTo(center) < radius ? near : far) = t;
    }
    const AcGePoint2d p = flat(pointAt(part.form, far));
    return std::atan2(p.y - center.y, p.x - center.x);
}

HalfEdge Arrangement::next(const HalfEdge& h)
{
    const std::vector<HalfEdge>& around = fan(endOf(h));
    const auto back = std::find(around.begin(), around.end(), h.twin());
    if (back == around.end()) return h.twin();
    return back == around.begin() ? around.back() : *(back - 1);
}
} // namespace kernel
