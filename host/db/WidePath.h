#pragma once

/// The area of polylines that have widths.

#include "BulgePath.h"

/// The corner at the left where two pieces of the same width meet, from their common end and for a half width
/// of 1; `before` and `after` are the unit vectors to their lefts. Turns of more than about 140 degrees have
/// no mitre: both pieces are cut off square then. Returns whether there is one.
bool miterOf(const AcGeVector2d& before, const AcGeVector2d& after, AcGeVector2d& corner);

/// Adds what the edges of a path with widths reach. `world` takes the path's plane anywhere, also askew.
void addWideExtents(const BulgePath& path, const AcGeMatrix3d& world, AcDbExtents& extents);
