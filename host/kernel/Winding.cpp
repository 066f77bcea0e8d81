#include "Winding.h"

#include "BoxTree.h"
#include "CurveDistance.h"
#include "Span.h"

#include <cmath>

namespace kernel
{
using namespace gecore;

namespace
{
/// No further than rounding lets chords and curves be told apart.
bool isAsChord(const Span& span)
{
    const double size = std::fabs(span.a.x) + std::fabs(span.a.y);
    return span.sag <= std::numeric_limits<double>::epsilon() * size || !span.canSplit();
}

/// A span lies within its sag of its chord: a point outside of that sees it under the angle of the chord. For
/// a point on the curve the halves that hold it would have no end.
double turnOfSpan(const Span& span, const AcGePoint3d& p)
{
    if (distanceToSegment(p, span.a, span.b) > span.sag || isAsChord(span))
        return turnBetween(span.a, span.b, {p.x, p.y});
    Span left, right;
    span.split(left, right);
    return turnOfSpan(left, p) + turnOfSpan(right, p);
}
} // namespace

double turnBetween(const AcGePoint3d& from, const AcGePoint3d& to, const AcGePoint2d& p)
{
    const double ax = from.x - p.x, ay = from.y - p.y, bx = to.x - p.x, by = to.y - p.y;
    return std::atan2(ax * by - ay * bx, ax * bx + ay * by);
}

double turnAround(const Run& run, const AcGePoint2d& place)
{
    const AcGePoint3d p(place.x, place.y, 0);
    double turn = 0;
    if (run.form.kind == FormKind::kLine) {
        turn = turnBetween(startOf(run.form), endOf(run.form), place);
    } else {
        for (const Span& span : spansOf(run.form))
            turn += turnOfSpan(span, p);
    }
    return run.forward ? turn : -turn;
}

int windingNumber(const std::vector<Run>& runs, const AcGePoint2d& p)
{
    double turn = 0;
    for (const Run& run : runs)
        turn += turnAround(run, p);
    return static_cast<int>(std::lround(turn / kTwoPi));
}

bool isNear(const CurveForm& form, const AcGePoint2d& p, double tol)
{
    return flatBoxOf(form).grown(tol).contains(p) && closestTo(form, {p.x, p.y, 0}).distance <= tol;
}

Side sideOf(const std::vector<Run>& runs, const AcGePoint2d& p, double tol)
{
    for (const Run& run : runs)
        if (isNear(run.form, p, tol)) return Side::kOn;
    return windingNumber(runs, p) != 0 ? Side::kInside : Side::kOutside;
}
} // namespace kernel
