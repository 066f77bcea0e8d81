#include "Span.h"

#include <algorithm>

namespace gecore
{
namespace
{
double angleBetween(const AcGeVector3d& a, const AcGeVector3d& b)
{
    return std::atan2(a.crossProduct(b).length(), a.dotProduct(b));
}

AcGePoint3d placeOf(const Weighted& p)
{
    return AcGePoint3d::kOrigin + p.p / p.w;
}
} // namespace

double distanceToSegment(const AcGePoint3d& p, const AcGePoint3d& a, const AcGePoint3d& b)
{
    const AcGeVector3d along = b - a;
    const double size = along.lengthSqrd();
    const double t = size > 0 ? std::clamp((p - a).dotProduct(along) / size, 0.0, 1.0) : 0;
    return (p - (a + along * t)).length();
}

double segmentDistance(const AcGePoint3d& a0, const AcGePoint3d& a1, const AcGePoint3d& b0,
                       const AcGePoint3d& b1)
{
    const AcGeVector3d d1 = a1 - a0, d2 = b1 - b0, r = a0 - b0;
    const double a = d1.lengthSqrd(), e = d2.lengthSqrd(), f = d2.dotProduct(r);
    if (!(a > 0)) return distanceToSegment(a0, b0, b1);
    if (!(e > 0)) return distanceToSegment(b0, a0, a1);
    const double c = d1.dotProduct(r), b = d1.dotProduct(d2), det = a * e - b * b;
    double s = det > 1e-30 * a * e ? std::clamp((b * f - c * e) / det, 0.0, 1.0) : 0;
    double t = (b * s + f) / e;
    if (t < 0 || t > 1) {
        t = t < 0 ? 0 : 1;
        s = std::clamp((b * t - c) / a, 0.0, 1.0);
    }
    return ((a0 + d1 * s) - (b0 + d2 * t)).length();
}

Span Span::of(const CurveForm& form, double lo, double hi)
{
    Span span;
    span.form = &form;
    span.lo = lo;
    span.hi = hi;
    return span;
}

void Span::measure()
{
    if (degree > 0) return measureBezier();
    a = pointAt(*form, lo);
    b = pointAt(*form, hi);
    if (form->kind == FormKind::kConic) measureConic();
}

// An arc of the unit circle over 2 h lies within 1 - cos h of its chord; the axes stretch that at most by the
// longer one. Tangents turn steadily from one end to the other, past the direction of the chord.
void Span::measureConic()
{
    const double half = (hi - lo) / 2;
    sag =
        std::sqrt(std::max(form->u.lengthSqrd(), form->v.lengthSqrd())) * 2 * std::pow(std::sin(half / 2), 2);
    AcGeVector3d start[2], end[2];
    derivatives(*form, lo, 1, start);
    derivatives(*form, hi, 1, end);
    const AcGeVector3d middle = form->v * std::cos(lo + half) - form->u * std::sin(lo + half);
    cone = std::max(angleBetween(start[1], middle), angleBetween(end[1], middle));
}

// The curve lies in the hull of its control points, and its tangents are positive sums of the control
// polygon's legs; both hold for positive weights.
void Span::measureBezier()
{
    a = placeOf(points[0]);
    b = placeOf(points[static_cast<std::size_t>(degree)]);
    sag = cone = 0;
    AcGePoint3d before = a;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(degree); ++i) {
        const AcGePoint3d here = placeOf(points[i]);
        sag = std::max(sag, distanceToSegment(here, a, b));
        if ((here - before).lengthSqrd() > 0) cone = std::max(cone, angleBetween(here - before, b - a));
        before = here;
    }
    if (!((b - a).lengthSqrd() > 0)) cone = kPi;
}

// De Casteljau's algorithm.
void Span::splitBezierAt(double share, Span& left, Span& right) const
{
    const auto n = static_cast<std::size_t>(degree);
    left.degree = right.degree = degree;
    std::copy(points.begin(), points.begin() + degree + 1, right.points.begin());
    left.points[0] = points[0];
    for (std::size_t k = 1; k <= n; ++k) {
        for (std::size_t i = 0; i + k <= n; ++i) {
            const Weighted &p = right.points[i], &q = right.points[i + 1];
            right.points[i] = {p.p + (q.p - p.p) * share, p.w + (q.w - p.w) * share};
        }
        left.points[k] = right.points[0];
    }
}

void Span::split(Span& left, Span& right) const
{
    left.form = right.form = form;
    left.lo = lo;
    left.hi = right.lo = middle();
    right.hi = hi;
    left.degree = right.degree = degree;
    if (degree > 0) splitBezierAt((middle() - lo) / (hi - lo), left, right);
    left.measure();
    right.measure();
}

Span Span::between(double from, double to) const
{
    Span result(*this), rest;
    if (degree > 0 && to < hi) {
        splitBezierAt((to - lo) / (hi - lo), result, rest);
        result.hi = to;
    }
    if (degree > 0 && from > lo) {
        const Span whole(result);
        whole.splitBezierAt((from - lo) / (result.hi - lo), rest, result);
    }
    result.lo = from;
    result.hi = to;
    result.measure();
    return result;
}

std::vector<Span> spansOf(const CurveForm& form)
{
    std::vector<Span> spans;
    if (form.kind == FormKind::kSpline) {
        for (const Spline::Bezier& piece : form.spline->beziers()) {
            const double lo = std::max(piece.lo, form.lo), hi = std::min(piece.hi, form.hi);
            if (!(lo < hi)) continue;
            Span whole = Span::of(form, piece.lo, piece.hi);
            whole.degree = form.spline->degree;
            std::copy(piece.points.begin(), piece.points.end(), whole.points.begin());
            spans.push_back(whole.between(lo, hi));
        }
        return spans;
    }
    const double quarters =
        form.kind == FormKind::kConic ? std::ceil((form.hi - form.lo) / (kPi / 2) - 1e-9) : 1;
    const int count = static_cast<int>(std::clamp(quarters, 1.0, 4096.0));
    for (int i = 0; i < count; ++i) {
        const auto cut = [&](int k) {
            return k == count ? form.hi : form.lo + (form.hi - form.lo) * k / count;
        };
        Span span = Span::of(form, cut(i), cut(i + 1));
        span.measure();
        spans.push_back(span);
    }
    return spans;
}
} // namespace gecore
