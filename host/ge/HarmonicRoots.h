#pragma once

/// Zeros of the sum of a constant and two harmonics, which say where conics meet.

#include <array>

namespace gecore
{
/// a0 + a1 cos x + b1 sin x + a2 cos 2x + b2 sin 2x.
struct Harmonics {
    double a0 = 0, a1 = 0, b1 = 0, a2 = 0, b2 = 0;

    /// The sum of the absolute coefficients: no value is larger.
    double size() const;
};

/// Angles in the order in which they were found, within -pi/2..3 pi/2; one may stand there twice.
struct HarmonicRoots {
    std::array<double, 20> angles{};
    int count = 0;
};

/// The zeros, and where the sum comes as near to 0 as `near` (at least its rounding) without reaching it. In
/// halves of the circle the sum is a polynomial of degree 4 in the tangent of half the angle, divided by a
/// positive one; the zeros of each derivative bound those of the one before.
HarmonicRoots rootsOf(const Harmonics& sum, double near);
} // namespace gecore
