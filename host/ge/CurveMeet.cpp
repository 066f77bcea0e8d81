#include "CurveMeet.h"

#include "CurveDistance.h"
#include "CurveMeasure.h"

#include <algorithm>

namespace gecore
{
namespace
{
double withRounding(const CurveForm& first, const CurveForm& second, double tol)
{
    return std::max(tol, roundingOf(first) + roundingOf(second));
}

bool isBareAnalytic(const CurveForm& form)
{
    return form.kind == FormKind::kLine || isCircle(form);
}

bool isPlain(const CurveForm& form)
{
    return form.kind == FormKind::kLine || form.kind == FormKind::kConic;
}

Meetings swapped(const Meetings& found, const CurveForm& first, double tol, const CurveForm& second)
{
    Meetings result;
    for (std::size_t i = 0; i < found.points.size(); ++i) {
        const Meeting& m = found.points[i];
        result.points.add({m.t, m.s, pointAt(first, m.t), m.tangential});
    }
    for (std::size_t i = 0; i < found.overlaps.size(); ++i) {
        const Overlap& o = found.overlaps[i];
        const bool against = o.t0 > o.t1;
        result.overlaps.add(against ? Overlap{o.t1, o.t0, o.s1, o.s0} : Overlap{o.t0, o.t1, o.s0, o.s1});
    }
    tidy(first, second, tol, result);
    return result;
}

bool boxesApart(const Box& a, const Box& b, double tol)
{
    return a.min.x > b.max.x + tol || b.min.x > a.max.x + tol || a.min.y > b.max.y + tol ||
           b.min.y > a.max.y + tol || a.min.z > b.max.z + tol || b.min.z > a.max.z + tol;
}

Meetings meetChain(const CurveForm& chain, const CurveForm& other, double tol)
{
    Meetings all;
    const Box reach = boxOf(other);
    for (const ChainLink& link : *chain.chain) {
        if (boxesApart(boxOf(link.form), reach, tol)) continue;
        const Meetings found = meet(link.form, other, tol);
        for (std::size_t i = 0; i < found.points.size(); ++i) {
            Meeting m = found.points[i];
            m.s = link.outer(m.s);
            all.points.add(m);
        }
        for (std::size_t i = 0; i < found.overlaps.size(); ++i) {
            const Overlap& o = found.overlaps[i];
            all.overlaps.add({link.outer(o.s0), link.outer(o.s1), o.t0, o.t1});
        }
    }
    tidy(chain, other, tol, all);
    return all;
}

/// A parameter, of a conic moved by full turns to the one next to `near`.
double besides(const CurveForm& form, double near, double t)
{
    return form.kind == FormKind::kConic ? t + kTwoPi * std::round((near - t) / kTwoPi) : t;
}

/// True when the curves stay together between two meetings that are neighbours, over the seam of a conic too.
bool sameContact(const CurveForm& first, const CurveForm& second, const Meeting& a, const Meeting& b,
                 double tol)
{
    // The same place, found twice.
    if (a.point.distanceTo(b.point) <= tol) return true;
    const double near = 4 * tol;
    if (a.point.distanceTo(b.point) > 1e-2 * (1 + a.point.asVector().length())) return false;
    const double s = besides(first, a.s, b.s), t = besides(second, a.t, b.t);
    for (int i = 1; i <= 3; ++i) {
        const AcGePoint3d p = pointAt(first, a.s + (s - a.s) * i / 4);
        const AcGePoint3d q = pointAt(second, a.t + (t - a.t) * i / 4);
        if (!(p.distanceTo(a.point) <= a.point.distanceTo(b.point) + near)) return false;
        if (!(p.distanceTo(q) <= 1.01 * tol + 1e-15 * p.asVector().length())) return false;
    }
    return true;
}

/// The end of a closed curve is its start.
void joinSeam(const CurveForm& form, double tol, double& t)
{
    if (t > form.lo && pointAt(form, t).distanceTo(endOf(form)) <= tol && isClosed(form, tol) &&
        form.hi - t < 1e-3 * (form.hi - form.lo))
        t = form.lo;
}

bool isInside(const Overlap& o, const CurveForm& first, const Meeting& m, double tol)
{
    if (m.s >= o.s0 && m.s <= o.s1) return true;
    const double near = 4 * tol;
    return m.point.distanceTo(pointAt(first, o.s0)) <= near ||
           m.point.distanceTo(pointAt(first, o.s1)) <= near;
}

void tidyOverlaps(const CurveForm& first, const CurveForm& second, double tol, Meetings& meetings)
{
    std::vector<Overlap> sorted, merged;
    for (std::size_t i = 0; i < meetings.overlaps.size(); ++i)
        sorted.push_back(meetings.overlaps[i]);
    std::sort(sorted.begin(), sorted.end(), [](const Overlap& a, const Overlap& b) { return a.s0 < b.s0; });
    const auto touch = [&](const CurveForm& f, double a, double b) {
        return std::fabs(a - b) <= 1e-9 * (1 + std::fabs(a)) ||
               lengthBetween(f, std::min(a, b), std::max(a, b)) <= 4 * tol;
    };
    for (const Overlap& o : sorted) {
        const bool goesOn = !merged.empty() && touch(first, merged.back().s1, o.s0) &&
                            touch(second, merged.back().t1, o.t0) &&
                            (merged.back().t0 < merged.back().t1) == (o.t0 < o.t1);
        if (goesOn) {
            merged.back().s1 = o.s1;
            merged.back().t1 = o.t1;
        } else {
            merged.push_back(o);
        }
    }
    meetings.overlaps.clear();
    for (const Overlap& o : merged)
        meetings.overlaps.add(o);
}
} // namespace

double roundingOf(const CurveForm& form)
{
    double most = 0;
    if (form.kind == FormKind::kChain) {
        for (const ChainLink& link : *form.chain)
            most = std::max(most, roundingOf(link.form));
    } else if (form.kind == FormKind::kConic) {
        const double size = form.origin.asVector().length() + std::max(form.u.length(), form.v.length());
        most = 4 * std::numeric_limits<double>::epsilon() * size;
    }
    return most;
}

void tidy(const CurveForm& first, const CurveForm& second, double tol, Meetings& meetings)
{
    tol = withRounding(first, second, tol);
    if (meetings.overlaps.size() > 1) tidyOverlaps(first, second, tol, meetings);
    auto& points = meetings.points;
    for (std::size_t i = 0; i < points.size(); ++i) {
        joinSeam(first, tol, points[i].s);
        joinSeam(second, tol, points[i].t);
    }
    for (std::size_t i = 1; i < points.size(); ++i) // insertion sort: short lists, no allocation
        for (std::size_t j = i; j > 0 && points[j].s < points[j - 1].s; --j)
            std::swap(points[j], points[j - 1]);
    Meetings kept;
    for (std::size_t i = 0; i < points.size(); ++i) {
        bool fresh = true;
        for (std::size_t k = 0; k < meetings.overlaps.size(); ++k)
            fresh = fresh && !isInside(meetings.overlaps[k], first, points[i], tol);
        for (std::size_t k = kept.points.size(); fresh && k-- > 0 && kept.points.size() - k <= 4;) {
            fresh = !sameContact(first, second, kept.points[k], points[i], tol);
            if (!fresh) kept.points[k].tangential = kept.points[k].tangential || points[i].tangential;
        }
        if (fresh) kept.points.add(points[i]);
    }
    points = kept.points;
}

Meetings meet(const CurveForm& first, const CurveForm& second, double tol)
{
    if (first.kind == FormKind::kChain) return meetChain(first, second, tol);
    if (second.kind == FormKind::kChain) return swapped(meetChain(second, first, tol), first, tol, second);
    if (!isFinite(first) || !isFinite(second)) return {};
    tol = withRounding(first, second, tol);
    if (isBareAnalytic(first) && isBareAnalytic(second)) {
        const bool line = first.kind == FormKind::kLine, otherLine = second.kind == FormKind::kLine;
        if (line && otherLine) return meetLines(first, second, tol);
        if (line) return meetLineCircle(first, second, tol);
        if (otherLine) return swapped(meetLineCircle(second, first, tol), first, tol, second);
        return meetCircles(first, second, tol);
    }
    Meetings found;
    if (isPlain(first) && isPlain(second) && meetConics(first, second, tol, found)) return found;
    return searchMeetings(boundedTowards(first, second), boundedTowards(second, first), tol);
}
} // namespace gecore
