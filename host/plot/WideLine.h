#pragma once

/// Lines with a width of their own, such as polylines have.

#include "LineTypeDash.h"

namespace plot
{
/// A straight piece and half its width at both ends.
struct WidePiece {
    AcGePoint2d start, end;
    double startHalf = 0, endHalf = 0;
};

/// The area of pieces of which each starts where the one before ends, for the non-zero rule. Pieces as wide as their
/// neighbour meet in a mitre, unless they turn back sharply. Pieces without length are left out.
Loops wideArea(const std::vector<WidePiece>& pieces, bool isClosed);
} // namespace plot
