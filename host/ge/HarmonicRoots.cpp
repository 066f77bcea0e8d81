#include "HarmonicRoots.h"

#include "CurveForm.h"

#include <algorithm>
#include <cmath>

namespace gecore
{
namespace
{
constexpr int kDegree = 4;
using Polynomial = std::array<double, kDegree + 1>; ///< coefficients, the constant first

double valueOf(const Polynomial& p, double x)
{
    double value = 0;
    for (int i = kDegree; i >= 0; --i)
        value = value * x + p[static_cast<std::size_t>(i)];
    return value;
}

Polynomial derivativeOf(const Polynomial& p)
{
    return {p[1], 2 * p[2], 3 * p[3], 4 * p[4], 0};
}

/// Places in rising order, with room for both ends of a range and the zeros between.
struct Places {
    std::array<double, kDegree + 2> at{};
    std::size_t count = 0;
    void add(double x) { at[count++] = x; }
};

/// The zero between two places with values of different signs: Newton's method, with halving where it leads
/// out.
double zeroBetween(const Polynomial& p, const Polynomial& slope, double lo, double hi, double atLo)
{
    double x = lo + (hi - lo) / 2;
    for (int i = 0; i < 100; ++i) {
        const double value = valueOf(p, x);
        ((value < 0) == (atLo < 0) ? lo : hi) = x;
        const double step = value / valueOf(slope, x);
        double next = x - step;
        if (!(next >= lo && next <= hi)) next = lo + (hi - lo) / 2;
        if (std::fabs(step) <= 1e-15) return next;
        x = next;
    }
    return x;
}

/// The zeros of a polynomial between `bounds`, among which its slope keeps its sign, with the outer bounds
/// kept.
Places zerosBetween(const Polynomial& p, const Polynomial& slope, const Places& bounds)
{
    Places zeros;
    zeros.add(bounds.at[0]);
    for (std::size_t i = 0; i + 1 < bounds.count; ++i) {
        const double lo = bounds.at[i], hi = bounds.at[i + 1], atLo = valueOf(p, lo), atHi = valueOf(p, hi);
        if (atLo != 0 && atHi != 0 && (atLo < 0) != (atHi < 0))
            zeros.add(zeroBetween(p, slope, lo, hi, atLo));
    }
    zeros.add(bounds.at[bounds.count - 1]);
    return zeros;
}

/// -1, the zeros of a polynomial of degree 2 between -1 and 1, and 1.
Places quadraticPlaces(const Polynomial& p)
{
    Places places;
    places.add(-1);
    const double half = p[1] / 2, rest = half * half - p[2] * p[0];
    if (rest > 0) {
        const double q = -(half + std::copysign(std::sqrt(rest), half));
        const auto [least, most] = std::minmax({q / p[2], p[0] / q});
        for (const double x : {least, most})
            if (x > -1 && x < 1) places.add(x);
    }
    places.add(1);
    return places;
}

/// The polynomial in tan(x / 2) of one half of the circle, that around 0 (side 1) or pi (side -1).
Polynomial halfOf(const Harmonics& sum, double side)
{
    const double a1 = side * sum.a1, b1 = side * sum.b1;
    return {sum.a0 + a1 + sum.a2, 2 * b1 + 4 * sum.b2, 2 * sum.a0 - 6 * sum.a2, 2 * b1 - 4 * sum.b2,
            sum.a0 - a1 + sum.a2};
}
} // namespace

double Harmonics::size() const
{
    return std::fabs(a0) + std::fabs(a1) + std::fabs(b1) + std::fabs(a2) + std::fabs(b2);
}

HarmonicRoots rootsOf(const Harmonics& sum, double near)
{
    // The polynomial is up to four times the sum.
    const double small = 4 * std::max(near, 64 * std::numeric_limits<double>::epsilon() * sum.size());
    HarmonicRoots roots;
    for (const double side : {1.0, -1.0}) {
        const auto add = [&](double x) {
            roots.angles[static_cast<std::size_t>(roots.count++)] = 2 * std::atan(x) + (side > 0 ? 0 : kPi);
        };
        const Polynomial p = halfOf(sum, side), slope = derivativeOf(p), bend = derivativeOf(slope);
        const Places turns = zerosBetween(slope, bend, quadraticPlaces(bend));
        for (std::size_t i = 0; i < turns.count; ++i)
            if (std::fabs(valueOf(p, turns.at[i])) <= small) add(turns.at[i]);
        const Places zeros = zerosBetween(p, slope, turns);
        for (std::size_t i = 1; i + 1 < zeros.count; ++i)
            add(zeros.at[i]);
    }
    return roots;
}
} // namespace gecore
