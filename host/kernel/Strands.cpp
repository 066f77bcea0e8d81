#include "Arrangement.h"
#include "Span.h"

namespace kernel
{
using namespace gecore;

namespace
{
/// A stretch whose tangents stay within this angle of its chord cannot come back to itself.
constexpr double kWidestCone = 1.2;

void addMonotone(const Span& span, const Strand& whole, double tol, std::vector<Strand>& strands)
{
    if (span.cone > kWidestCone && span.canSplit()) {
        Span left, right;
        span.split(left, right);
        addMonotone(left, whole, tol, strands);
        addMonotone(right, whole, tol, strands);
        return;
    }
    strands.push_back(whole);
    strands.back().form = trimmed(whole.form, span.lo, span.hi);
    if (flatBoxOf(strands.back().form).diagonal() <= tol) strands.pop_back();
}

void addLinks(const std::vector<ChainLink>& links, int source, double tol, std::vector<Strand>& strands)
{
    for (const ChainLink& link : links) {
        const double rate = link.scale() > 0 ? 1 / link.scale() : 0;
        std::size_t first = strands.size();
        addStrands(link.form, source, tol, strands);
        for (; first < strands.size(); ++first) {
            strands[first].offset = link.start + (strands[first].offset - link.form.lo) * rate;
            strands[first].scale *= rate;
        }
    }
}
} // namespace

void addStrands(const CurveForm& form, int source, double tol, std::vector<Strand>& strands)
{
    if (form.kind == FormKind::kChain) return addLinks(*form.chain, source, tol, strands);
    const Strand whole{form, source, 1, 0};
    if (form.kind == FormKind::kSpline) {
        for (const Span& span : spansOf(form))
            addMonotone(span, whole, tol, strands);
    } else if (flatBoxOf(form).diagonal() > tol) {
        strands.push_back(whole);
    }
}

double safeTolerance(double tol, const Box2& box)
{
    return std::max(tol, 1e-12 * box.magnitude());
}
} // namespace kernel
