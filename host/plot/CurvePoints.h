#pragma once

/// Curves as points along them.

#include "BulgeSegment.h"
#include "LineTypeDash.h"

namespace plot
{
/// An arc center + cos t a + sin t b, from `start` over `sweep` radians, both ends included. Chords are no farther
/// than `tolerance` from an arc as large as the longer of a and b.
Points arcPoints(const AcGePoint2d& center, const AcGeVector2d& a, const AcGeVector2d& b, double start, double sweep,
                 double tolerance);

/// Appends the points of a polyline's segment behind its start.
void appendSegment(Points& points, const BulgeSegment& segment, double tolerance);
} // namespace plot
