#pragma once

#include "gept2dar.h"

#include <array>
#include <vector>

namespace entity
{
/// Cuts a polygon, whose last point is joined to the first, into triangles that cover it once: the indices of
/// their corners. Empty for a polygon that crosses itself or has no area.
///
/// Ears are clipped one after the other (G. H. Meisters, Polygons have ears, 1975): n - 2 triangles in O(n^2)
/// steps.
std::vector<std::array<int, 3>> trianglesOf(const AcGePoint2dArray& polygon);
} // namespace entity
