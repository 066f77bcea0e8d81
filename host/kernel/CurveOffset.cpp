#include "CurveOffset.h"

#include "CurveDistance.h"
#include "CurveMeet.h"
#include "FaceLoops.h"
#include "gearc2d.h"
#include "gelnsg2d.h"
#include "OffsetFit.h"

#include <cmath>
#include <unordered_set>

namespace kernel
{
using namespace gecore;

namespace
{
constexpr double kFit = 1e-6;          // of the distance
constexpr double kSmoothCorner = 1e-9; // sine of a turn that leaves no gap
constexpr double kReversal = -0.9999;  // cosine of a turn whose sides would meet too far away

AcGePoint2d flat(const AcGePoint3d& p)
{
    return {p.x, p.y};
}

/// Stretches of the input without corners.
bool addSmooth(const CurveForm& form, double tol, std::vector<CurveForm>& parts)
{
    if (!isFinite(form) || !form.isBounded()) return false;
    if (form.kind == FormKind::kChain) {
        for (const ChainLink& link : *form.chain)
            if (flatBoxOf(link.form).diagonal() > tol && !addSmooth(link.form, tol, parts)) return false;
        return !form.chain->empty();
    }
    if (!(flatBoxOf(form).diagonal() > tol)) return false;
    double from = form.lo;
    for (const double t : smoothBreaks(form)) {
        if (t <= from || t >= form.hi || form.kind != FormKind::kSpline) continue;
        const double step = 1e-9 * (form.hi - form.lo);
        if (tangentAt(form, t - step).dotProduct(tangentAt(form, t + step)) > 1 - 1e-10) continue;
        parts.push_back(trimmed(form, from, t));
        from = t;
    }
    parts.push_back(trimmed(form, from, form.hi));
    return true;
}

/// The moved parts with their corners closed, still with everything that comes too near.
class RawOffset
{
public:
    RawOffset(const std::vector<CurveForm>& parts, double distance, bool closed) : mDistance(distance)
    {
        for (const CurveForm& part : parts)
            mPieces.push_back(offsetPieces(part, distance, kFit * std::fabs(distance)));
        for (std::size_t i = closed ? 0 : 1; i < parts.size(); ++i)
            closeCorner(parts, i == 0 ? parts.size() - 1 : i - 1, i);
    }

    std::vector<CurvePtr> curves() const
    {
        std::vector<CurvePtr> all;
        for (const auto& pieces : mPieces)
            all.insert(all.end(), pieces.begin(), pieces.end());
        all.insert(all.end(), mFills.begin(), mFills.end());
        return all;
    }

private:
    void closeCorner(const std::vector<CurveForm>& parts, std::size_t before, std::size_t after)
    {
        const AcGeVector2d in = tangentAt(parts[before], parts[before].hi),
                           out = tangentAt(parts[after], parts[after].lo);
        const double turn = in.x * out.y - in.y * out.x;
        const bool reversal = in.dotProduct(out) < kReversal;
        if (!(turn * mDistance < -kSmoothCorner * std::fabs(mDistance)) && !reversal) return;
        const AcGePoint2d corner = flat(endOf(parts[before]));
        const AcGePoint2d from = corner + AcGeVector2d(-in.y, in.x) * mDistance,
                          to = corner + AcGeVector2d(-out.y, out.x) * mDistance;
        if (reversal) return addRound(corner, from, to);
        if (before != after && extend(mPieces[before], mPieces[after], corner)) return;
        addMiter(from, in, to, out);
    }

    void addRound(const AcGePoint2d& corner, const AcGePoint2d& from, const AcGePoint2d& to)
    {
        const double start = (from - corner).angle(), radius = std::fabs(mDistance);
        double sweep = (to - corner).angle() - start;
        // Around a corner the offset turns to the right when it is on the left.
        const bool clockwise = mDistance > 0;
        sweep = clockwise ? -sweep : sweep;
        if (sweep <= 0) sweep += kTwoPi;
        mFills.push_back(std::make_shared<AcGeCircArc2d>(corner, radius, 0, sweep, from - corner, clockwise));
    }

    void addMiter(const AcGePoint2d& from, const AcGeVector2d& in, const AcGePoint2d& to,
                  const AcGeVector2d& out)
    {
        const double reach =
            mDistance * -std::tan(std::atan2(in.x * out.y - in.y * out.x, in.dotProduct(out)) / 2);
        const AcGePoint2d peak = from + in * reach;
        mFills.push_back(std::make_shared<AcGeLineSeg2d>(from, peak));
        mFills.push_back(std::make_shared<AcGeLineSeg2d>(peak, to));
    }

    /// Lines and arcs go on beyond the corner until they meet, if they do.
    static bool extend(std::vector<CurvePtr>& before, std::vector<CurvePtr>& after, const AcGePoint2d& corner)
    {
        if (before.empty() || after.empty()) return false;
        CurveForm in = before.back()->form(), out = after.front()->form();
        if (!canExtend(in) || !canExtend(out)) return false;
        const double end = in.hi, start = out.lo;
        in = trimmed(in, end, in.kind == FormKind::kLine ? kInfinity : in.lo + kTwoPi);
        out = trimmed(out, out.kind == FormKind::kLine ? -kInfinity : out.hi - kTwoPi, start);
        const Meetings found = meet(in, out, 1e-10);
        std::size_t best = found.points.size();
        for (std::size_t i = 0; i < found.points.size(); ++i)
            if (best == found.points.size() || flat(found.points[i].point).distanceTo(corner) <
                                                   flat(found.points[best].point).distanceTo(corner))
                best = i;
        if (best == found.points.size()) return false;
        resize(before.back(), before.back()->form().lo, found.points[best].s);
        resize(after.front(), found.points[best].t, after.front()->form().hi);
        return true;
    }

    static bool canExtend(const CurveForm& form) { return form.kind == FormKind::kLine || isCircle(form); }

    static void resize(CurvePtr& curve, double lo, double hi)
    {
        std::unique_ptr<AcGeCurve2d> copy(static_cast<AcGeCurve2d*>(curve->copy()));
        copy->setInterval(AcGeInterval(lo, hi));
        curve = std::move(copy);
    }

    double mDistance;
    std::vector<std::vector<CurvePtr>> mPieces; ///< of each part
    std::vector<CurvePtr> mFills;
};

/// Cuts the raw offset where it meets itself and keeps what is far enough from the input.
class Trimmed
{
public:
    Trimmed(const std::vector<CurveForm>& parts, const std::vector<CurvePtr>& raw, double distance,
            bool closed, double tol)
        : mParts(parts), mPartTree(boxesOf(parts)), mRaw(raw), mSigned(distance),
          mDistance(std::fabs(distance)), mClosed(closed), mPlane(strands(tol), tol)
    {
    }

    std::vector<OffsetChain> chains()
    {
        for (int i = 0; i < mKeepable; ++i)
            for (int k = 0; k < mPlane.edgeCount(i); ++k)
                if (!mPlane.isRepeated(i, k) && isFar({i, k, true})) keep({i, k, true});
        if (mClosed) dropLooseEnds();
        std::vector<OffsetChain> result;
        for (const HalfEdge& h : mKept) // open chains from their starts, then what is left: closed ones
            if (mInto[mPlane.startOf(h)] == 0) addChain(h, result);
        for (const HalfEdge& h : mKept)
            addChain(h, result);
        return result;
    }

private:
    static std::vector<Box2> boxesOf(const std::vector<CurveForm>& forms)
    {
        std::vector<Box2> boxes;
        for (const CurveForm& form : forms)
            boxes.push_back(flatBoxOf(form));
        return boxes;
    }

    /// After the raw curves those that only cut. The distance from an open chain reaches its limit also on
    /// its other side and around its ends and corners; what a closed one leaves there has loose ends.
    std::vector<Strand> strands(double tol)
    {
        std::vector<Strand> all;
        int source = 0;
        for (const CurvePtr& curve : mRaw)
            addStrands(curve->form(), source++, tol, all);
        mKeepable = static_cast<int>(all.size());
        if (mClosed) return all;
        addCircle(endOf(mParts.back()), source++, all);
        for (const CurveForm& part : mParts) {
            addCircle(startOf(part), source++, all);
            for (const CurvePtr& curve : offsetPieces(part, -mSigned, kFit * mDistance)) {
                mOther.push_back(curve);
                addStrands(curve->form(), source++, tol, all);
            }
        }
        return all;
    }

    void addCircle(const AcGePoint3d& center, int source, std::vector<Strand>& strands) const
    {
        const CurveForm circle =
            conicForm(center, AcGeVector3d(mDistance, 0, 0), AcGeVector3d(0, mDistance, 0), 0, kTwoPi);
        strands.push_back({circle, source, 1, 0});
    }

    bool isFar(const HalfEdge& h)
    {
        const AcGePoint2d p = mPlane.middlePoint(h);
        Box2 place;
        place.add(p);
        const double least = mDistance * (1 - 4 * kFit) - mPlane.tolerance();
        bool far = true;
        mPartTree.each([&](const Box2& b) { return far && b.meets(place.grown(least)); },
                       [&](int i) {
                           const CurveForm& part = mParts[static_cast<std::size_t>(i)];
                           far = far && closestTo(part, {p.x, p.y, 0}).distance >= least;
                       });
        return far;
    }

    void keep(const HalfEdge& h)
    {
        mKept.push_back(h);
        ++mInto[mPlane.endOf(h)];
        mFrom[mPlane.startOf(h)].push_back(h);
    }

    /// The offset of a closed chain is closed: stubs between crossings too near to each other fall away.
    void dropLooseEnds()
    {
        for (bool changed = true; changed;) {
            const std::vector<HalfEdge> before = std::move(mKept);
            mKept.clear();
            const auto into = std::move(mInto);
            const auto from = std::move(mFrom);
            mInto.clear();
            mFrom.clear();
            for (const HalfEdge& h : before)
                if (into.count(mPlane.startOf(h)) && from.count(mPlane.endOf(h))) keep(h);
            changed = mKept.size() != before.size();
        }
    }

    void addChain(const HalfEdge& first, std::vector<OffsetChain>& result)
    {
        Cycle cycle;
        for (HalfEdge at = first; mUsed.insert(at.key()).second;) {
            cycle.push_back(at);
            const std::vector<HalfEdge>& onward = mFrom[mPlane.endOf(at)];
            const auto next = std::find_if(onward.begin(), onward.end(),
                                           [&](const HalfEdge& h) { return !mUsed.count(h.key()); });
            if (next == onward.end()) break;
            at = *next;
        }
        if (cycle.empty()) return;
        const bool closed = mPlane.endOf(cycle.back()) == mPlane.startOf(cycle.front());
        if (closed || !mClosed) result.push_back({loopOf(mPlane, cycle), closed});
    }

    const std::vector<CurveForm>& mParts;
    BoxTree mPartTree;
    const std::vector<CurvePtr>& mRaw;
    std::vector<CurvePtr> mOther; ///< the curves on the other side
    double mSigned, mDistance;
    bool mClosed;
    int mKeepable = 0;
    Arrangement mPlane;
    std::vector<HalfEdge> mKept;
    std::unordered_map<int, int> mInto;                   ///< kept edges that end at a vertex
    std::unordered_map<int, std::vector<HalfEdge>> mFrom; ///< and those that start there
    std::unordered_set<std::uint64_t> mUsed;
};

bool isConnected(const std::vector<CurveForm>& parts, double tol)
{
    for (std::size_t i = 1; i < parts.size(); ++i)
        if (endOf(parts[i - 1]).distanceTo(startOf(parts[i])) > tol) return false;
    return true;
}
} // namespace

OffsetResult offsetChain(const std::vector<const AcGeCurve2d*>& chain, double distance, double tol)
{
    OffsetResult result;
    result.status = OffsetStatus::kBadCurve;
    if (chain.empty() || distance == 0 || !std::isfinite(distance)) return result;
    std::vector<CurveForm> parts;
    for (const AcGeCurve2d* curve : chain)
        if (!curve || !addSmooth(curve->form(), tol, parts)) return result;
    Box2 all;
    for (const CurveForm& part : parts)
        all.add(flatBoxOf(part));
    const double near = safeTolerance(tol, all.grown(std::fabs(distance)));
    result.status = OffsetStatus::kNotConnected;
    if (!isConnected(parts, near)) return result;
    const bool closed = endOf(parts.back()).distanceTo(startOf(parts.front())) <= near;
    const std::vector<CurvePtr> raw = RawOffset(parts, distance, closed).curves();
    result.chains = Trimmed(parts, raw, distance, closed, near).chains();
    result.status = result.chains.empty() ? OffsetStatus::kNothing : OffsetStatus::kOk;
    return result;
}
} // namespace kernel
