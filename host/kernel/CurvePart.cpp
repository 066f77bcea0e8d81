#include "CurvePart.h"

#include "CurveFactory.h"

#include <algorithm>
#include <cmath>

namespace kernel
{
using namespace gecore;

namespace
{
double nearEnd(const CyclePart& part)
{
    return part.run.forward ? part.run.form.hi : part.run.form.lo;
}

double nearStart(const CyclePart& part)
{
    return part.run.forward ? part.run.form.lo : part.run.form.hi;
}

/// How far the parameters of b must move so that it goes on where a ends: 0, or a full turn over the start of
/// a closed conic. NaN when it does not go on. One source, one underlying curve (a spline is cut into several
/// strands), one direction.
double shiftToJoin(const CyclePart& a, const CyclePart& b)
{
    const CurveForm &f = a.run.form, &g = b.run.form;
    constexpr double kNever = std::numeric_limits<double>::quiet_NaN();
    if (a.strand->source != b.strand->source || a.run.forward != b.run.forward || f.kind != g.kind)
        return kNever;
    const bool oneCurve = a.strand == b.strand || (f.kind == FormKind::kSpline && f.spline == g.spline);
    if (!oneCurve) return kNever;
    const double shift = nearEnd(a) - nearStart(b);
    const bool turn = f.kind == FormKind::kConic && std::fabs(std::fabs(shift) - kTwoPi) < 1e-12;
    return shift == 0 || turn ? shift : kNever;
}

bool goesOn(const CyclePart& a, const CyclePart& b)
{
    return !std::isnan(shiftToJoin(a, b));
}

CyclePart joined(const CyclePart& a, const CyclePart& b)
{
    CyclePart both = a;
    const double shift = shiftToJoin(a, b);
    both.run.form.lo = std::min(a.run.form.lo, b.run.form.lo + shift);
    both.run.form.hi = std::max(a.run.form.hi, b.run.form.hi + shift);
    return both;
}
} // namespace

std::vector<CyclePart> partsOf(Arrangement& plane, const Cycle& cycle)
{
    std::vector<CyclePart> parts;
    for (const HalfEdge& h : cycle) {
        const CyclePart part{&plane.strand(h.strand), plane.run(h)};
        if (!parts.empty() && goesOn(parts.back(), part)) {
            parts.back() = joined(parts.back(), part);
        } else {
            parts.push_back(part);
        }
    }
    if (parts.size() > 1 && goesOn(parts.back(), parts.front())) {
        parts.front() = joined(parts.back(), parts.front());
        parts.pop_back();
    }
    return parts;
}

CurvePtr curveOf(const Run& run)
{
    std::unique_ptr<AcGeCurve2d> curve(curve2dOf(run.form));
    if (!run.forward) curve->reverseParam();
    return curve;
}
} // namespace kernel
