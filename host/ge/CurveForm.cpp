#include "CurveForm.h"

#include "Spline.h"

#include <algorithm>

namespace gecore
{
namespace
{
void lineDerivatives(const CurveForm& form, double t, int order, AcGeVector3d* out)
{
    out[0] = (t == 0 ? form.origin : form.origin + form.u * t).asVector();
    if (order >= 1) out[1] = form.u;
    for (int k = 2; k <= order; ++k)
        out[k] = {};
}

void conicDerivatives(const CurveForm& form, double t, int order, AcGeVector3d* out)
{
    const double c = std::cos(t), s = std::sin(t);
    const AcGeVector3d radial = form.u * c + form.v * s, along = form.v * c - form.u * s;
    out[0] = form.origin.asVector() + radial;
    if (order >= 1) out[1] = along;
    if (order >= 2) out[2] = -radial;
    if (order >= 3) out[3] = -along;
}

void chainDerivatives(const CurveForm& form, double t, int order, AcGeVector3d* out)
{
    if (form.chain->empty()) {
        std::fill(out, out + order + 1, AcGeVector3d());
        return;
    }
    const ChainLink& link = linkAt(*form.chain, t);
    derivatives(link.form, link.inner(t), order, out);
    double factor = link.scale();
    for (int k = 1; k <= order; ++k, factor *= link.scale())
        out[k] *= factor;
}

bool isFinite(const AcGeVector3d& v)
{
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}
} // namespace

CurveForm splineForm(const Spline& spline)
{
    CurveForm form;
    form.kind = FormKind::kSpline;
    form.spline = &spline;
    form.lo = spline.lower();
    form.hi = spline.upper();
    return form;
}

CurveForm chainForm(const std::vector<ChainLink>& links)
{
    CurveForm form;
    form.kind = FormKind::kChain;
    form.chain = &links;
    form.lo = links.empty() ? 0 : links.front().start;
    form.hi = links.empty() ? 0 : links.back().stop;
    return form;
}

bool isFinite(const CurveForm& form)
{
    if (form.kind == FormKind::kChain)
        return std::all_of(form.chain->begin(), form.chain->end(),
                           [](const ChainLink& l) { return isFinite(l.form); });
    if (form.kind == FormKind::kSpline)
        return std::all_of(form.spline->points.begin(), form.spline->points.end(),
                           [](const AcGePoint3d& p) { return isFinite(p.asVector()); });
    const bool bounds =
        form.kind == FormKind::kLine ? form.lo <= form.hi : std::isfinite(form.lo) && std::isfinite(form.hi);
    return bounds && isFinite(form.origin.asVector()) && isFinite(form.u) && isFinite(form.v);
}

bool isCircle(const CurveForm& form)
{
    const double a = form.u.length(), b = form.v.length();
    return form.kind == FormKind::kConic && std::fabs(a - b) <= 1e-14 * std::max(a, b);
}

void derivatives(const CurveForm& form, double t, int order, AcGeVector3d* out)
{
    switch (form.kind) {
    case FormKind::kLine:
        return lineDerivatives(form, t, order, out);
    case FormKind::kConic:
        return conicDerivatives(form, t, order, out);
    case FormKind::kSpline:
        return form.spline->derivatives(t, order, out);
    case FormKind::kChain:
        return chainDerivatives(form, t, order, out);
    }
}

AcGePoint3d pointAt(const CurveForm& form, double t)
{
    AcGeVector3d p;
    derivatives(form, t, 0, &p);
    return {p.x, p.y, p.z};
}

const ChainLink& linkAt(const std::vector<ChainLink>& links, double t)
{
    const auto after =
        std::upper_bound(links.begin(), links.end(), t,
                         [](double value, const ChainLink& link) { return value < link.start; });
    return after == links.begin() ? links.front() : *(after - 1);
}

std::vector<double> smoothBreaks(const CurveForm& form)
{
    std::vector<double> breaks{form.lo};
    if (form.kind == FormKind::kSpline)
        for (const double knot : form.spline->knots)
            if (knot > breaks.back() && knot < form.hi) breaks.push_back(knot);
    if (form.kind == FormKind::kChain)
        for (const ChainLink& link : *form.chain)
            for (const double inner : smoothBreaks(link.form)) {
                const double t = link.outer(inner);
                if (t > breaks.back() && t < form.hi) breaks.push_back(t);
            }
    if (form.hi > breaks.back()) breaks.push_back(form.hi);
    return breaks;
}

bool isClosed(const CurveForm& form, double tol)
{
    if (form.kind == FormKind::kLine || !form.isBounded()) return false;
    if (form.kind == FormKind::kConic && form.hi - form.lo < kPi) return false;
    return form.hi > form.lo && startOf(form).distanceTo(endOf(form)) <= tol;
}
} // namespace gecore
