#pragma once

/// Hatches: families of parallel lines inside an area.

#include "gepnt2d.h"

#include <cstddef>
#include <vector>

namespace kernel
{
/// Closed polygons; the last point of each is joined to the first. The area between them counts by a fill
/// rule.
using Polygon = std::vector<AcGePoint2d>;
using Polygons = std::vector<Polygon>;

/// Above 0 a dash of this length, below 0 a gap, 0 a dot, in drawing units.
using DashList = std::vector<double>;

/// One family of lines of a pattern, scaled and turned as the hatch has it (groups 53, 43 to 46, 79 and 49).
struct HatchFamily {
    double angle = 0;    ///< of the lines, radians
    AcGePoint2d base;    ///< a point of the first line, where its dashes begin
    AcGeVector2d offset; ///< from one line to the next, in the drawing's axes
    DashList dashes;     ///< empty for continuous lines
};

struct HatchLimits {
    double finest = 0;                ///< the smallest length that can be seen
    std::size_t mostPieces = 2000000; ///< lines, dashes and dots of one hatch
};

struct HatchPiece {
    AcGePoint2d start, end;
};

struct HatchPieces {
    std::vector<HatchPiece> lines;
    Polygon dots;
    bool isTooDense = false; ///< a family was left out; the area is to be filled with a tint
};

/// The lines of a pattern inside loops, by the even-odd rule; islands stay free. A family whose lines are
/// closer than 1.5 times the finest length, or which would exceed the number of pieces, is left out and
/// reported; dashes with a period below twice the finest length are drawn through. Polygons with a point that is
/// not finite, or fewer than three points, count for nothing. A line along an
/// edge is drawn where the edge is the area's lower one, and not where it is the upper one (seen with the
/// lines level). Every edge is looked at once: the cost is that of sorting the crossings.
HatchPieces hatchLoops(const Polygons& loops, const std::vector<HatchFamily>& pattern,
                       const HatchLimits& limits = {});
} // namespace kernel
