#pragma once

/// Line types: a curve cut into dashes and dots.

#include "gepnt2d.h"

#include <vector>

namespace plot
{
using Points = std::vector<AcGePoint2d>;
/// Closed polygons; the last point of each is joined to the first. The area between them counts by a fill
/// rule.
using Loops = std::vector<Points>;

/// A pattern as line types store it: above 0 a dash of this length, below 0 a gap, 0 a dot; in drawing units
/// before scaling. An empty pattern, one without a gap and one with a number that is none is continuous.
using DashPattern = std::vector<double>;

struct DashOptions {
    double scale = 1;        ///< of the line type, above 0; anything else draws a continuous line
    double finest = 0;       ///< the smallest length that can be seen, such as a pixel's
    bool isClosed = false;   ///< the last point is joined to the first
    bool perSegment = false; ///< every segment has the pattern from its own start, else the whole curve
};

/// What a curve is drawn as.
struct DashedLine {
    std::vector<Points> dashes; ///< open lines of two points and more
    Points dots;
};

/// Cuts the curve. The pattern is aligned by AutoCAD's rule "A": whole patterns stand in the middle, and what
/// is left over lengthens the first dash at both ends alike (at each end at least half a dash; where the
/// pattern starts with a dot, it is a gap). A curve that is shorter than the pattern is continuous. So is one
/// whose patterns would not be seen (a pattern shorter than twice the finest length) or be more than a
/// million. Points that are not finite are left out.
DashedLine dashLine(const Points& points, const DashPattern& pattern, const DashOptions& options);
} // namespace plot
