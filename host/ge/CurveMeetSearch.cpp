#include "CurveMeet.h"

#include "CurveDistance.h"
#include "Span.h"

#include <algorithm>

namespace gecore
{
namespace
{
constexpr double kTangentSine = 1e-6;
// Curves that run within the tolerance of each other without sharing a stretch would be halved without end.
constexpr int kPairBudget = 100000;
constexpr int kRefineBudget = 2000;
constexpr int kSteps = 40;

double undirectedAngle(const AcGeVector3d& a, const AcGeVector3d& b)
{
    return std::atan2(a.crossProduct(b).length(), std::fabs(a.dotProduct(b)));
}

/// Halves pairs of spans until each pair is apart, crosses once at most, or is straight within the tolerance.
class MeetSearch
{
public:
    MeetSearch(const CurveForm& first, const CurveForm& second, double tol)
        : mFirst(first), mSecond(second), mTol(tol)
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
        double s = a.middle(), t = b.middle();
        approach(a.lo, a.hi, b.lo, b.hi, s, t);
        bool tangential = gap(s, t) <= mTol && sine(s, t) <= kTangentSine;
        if (sine(s, t) <= 1e-3) tangential = sharpen(s, t) || tangential;
        if (gap(s, t) <= mTol) mFound.points.add({s, t, pointAt(mFirst, s), tangential});
    }

    double gap(double s, double t) const { return pointAt(mFirst, s).distanceTo(pointAt(mSecond, t)); }

    double sine(double s, double t) const
    {
        AcGeVector3d p[2], q[2];
        derivatives(mFirst, s, 1, p);
        derivatives(mSecond, t, 1, q);
        const double size = p[1].length() * q[1].length();
        return size > 0 ? p[1].crossProduct(q[1]).length() / size : 1;
    }

    /// Gauss-Newton on A(s) - B(t), kept within bounds, then feet to and fro when that does not close the
    /// gap.
    void approach(double sLo, double sHi, double tLo, double tHi, double& s, double& t) const
    {
        for (int i = 0; i < kSteps; ++i) {
            AcGeVector3d p[2], q[2];
            derivatives(mFirst, s, 1, p);
            derivatives(mSecond, t, 1, q);
            const AcGeVector3d r = q[0] - p[0];
            const double ss = p[1].lengthSqrd(), tt = q[1].lengthSqrd(), st = p[1].dotProduct(q[1]);
            const double det = ss * tt - st * st, fs = r.dotProduct(p[1]), ft = r.dotProduct(q[1]);
            if (!(det > 1e-24 * ss * tt)) break;
            const double s1 = std::clamp(s + (fs * tt - ft * st) / det, sLo, sHi);
            const double t1 = std::clamp(t + (fs * st - ft * ss) / det, tLo, tHi);
            const bool still =
                std::fabs(s1 - s) <= 1e-16 * std::fabs(s) && std::fabs(t1 - t) <= 1e-16 * std::fabs(t);
            s = s1;
            t = t1;
            if (still || (s1 == s && t1 == t && r.length() == 0)) break;
        }
        for (int i = 0; i < kSteps && !(gap(s, t) <= mTol / 16); ++i) {
            const double before = gap(s, t);
            t = closestWithin(mSecond, pointAt(mFirst, s), tLo, tHi).t;
            s = closestWithin(mFirst, pointAt(mSecond, t), sLo, sHi).t;
            if (!(gap(s, t) < before)) break;
        }
    }

    /// Moves a contact to where the directions are parallel, the middle of a touch: least squares over the
    /// gap and the sine of the angle, by Gauss-Newton with differences. False, and nothing changed, when the
    /// curves are apart there: then they cross at a small angle.
    bool sharpen(double& s, double& t) const
    {
        double a = s, b = t;
        for (int i = 0; i < kSteps; ++i) {
            AcGeVector3d p[3], q[3];
            derivatives(mFirst, a, 2, p);
            derivatives(mSecond, b, 2, q);
            const double pp = p[1].length(), qq = q[1].length();
            if (!(pp > 0 && qq > 0)) return false;
            const AcGeVector3d u = p[1] / pp, v = q[1] / qq, turn = u.crossProduct(v), r = p[0] - q[0];
            const AcGeVector3d du = (p[2] - u * u.dotProduct(p[2])) / pp,
                               dv = (q[2] - v * v.dotProduct(q[2])) / qq;
            const AcGeVector3d ts = du.crossProduct(v), tt = u.crossProduct(dv);
            // The foot condition (A - B) . v = 0 and parallel directions, projected on the change of
            // direction.
            const AcGeVector3d axis = ts.lengthSqrd() > tt.lengthSqrd() ? ts : tt;
            const double f = r.dotProduct(v), g = turn.dotProduct(axis);
            const double fs = p[1].dotProduct(v), ft = -qq + r.dotProduct(dv), gs = ts.dotProduct(axis),
                         gt = tt.dotProduct(axis);
            const double det = fs * gt - ft * gs;
            if (det == 0 || !std::isfinite(det)) return false;
            const double ds = (f * gt - ft * g) / det, dt = (fs * g - f * gs) / det;
            a = mFirst.clamped(a - ds);
            b = mSecond.clamped(b - dt);
            if (std::fabs(ds) <= 1e-15 * (1 + std::fabs(a)) && std::fabs(dt) <= 1e-15 * (1 + std::fabs(b)))
                break;
        }
        if (!(gap(a, b) <= mTol) || !(sine(a, b) <= kTangentSine)) return false;
        if (pointAt(mFirst, a).distanceTo(pointAt(mFirst, s)) >
            1e-2 * (1 + pointAt(mFirst, s).asVector().length()))
            return false;
        s = a;
        t = b;
        return true;
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
        mFound.points.add({s, t, pointAt(mFirst, s), sine(s, t) <= kTangentSine});
    }

    const CurveForm &mFirst, &mSecond;
    const double mTol;
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
