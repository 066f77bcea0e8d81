#include "Spline.h"

#include <algorithm>
#include <array>

namespace gecore
{
namespace
{
constexpr int kOrders = 4; // derivatives 0 to 3

using BasisTable = std::array<std::array<double, kMaxDegree + 1>, kOrders>;

/// The basis functions that differ from 0 in a span, and their derivatives (A2.3).
void basisDerivatives(const Spline& s, std::size_t span, double t, int order, BasisTable& out)
{
    const int p = s.degree;
    double ndu[kMaxDegree + 1][kMaxDegree + 1];
    double left[kMaxDegree + 1], right[kMaxDegree + 1];
    ndu[0][0] = 1;
    for (int j = 1; j <= p; ++j) {
        left[j] = t - s.knots[span + 1 - static_cast<std::size_t>(j)];
        right[j] = s.knots[span + static_cast<std::size_t>(j)] - t;
        double saved = 0;
        for (int r = 0; r < j; ++r) {
            ndu[j][r] = right[r + 1] + left[j - r];
            const double part = ndu[r][j - 1] / ndu[j][r];
            ndu[r][j] = saved + right[r + 1] * part;
            saved = left[j - r] * part;
        }
        ndu[j][j] = saved;
    }
    for (int j = 0; j <= p; ++j)
        out[0][static_cast<std::size_t>(j)] = ndu[j][p];
    for (int r = 0; r <= p; ++r) {
        double a[2][kMaxDegree + 1];
        int now = 0, next = 1;
        a[0][0] = 1;
        for (int k = 1; k <= std::min(order, p); ++k) {
            double d = 0;
            const int rk = r - k, pk = p - k;
            if (r >= k) {
                a[next][0] = a[now][0] / ndu[pk + 1][rk];
                d = a[next][0] * ndu[rk][pk];
            }
            const int first = rk >= -1 ? 1 : -rk, last = r - 1 <= pk ? k - 1 : p - r;
            for (int j = first; j <= last; ++j) {
                a[next][j] = (a[now][j] - a[now][j - 1]) / ndu[pk + 1][rk + j];
                d += a[next][j] * ndu[rk + j][pk];
            }
            if (r <= pk) {
                a[next][k] = -a[now][k - 1] / ndu[pk + 1][r];
                d += a[next][k] * ndu[r][pk];
            }
            out[static_cast<std::size_t>(k)][static_cast<std::size_t>(r)] = d;
            std::swap(now, next);
        }
    }
    double factor = p;
    for (int k = 1; k <= std::min(order, p); ++k) {
        for (int j = 0; j <= p; ++j)
            out[static_cast<std::size_t>(k)][static_cast<std::size_t>(j)] *= factor;
        factor *= p - k;
    }
}

/// Derivatives of a quotient from those of the numerator and the denominator (A4.2).
void divide(const Weighted* of, int order, AcGeVector3d* out)
{
    static constexpr int kBinomial[kOrders][kOrders] = {
        {1, 0, 0, 0}, {1, 1, 0, 0}, {1, 2, 1, 0}, {1, 3, 3, 1}};
    for (int k = 0; k <= order; ++k) {
        AcGeVector3d v = of[k].p;
        for (int i = 1; i <= k; ++i)
            v -= out[k - i] * (kBinomial[k][i] * of[i].w);
        out[k] = v / of[0].w;
    }
}

Weighted mix(const Weighted& a, const Weighted& b, double t)
{
    return {a.p + (b.p - a.p) * t, a.w + (b.w - a.w) * t};
}

/// The control points of a Bezier curve with its degree raised by one (equation 5.36).
std::vector<Weighted> elevated(const std::vector<Weighted>& from)
{
    const std::size_t n = from.size();
    std::vector<Weighted> to{from.front()};
    for (std::size_t i = 1; i < n; ++i)
        to.push_back(mix(from[i], from[i - 1], static_cast<double>(i) / static_cast<double>(n)));
    to.push_back(from.back());
    return to;
}
} // namespace

bool Spline::isValid() const
{
    if (degree < 1 || degree > kMaxDegree || points.size() < static_cast<std::size_t>(degree) + 1)
        return false;
    if (knots.size() != points.size() + static_cast<std::size_t>(degree) + 1) return false;
    if (!weights.empty() && weights.size() != points.size()) return false;
    const auto good = [](double w) { return w > 0 && std::isfinite(w); };
    if (!std::all_of(weights.begin(), weights.end(), good)) return false;
    if (!std::all_of(knots.begin(), knots.end(), [](double k) { return std::isfinite(k); })) return false;
    return std::is_sorted(knots.begin(), knots.end()) && lower() < upper();
}

std::size_t Spline::spanAt(double t) const
{
    const auto first = knots.begin() + degree,
               last = knots.begin() + static_cast<std::ptrdiff_t>(points.size());
    if (t >= *last) {
        const auto at = std::lower_bound(first, last, *last);
        return static_cast<std::size_t>(at - knots.begin()) - 1;
    }
    const auto after = std::upper_bound(first, last, std::max(t, *first));
    return static_cast<std::size_t>(after - knots.begin()) - 1;
}

int Spline::multiplicity(double t) const
{
    return static_cast<int>(std::count(knots.begin(), knots.end(), t));
}

Weighted Spline::weighted(std::size_t i) const
{
    return {points[i].asVector() * weight(i), weight(i)};
}

void Spline::setWeighted(std::size_t i, const Weighted& value)
{
    points[i] = AcGePoint3d::kOrigin + value.p / value.w;
    if (isRational()) weights[i] = value.w;
}

void Spline::derivatives(double t, int order, AcGeVector3d* out) const
{
    std::fill(out, out + order + 1, AcGeVector3d());
    if (isEmpty()) return;
    BasisTable basis;
    const std::size_t span = spanAt(t), first = span - static_cast<std::size_t>(degree);
    basisDerivatives(*this, span, t, order, basis);
    Weighted sums[kOrders];
    for (int k = 0; k <= order; ++k) {
        sums[k].w = 0;
        for (std::size_t j = 0; k <= degree && j <= static_cast<std::size_t>(degree); ++j) {
            const double b = basis[static_cast<std::size_t>(k)][j] * weight(first + j);
            sums[k].p += points[first + j].asVector() * b;
            sums[k].w += b;
        }
        out[k] = sums[k].p;
    }
    if (isRational()) divide(sums, order, out);
}

void Spline::insertKnot(double t)
{
    if (isEmpty() || !(t >= lower() && t <= upper()) || multiplicity(t) >= degree) return;
    const std::size_t p = static_cast<std::size_t>(degree), span = spanAt(t);
    std::vector<Weighted> fresh;
    for (std::size_t i = span - p + 1; i <= span; ++i) {
        const double width = knots[i + p] - knots[i];
        fresh.push_back(mix(weighted(i - 1), weighted(i), width > 0 ? (t - knots[i]) / width : 0));
    }
    const auto at = static_cast<std::ptrdiff_t>(span);
    points.insert(points.begin() + at, points[span]);
    if (isRational()) weights.insert(weights.begin() + at, weights[span]);
    for (std::size_t i = 0; i < fresh.size(); ++i)
        setWeighted(span - p + 1 + i, fresh[i]);
    knots.insert(knots.begin() + at + 1, t);
}

void Spline::reverse()
{
    std::reverse(points.begin(), points.end());
    std::reverse(weights.begin(), weights.end());
    std::reverse(knots.begin(), knots.end());
    if (knots.empty()) return;
    const double sum = knots.front() + knots.back();
    for (double& knot : knots)
        knot = sum - knot;
}

void Spline::trim(double lo, double hi)
{
    if (isEmpty() || !(lo >= lower() && hi <= upper() && lo < hi)) return;
    for (const double t : {lo, hi})
        while (multiplicity(t) < degree)
            insertKnot(t);
    const std::size_t p = static_cast<std::size_t>(degree);
    const auto firstAfter = std::upper_bound(knots.begin(), knots.end(), lo);
    const auto firstEnd = std::lower_bound(knots.begin(), knots.end(), hi);
    const std::size_t from = static_cast<std::size_t>(firstAfter - knots.begin()) - p - 1;
    const std::size_t last = static_cast<std::size_t>(firstEnd - knots.begin()) - 1;
    const std::vector<double> inner(firstAfter, firstEnd);
    points = {points.begin() + static_cast<std::ptrdiff_t>(from),
              points.begin() + static_cast<std::ptrdiff_t>(last) + 1};
    if (isRational())
        weights = {weights.begin() + static_cast<std::ptrdiff_t>(from),
                   weights.begin() + static_cast<std::ptrdiff_t>(last) + 1};
    knots.assign(p + 1, lo);
    knots.insert(knots.end(), inner.begin(), inner.end());
    knots.insert(knots.end(), p + 1, hi);
    periodic = false;
}

std::vector<Spline::Bezier> Spline::beziers() const
{
    std::vector<Bezier> result;
    if (isEmpty()) return result;
    Spline fine(*this);
    std::vector<double> breaks;
    for (const double knot : knots)
        if (knot >= lower() && knot <= upper() && (breaks.empty() || knot > breaks.back()))
            breaks.push_back(knot);
    for (const double t : breaks)
        while (fine.multiplicity(t) < degree)
            fine.insertKnot(t);
    for (std::size_t i = 0; i + 1 < breaks.size(); ++i) {
        Bezier piece{breaks[i], breaks[i + 1], {}};
        const std::size_t span = fine.spanAt(breaks[i]);
        for (std::size_t j = span - static_cast<std::size_t>(degree); j <= span; ++j)
            piece.points.push_back(fine.weighted(j));
        result.push_back(std::move(piece));
    }
    return result;
}

// The Bezier pieces are raised one by one. Inner knots come out with the multiplicity of the new degree,
// which may be more than the continuity there needs; shape and parameters are the same.
void Spline::elevate()
{
    if (isEmpty() || degree == kMaxDegree) return;
    Spline raised;
    raised.degree = degree + 1;
    raised.periodic = periodic;
    raised.knots.push_back(lower());
    for (const Bezier& piece : beziers()) {
        raised.knots.insert(raised.knots.end(), static_cast<std::size_t>(raised.degree), piece.lo);
        const std::vector<Weighted> more = elevated(piece.points);
        for (std::size_t i = raised.points.empty() ? 0 : 1; i < more.size(); ++i) {
            raised.points.push_back(AcGePoint3d::kOrigin + more[i].p / more[i].w);
            if (isRational()) raised.weights.push_back(more[i].w);
        }
    }
    raised.knots.insert(raised.knots.end(), static_cast<std::size_t>(raised.degree) + 1, upper());
    *this = raised;
}
} // namespace gecore
