#include "CurveMeet.h"

#include "Contact.h"
#include "CurveDistance.h"
#include "Span.h"

#include <algorithm>

namespace gecore
{
namespace
{
// Curves that run within the tolerance of each other without sharing a stretch would be halved without end.
constexpr int kPairBudget = 100000;
constexpr int kRefineBudget = 2000;

double undirectedAngle(const AcGeVector3d& a, const AcGeVector3d& b)
{
    return std::atan2(a.crossProduct(b).length(), std::fabs(a.dotProduct(b)));
}

/// Halves pairs of spans until each pair is apart, crosses once at most, or is straight within the tolerance.
class MeetSearch
{
public:
    MeetSearch(const CurveForm& first, const CurveForm& second, double tol)
        : mFirst(first), mSecond(second), mTol(tol), mContact(first, second, tol)
    {
    }

    Meetings run()
    {
        const std::vector<Span> as = spansOf(mFirst), bs = spansOf(mSecond);
        for (const Span& a : as)
            for (const Span& b : bs)
                if (!apart(a, b)) visitTop(a, b);
        for (const double s : {mFirst.lo, mFirst.hi}) {
            const Foot foot = footNear(mSecond, bs, pointAt(mFirst, s));
            if (foot.distance <= mTol) addPoint(s, foot.t);
        }
        for (const double t : {mSecond.lo, mSecond.hi}) {
            const Foot foot = footNear(mFirst, as, pointAt(mSecond, t));
            if (foot.distance <= mTol) addPoint(foot.t, t);
        }
        tidy(mFirst, mSecond, mTol, mFound);
        return mFound;
    }

private:
    bool apart(const Span& a, const Span& b) const
    {
        return !(segmentDistance(a.a, a.b, b.a, b.b) <= a.sag + b.sag + mTol);
    }

    /// A shared stretch is put aside first: what is left of the first span is searched alone.
    void visitTop(const Span& a, const Span& b)
    {
        Overlap common;
        if (!shareStretch(a, b, common)) return visit(a, b);
        mFound.overlaps.add(common);
        if (common.s0 > a.lo) visit(a.between(a.lo, common.s0), b);
        if (common.s1 < a.hi) visit(a.between(common.s1, a.hi), b);
    }

    // Both spans are analytic, so a shared stretch ends only where one of them ends.
    bool shareStretch(const Span& a, const Span& b, Overlap& common) const
    {
        const CurveForm fa = trimmed(mFirst, a.lo, a.hi), fb = trimmed(mSecond, b.lo, b.hi);
        Overlap range{kInfinity, -kInfinity, 0, 0};
        const auto widen = [&](double s, double t) {
            if (s < range.s0) range.s0 = s, range.t0 = t;
            if (s > range.s1) range.s1 = s, range.t1 = t;
        };
        for (const double s : {a.lo, a.hi}) {
            const Foot foot = footWithin(fb, b, pointAt(fa, s));
            if (foot.distance <= mTol) widen(s, foot.t);
        }
        for (const double t : {b.lo, b.hi}) {
            const Foot foot = footWithin(fa, a, pointAt(fb, t));
            if (foot.distance <= mTol) widen(foot.t, t);
        }
        if (!(range.s1 > range.s0) || range.t0 == range.t1) return false;
        if (pointAt(fa, range.s0).distanceTo(pointAt(fa, range.s1)) <= 4 * mTol) return false;
        constexpr int checks = 24;
        for (int i = 1; i < checks; ++i) {
            const double s = range.s0 + (range.s1 - range.s0) * i / checks;
            if (!(footWithin(fb, b, pointAt(fa, s)).distance <= mTol)) return false;
        }
        common = range;
        return true;
    }

    Foot footWithin(const CurveForm& form, const Span& span, const AcGePoint3d& p) const
    {
        if (!mayTouch(span, p)) return {};
        if (form.kind == FormKind::kLine || isCircle(form)) return closestTo(form, p);
        Foot best;
        for (int i = 0; i < 4; ++i) {
            const double lo = span.lo + (span.hi - span.lo) * i / 4,
                         hi = i == 3 ? span.hi : span.lo + (span.hi - span.lo) * (i + 1) / 4;
            const Foot foot = closestWithin(form, p, lo, hi);
            if (foot.distance < best.distance) best = foot;
        }
        return best;
    }

    void visit(const Span& a, const Span& b)
    {
        if (apart(a, b) || ++mVisited > kPairBudget) return;
        const double angle = undirectedAngle(a.b - a.a, b.b - b.a);
        const bool crossesOnce = a.cone + b.cone < kPi / 4 && angle > a.cone + b.cone + 1e-9;
        const bool straight = a.sag <= mTol / 2 && b.sag <= mTol / 2;
        const bool splitFirst =
            a.canSplit() && (a.sag > b.sag || (a.sag == b.sag && a.chord() >= b.chord()) || !b.canSplit());
        if (crossesOnce || straight || (!splitFirst && !b.canSplit())) return refine(a, b);
        Span left, right;
        (splitFirst ? a : b).split(left, right);
        visit(splitFirst ? left : a, splitFirst ? b : left);
        visit(splitFirst ? right : a, splitFirst ? b : right);
    }

    void refine(const Span& a, const Span& b)
    {
        if (++mRefined > kRefineBudget) return;
        Meeting found{a.middle(), b.middle(), {}, false};
        if (mContact.refine({a.lo, a.hi}, {b.lo, b.hi}, found)) mFound.points.add(found);
    }

    bool mayTouch(const Span& span, const AcGePoint3d& p) const
    {
        return distanceToSegment(p, span.a, span.b) <= span.sag + mTol;
    }

    /// The foot of a point, or none when the spans are out of its reach.
    Foot footNear(const CurveForm& form, const std::vector<Span>& spans, const AcGePoint3d& p) const
    {
        const bool reached =
            std::any_of(spans.begin(), spans.end(), [&](const Span& s) { return mayTouch(s, p); });
        return reached ? closestTo(form, p) : Foot();
    }

    void addPoint(double s, double t)
    {
        mFound.points.add({s, t, pointAt(mFirst, s), mContact.isTangential(s, t)});
    }

    const CurveForm &mFirst, &mSecond;
    const double mTol;
    const Contact mContact;
    Meetings mFound;
    int mVisited = 0, mRefined = 0;
};
} // namespace

Meetings searchMeetings(const CurveForm& first, const CurveForm& second, double tol)
{
    if (!first.isBounded() || !second.isBounded()) return {};
    return MeetSearch(first, second, tol).run();
}
} // namespace gecore
