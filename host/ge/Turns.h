#pragma once

/// Angles of arcs.

#include "CurveForm.h"

namespace gecore
{
/// Moves an end angle by full turns into start < end <= start + 2 pi; angles that are equal make a full turn.
/// Angles that are not finite, or so large that their place on the circle is lost, become a full turn from 0.
inline void orderAngles(double& start, double& end)
{
    constexpr double kMeaningless = 1e12;
    if (!(std::fabs(start) < kMeaningless) || !(std::fabs(end) < kMeaningless)) {
        start = 0;
        end = kTwoPi;
        return;
    }
    const double turn = end - start;
    if (turn > 0 && turn <= kTwoPi * (1 + 1e-15)) return;
    const double rest = turn - kTwoPi * std::floor(turn / kTwoPi);
    end = start + (rest > 1e-14 * (1 + std::fabs(start)) ? rest : kTwoPi);
}
} // namespace gecore
