#include "Arrangement.h"
#include "Span.h"

namespace kernel
{
using namespace gecore;

namespace
{
/// A stretch whose tangents stay within this angle of its chord cannot come back to itself.
constexpr double kWidestCone = 1.2;

void addMonotone(const Span& span, const CurveForm& whole, std::vector<CurveForm>& parts)
{
    if (span.cone <= kWidestCone || !span.canSplit()) {
        parts.push_back(trimmed(whole, span.lo, span.hi));
        return;
    }
    Span left, right;
    span.split(left, right);
    addMonotone(left, whole, parts);
    addMonotone(right, whole, parts);
}

std::vector<CurveForm> monotoneParts(const CurveForm& form)
{
    if (form.kind != FormKind::kSpline) return {form};
    std::vector<CurveForm> parts;
    for (const Span& span : spansOf(form))
        addMonotone(span, form, parts);
    return parts;
}

/// Nothing of it is further than tol from its start.
bool isSmall(const CurveForm& form, double tol)
{
    return flatBoxOf(form).diagonal() <= tol;
}
} // namespace

std::vector<Strand> strandsOf(const CurveForm& form, int source, double tol)
{
    std::vector<Strand> strands;
    if (form.kind == FormKind::kChain) {
        for (const ChainLink& link : *form.chain) {
            const double rate = link.scale() > 0 ? 1 / link.scale() : 0;
            for (Strand part : strandsOf(link.form, source, tol)) {
                part.offset = link.start + (part.offset - link.form.lo) * rate;
                part.scale *= rate;
                strands.push_back(part);
            }
        }
        return strands;
    }
    for (const CurveForm& part : monotoneParts(form))
        if (!isSmall(part, tol)) strands.push_back({part, source, 1, 0});
    return strands;
}

double safeTolerance(double tol, const Box2& box)
{
    return std::max(tol, 1e-12 * box.magnitude());
}
} // namespace kernel
