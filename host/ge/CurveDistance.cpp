#include "CurveDistance.h"

#include "CurveMeasure.h"
#include "Span.h"

#include <algorithm>
#include <memory>

namespace gecore
{
namespace
{
constexpr int kNewtonSteps = 60;
constexpr int kSpanBudget = 20000;
constexpr int kPairBudget = 6000;
/// Differences below this share of the coordinates' size are rounding.
constexpr double kNoise = 1e-14;

Foot footAt(const CurveForm& form, double t, const AcGePoint3d& p)
{
    Foot foot;
    foot.t = t;
    foot.point = pointAt(form, t);
    foot.distance = foot.point.distanceTo(p);
    return foot;
}

const Foot& nearer(const Foot& a, const Foot& b)
{
    return b.distance < a.distance ? b : a;
}

Foot closestOnLine(const CurveForm& form, const AcGePoint3d& p)
{
    const double size = form.u.lengthSqrd();
    const double t = size > 0 ? (p - form.origin).dotProduct(form.u) / size : 0;
    return footAt(form, form.clamped(t), p);
}

Foot closestOnCircle(const CurveForm& form, const AcGePoint3d& p)
{
    const AcGeVector3d to = p - form.origin;
    const double x = to.dotProduct(form.u), y = to.dotProduct(form.v);
    double angle = x == 0 && y == 0 ? form.lo : std::atan2(y, x);
    if (fitTurn(form, angle, 0)) return footAt(form, angle, p);
    return nearer(footAt(form, form.lo, p), footAt(form, form.hi, p));
}

double sizeOf(const AcGePoint3d& p)
{
    return std::max({std::fabs(p.x), std::fabs(p.y), std::fabs(p.z)});
}

/// Searches spans for the closest point; keeps the best found so far.
class FootSearch
{
public:
    FootSearch(const CurveForm& form, const AcGePoint3d& p) : mForm(form), mPoint(p) {}

    Foot run()
    {
        const std::vector<Span> spans = spansOf(mForm);
        for (const Span& span : spans) {
            mScale = std::max({mScale, sizeOf(span.a), sizeOf(span.b), sizeOf(mPoint)});
            mBest = nearer(mBest, footAt(mForm, span.lo, mPoint));
            mBest = nearer(mBest, footAt(mForm, span.hi, mPoint));
        }
        for (const Span& span : spans)
            visit(span);
        return mBest;
    }

private:
    double leastOf(const Span& span) const { return distanceToSegment(mPoint, span.a, span.b) - span.sag; }

    void visit(const Span& span)
    {
        if (!(leastOf(span) < mBest.distance - 100 * kNoise * mScale) || ++mVisited > kSpanBudget) return;
        const Foot middle = footAt(mForm, span.middle(), mPoint);
        mBest = nearer(mBest, middle);
        if (middle.distance <= mBest.distance + span.sag)
            mBest = nearer(mBest, closestWithin(mForm, mPoint, span.lo, span.hi));
        if (!span.canSplit()) return;
        Span left, right;
        span.split(left, right);
        const bool leftFirst = leastOf(left) <= leastOf(right);
        visit(leftFirst ? left : right);
        visit(leftFirst ? right : left);
    }

    const CurveForm& mForm;
    const AcGePoint3d mPoint;
    Foot mBest;
    double mScale = 0;
    int mVisited = 0;
};

template <class F>
Foot closestOnChain(const CurveForm& form, const F& closest)
{
    Foot best;
    for (const ChainLink& link : *form.chain) {
        Foot foot = closest(link.form);
        foot.t = link.outer(foot.t);
        best = nearer(best, foot);
    }
    return best;
}

FootPair pairAt(const CurveForm& first, double s, const CurveForm& second, double t)
{
    FootPair pair;
    pair.s = s;
    pair.t = t;
    pair.onFirst = pointAt(first, s);
    pair.onSecond = pointAt(second, t);
    pair.distance = pair.onFirst.distanceTo(pair.onSecond);
    return pair;
}

const FootPair& nearer(const FootPair& a, const FootPair& b)
{
    return b.distance < a.distance ? b : a;
}

FootPair swapped(const FootPair& pair)
{
    return {pair.t, pair.s, pair.onSecond, pair.onFirst, pair.distance};
}

FootPair closestLines(const CurveForm& first, const CurveForm& second)
{
    FootPair best;
    const AcGeVector3d r = first.origin - second.origin;
    const double a = first.u.lengthSqrd(), e = second.u.lengthSqrd(), b = first.u.dotProduct(second.u);
    const double det = a * e - b * b;
    double s = det > 1e-28 * a * e ? (b * second.u.dotProduct(r) - first.u.dotProduct(r) * e) / det : 0;
    if (!std::isfinite(s)) s = 0;
    // The foot of a clamped point may be clamped itself, so the first point is put right once more.
    const double onSecond = closestOnLine(second, pointAt(first, first.clamped(s))).t;
    const double onFirst = closestOnLine(first, pointAt(second, onSecond)).t;
    best =
        nearer(pairAt(first, first.clamped(s), second, onSecond), pairAt(first, onFirst, second, onSecond));
    for (const double end : {first.lo, first.hi})
        if (std::isfinite(end))
            best = nearer(best, pairAt(first, end, second, closestOnLine(second, pointAt(first, end)).t));
    for (const double end : {second.lo, second.hi})
        if (std::isfinite(end))
            best = nearer(best, pairAt(first, closestOnLine(first, pointAt(second, end)).t, second, end));
    return best;
}

/// Searches pairs of spans for the least distance, the most promising pair first. Curves that keep their
/// distance over a stretch (concentric circles) end by the budget, with the least distance found and all
/// others within a hair of it.
class PairSearch
{
public:
    PairSearch(const CurveForm& first, const CurveForm& second) : mFirst(first), mSecond(second) {}

    FootPair run()
    {
        const std::vector<Span> as = spansOf(mFirst), bs = spansOf(mSecond);
        for (const Span& a : as) {
            mScale = std::max({mScale, sizeOf(a.a), sizeOf(a.b)});
            tryFrom(a.lo);
            tryFrom(a.hi);
        }
        for (const Span& b : bs) {
            mScale = std::max({mScale, sizeOf(b.a), sizeOf(b.b)});
            tryTowards(b.lo);
            tryTowards(b.hi);
        }
        for (const Span& a : as)
            for (const Span& b : bs)
                push(a, b);
        for (int visited = 0; !mQueue.empty() && visited < kPairBudget; ++visited) {
            std::pop_heap(mQueue.begin(), mQueue.end());
            const Node node = std::move(mQueue.back());
            mQueue.pop_back();
            if (!(node.least < mBest.distance - 1e-11 * mScale)) break;
            visit(*node.a, *node.b);
        }
        return mBest;
    }

private:
    void tryFrom(double s)
    {
        const Foot foot = closestTo(mSecond, pointAt(mFirst, s));
        mBest = nearer(mBest, pairAt(mFirst, s, mSecond, foot.t));
    }
    void tryTowards(double t)
    {
        const Foot foot = closestTo(mFirst, pointAt(mSecond, t));
        mBest = nearer(mBest, pairAt(mFirst, foot.t, mSecond, t));
    }

    /// Goes to and fro between the spans, faster by a Newton step on both parameters where it helps.
    void improve(const Span& a, const Span& b)
    {
        double s = a.middle(), t = b.middle();
        for (int i = 0; i < kNewtonSteps; ++i) {
            const double s0 = s, t0 = t;
            newton(a, b, s, t);
            if (i % 4 == 3) {
                t = closestWithin(mSecond, pointAt(mFirst, s), b.lo, b.hi).t;
                s = closestWithin(mFirst, pointAt(mSecond, t), a.lo, a.hi).t;
            }
            if (std::fabs(s - s0) <= 1e-15 * (1 + std::fabs(s)) &&
                std::fabs(t - t0) <= 1e-15 * (1 + std::fabs(t)) && i % 4 == 3)
                break;
        }
        mBest = nearer(mBest, pairAt(mFirst, s, mSecond, t));
    }

    void newton(const Span& a, const Span& b, double& s, double& t) const
    {
        AcGeVector3d p[3], q[3];
        derivatives(mFirst, s, 2, p);
        derivatives(mSecond, t, 2, q);
        const AcGeVector3d r = p[0] - q[0];
        const double fs = r.dotProduct(p[1]), ft = -r.dotProduct(q[1]);
        const double ss = p[1].lengthSqrd() + r.dotProduct(p[2]), tt = q[1].lengthSqrd() - r.dotProduct(q[2]);
        const double st = -p[1].dotProduct(q[1]), det = ss * tt - st * st;
        if (!(ss > 0 && tt > 0 && det > 1e-12 * ss * tt)) return;
        s = std::clamp(s - (fs * tt - ft * st) / det, a.lo, a.hi);
        t = std::clamp(t - (ft * ss - fs * st) / det, b.lo, b.hi);
    }

    struct Node {
        double least;
        std::unique_ptr<Span> a, b;
        bool operator<(const Node& other) const { return least > other.least; } // the heap's top is the least
    };

    void push(const Span& a, const Span& b)
    {
        const double least = segmentDistance(a.a, a.b, b.a, b.b) - a.sag - b.sag;
        if (!(least < mBest.distance - 1e-11 * mScale)) return;
        mQueue.push_back({least, std::make_unique<Span>(a), std::make_unique<Span>(b)});
        std::push_heap(mQueue.begin(), mQueue.end());
    }

    void visit(const Span& a, const Span& b)
    {
        const double sags = a.sag + b.sag;
        const FootPair middle = pairAt(mFirst, a.middle(), mSecond, b.middle());
        if (sags < 0.1 * (a.chord() + b.chord()) && middle.distance < mBest.distance + sags) improve(a, b);
        const bool first = a.canSplit() && (a.sag + a.chord() >= b.sag + b.chord() || !b.canSplit());
        if (!first && !b.canSplit()) return;
        Span left, right;
        (first ? a : b).split(left, right);
        push(first ? left : a, first ? b : left);
        push(first ? right : a, first ? b : right);
    }

    const CurveForm &mFirst, &mSecond;
    FootPair mBest;
    double mScale = 0;
    std::vector<Node> mQueue;
};
} // namespace

bool fitTurn(const CurveForm& form, double& angle, double slack)
{
    double t = angle + kTwoPi * std::ceil((form.lo - slack - angle) / kTwoPi);
    if (!(t <= form.hi + slack)) return false;
    angle = form.clamped(t);
    return true;
}

Foot closestNear(const CurveForm& form, const AcGePoint3d& p, double guess, double lo, double hi)
{
    double t = std::clamp(guess, lo, hi), a = lo, b = hi;
    for (int i = 0; i < kNewtonSteps; ++i) {
        AcGeVector3d d[3];
        derivatives(form, t, 2, d);
        const AcGeVector3d r = d[0] - p.asVector();
        const double slope = r.dotProduct(d[1]), bend = d[1].lengthSqrd() + r.dotProduct(d[2]);
        if (slope == 0 || !std::isfinite(slope)) break;
        (slope > 0 ? b : a) = t;
        const double step = t - slope / bend;
        const double next = bend > 0 && step >= a && step <= b ? step : a + (b - a) / 2;
        if (!(std::fabs(next - t) > 1e-16 * std::fabs(t))) break;
        t = next;
    }
    return nearer(footAt(form, t, p), nearer(footAt(form, lo, p), footAt(form, hi, p)));
}

Foot closestWithin(const CurveForm& form, const AcGePoint3d& p, double lo, double hi)
{
    const auto slopeAt = [&](double t) {
        AcGeVector3d d[2];
        derivatives(form, t, 1, d);
        return (d[0] - p.asVector()).dotProduct(d[1]);
    };
    if (slopeAt(lo) >= 0 || slopeAt(hi) <= 0) return nearer(footAt(form, lo, p), footAt(form, hi, p));
    return closestNear(form, p, lo + (hi - lo) / 2, lo, hi);
}

Foot closestTo(const CurveForm& form, const AcGePoint3d& p)
{
    if (form.kind == FormKind::kChain)
        return closestOnChain(form, [&](const CurveForm& f) { return closestTo(f, p); });
    if (form.kind == FormKind::kLine) return closestOnLine(form, p);
    if (isCircle(form)) return closestOnCircle(form, p);
    if (!isFinite(form)) return {};
    return FootSearch(form, p).run();
}

CurveForm boundedTowards(const CurveForm& line, const CurveForm& other)
{
    if (line.isBounded() || line.kind != FormKind::kLine) return line;
    const Box box = boxOf(other);
    const AcGePoint3d middle = box.min + (box.max - box.min) / 2;
    const double pace = line.u.length();
    const double t = closestOnLine(line, middle).t, reach = pace > 0 ? box.diagonal() / pace : 0;
    if (!std::isfinite(reach)) return line;
    return trimmed(line, line.clamped(t - reach), line.clamped(t + reach));
}

FootPair closestBetween(const CurveForm& first, const CurveForm& second)
{
    FootPair best;
    if (first.kind == FormKind::kChain) {
        for (const ChainLink& link : *first.chain) {
            FootPair pair = closestBetween(link.form, second);
            pair.s = link.outer(pair.s);
            best = nearer(best, pair);
        }
        return best;
    }
    if (second.kind == FormKind::kChain) return swapped(closestBetween(second, first));
    if (!isFinite(first) || !isFinite(second)) return best;
    if (first.kind == FormKind::kLine && second.kind == FormKind::kLine) return closestLines(first, second);
    const CurveForm a = boundedTowards(first, second), b = boundedTowards(second, first);
    return PairSearch(a, b).run();
}
} // namespace gecore
