#include "BoundaryTrace.h"

#include "AreaMoments.h"
#include "CurveFactory.h"
#include "CurvePart.h"
#include "TraceSteps.h"

#include <cmath>

namespace kernel
{
using namespace gecore;

namespace
{
using Owned = std::vector<std::unique_ptr<AcGeCurve2d>>;

/// The curves as strands, with the curves that had to be made for them.
class Input
{
public:
    Input(const std::vector<TraceCurve>& curves, const AcGePoint2d& pick, double tol) : mCurves(curves)
    {
        mReach.add(pick);
        for (const TraceCurve& c : curves)
            if (c.curve->form().isBounded()) mReach.add(flatBoxOf(c.curve->form()));
        mTol = safeTolerance(tol, mReach);
        mStrands.reserve(curves.size());
        for (std::size_t i = 0; i < curves.size(); ++i)
            add(bounded(curves[i].curve->form()), static_cast<int>(i));
    }

    const std::vector<Strand>& strands() const { return mStrands; }
    std::vector<Strand> strandsOf(const TraceWindow& window) const
    {
        std::vector<Strand> some;
        some.reserve(window.strands.size());
        for (const int i : window.strands)
            some.push_back(mStrands[static_cast<std::size_t>(i)]);
        return some;
    }
    std::vector<Strand> takeStrands() { return std::move(mStrands); }
    double tolerance() const { return mTol; }
    double reach() const { return mReach.diagonal(); }
    /// Adds the segments that close gaps.
    void addBridges(Owned bridges)
    {
        for (auto& bridge : bridges) {
            add(bridge->form(), kGapPiece);
            mBridges.push_back(std::move(bridge));
        }
    }
    bool hasBridges() const { return !mBridges.empty(); }
    int indexOf(int source) const
    {
        return source < 0 ? kGapPiece : mCurves[static_cast<std::size_t>(source)].index;
    }

private:
    CurveForm bounded(CurveForm form) const
    {
        if (form.kind != FormKind::kLine || form.isBounded() || !(form.u.length() > 0)) return form;
        const AcGePoint3d middle((mReach.minX + mReach.maxX) / 2, (mReach.minY + mReach.maxY) / 2, 0);
        const double speed = form.u.length(),
                     foot = (middle - form.origin).dotProduct(form.u) / (speed * speed);
        const double half = (mReach.diagonal() + 1) / speed;
        form.lo = std::max(form.lo, foot - half);
        form.hi = std::max(form.lo, std::min(form.hi, foot + half));
        return form;
    }

    void add(const CurveForm& form, int source) { addStrands(form, source, mTol, mStrands); }

    const std::vector<TraceCurve>& mCurves;
    Owned mBridges;
    Box2 mReach;
    double mTol = 0;
    std::vector<Strand> mStrands;
};

/// Neighbouring parts of one curve become one part.
std::vector<TracePiece> piecesOf(Arrangement& plane, const Cycle& cycle, const Input& input)
{
    std::vector<TracePiece> pieces;
    for (const CyclePart& part : partsOf(plane, cycle)) {
        const CurveForm form = part.run.form;
        const double lo = part.source(form.lo), hi = part.source(form.hi);
        const bool forward = part.run.forward;
        pieces.push_back(
            {input.indexOf(part.strand->source), forward ? lo : hi, forward ? hi : lo, curveOf(part.run)});
    }
    return pieces;
}

TraceLoop loopOf(Arrangement& plane, const Cycle& cycle, int depth, const Input& input)
{
    return {piecesOf(plane, cycle, input), areaOf(runsOf(plane, cycle)), depth};
}

TraceResult resultOf(Arrangement& plane, const Enclosure& enclosure, const Input& input, IslandMode islands)
{
    TraceResult result;
    result.status = TraceStatus::kOk;
    result.loops.push_back(loopOf(plane, enclosure.outer, 0, input));
    for (const Island& island : islandsIn(plane, enclosure, islands))
        result.loops.push_back(loopOf(plane, island.cycle, island.depth, input));
    return result;
}

/// The boundary that is found among the strands near the point; kOutside when the nearest windows have none.
TraceResult tracedNear(const Input& input, const AcGePoint2d& pick, IslandMode islands)
{
    for (const TraceWindow& window : windowsAround(input.strands(), pick, input.tolerance())) {
        Arrangement plane(input.strandsOf(window), input.tolerance());
        const Enclosure enclosure = enclosureOf(plane, pick);
        const bool isFound =
            enclosure.status == TraceStatus::kOk && window.box.contains(flatBoxOf(plane, enclosure.outer));
        if (isFound) return resultOf(plane, enclosure, input, islands);
    }
    return {};
}

/// The widest segment over a gap that a boundary needs.
void reportGap(Arrangement& plane, const Cycle& outer, TraceResult& result)
{
    for (const HalfEdge& h : outer) {
        const CurveForm& form = plane.strand(h.strand).form;
        if (plane.strand(h.strand).source != kGapPiece) continue;
        const AcGePoint3d a = startOf(form), b = endOf(form);
        if (a.distanceTo(b) <= result.gapWidth) continue;
        result.gapWidth = a.distanceTo(b);
        result.gapPoint = {(a.x + b.x) / 2, (a.y + b.y) / 2};
    }
}

/// Nothing was found: it may be that only gaps are to blame.
TraceResult explained(const std::vector<TraceCurve>& curves, const AcGePoint2d& pick,
                      const TraceOptions& options)
{
    TraceResult result;
    Input input(curves, pick, options.tolerance);
    input.addBridges(bridgesOver(input.strands(), input.tolerance(), input.reach()));
    if (!input.hasBridges()) return result;
    Arrangement plane(input.takeStrands(), input.tolerance());
    const Enclosure closed = enclosureOf(plane, pick);
    if (closed.status != TraceStatus::kOk) return result;
    reportGap(plane, closed.outer, result);
    if (result.gapWidth > 0) result.status = TraceStatus::kGap;
    return result;
}

bool areUsable(const std::vector<TraceCurve>& curves, const AcGePoint2d& pick)
{
    for (const TraceCurve& c : curves)
        if (!c.curve || !isFinite(c.curve->form())) return false;
    return std::isfinite(pick.x) && std::isfinite(pick.y);
}

TraceResult tracedAmong(const std::vector<TraceCurve>& curves, const AcGePoint2d& pick,
                        const TraceOptions& options)
{
    TraceResult result;
    Input input(curves, pick, options.tolerance);
    if (options.gap > 0) input.addBridges(bridgesOver(input.strands(), input.tolerance(), options.gap));
    const TraceResult near = tracedNear(input, pick, options.islands);
    if (near.status == TraceStatus::kOk) return near;
    Arrangement plane(input.takeStrands(), input.tolerance());
    const Enclosure enclosure = enclosureOf(plane, pick);
    if (enclosure.status == TraceStatus::kOk) return resultOf(plane, enclosure, input, options.islands);
    result.status = enclosure.status;
    return result;
}

/// So wide that numbers in it are hardly coarser than those of the point and of everyday drawings.
Box2 fineWindow(const AcGePoint2d& pick)
{
    Box2 window;
    window.add(pick);
    return window.grown(1e4 + 10 * window.magnitude());
}

bool isWithin(const TraceLoop& loop, const Box2& window)
{
    return std::all_of(loop.pieces.begin(), loop.pieces.end(), [&](const TracePiece& piece) {
        return window.contains(flatBoxOf(piece.curve->form()));
    });
}

/// Curves that are lost far away make the tolerance of the whole coarse: the boundary is looked for without
/// them first. kOutside when there are none, or nothing is found.
TraceResult tracedFinely(const std::vector<TraceCurve>& curves, const AcGePoint2d& pick,
                         const TraceOptions& options)
{
    const Box2 window = fineWindow(pick);
    std::vector<TraceCurve> inside;
    for (const TraceCurve& c : curves) {
        const CurveForm form = c.curve->form();
        if (!form.isBounded() || window.meets(flatBoxOf(form))) inside.push_back(c);
    }
    if (inside.size() == curves.size()) return {};
    TraceResult result = tracedAmong(inside, pick, options);
    const bool isFound = result.status == TraceStatus::kOk && isWithin(result.loops.front(), window);
    return isFound ? std::move(result) : TraceResult();
}
} // namespace

TraceResult traceBoundary(const std::vector<TraceCurve>& curves, const AcGePoint2d& pick,
                          const TraceOptions& options)
{
    if (!areUsable(curves, pick)) {
        TraceResult result;
        result.status = TraceStatus::kBadCurve;
        return result;
    }
    TraceResult result = tracedFinely(curves, pick, options);
    if (result.status != TraceStatus::kOk) result = tracedAmong(curves, pick, options);
    return result.status == TraceStatus::kOutside ? explained(curves, pick, options) : result;
}
} // namespace kernel
