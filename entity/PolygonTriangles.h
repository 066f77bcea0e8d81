#pragma once

#include "gept2dar.h"

#include <array>
#include <vector>

namespace entity
{
/// Cuts a polygon, whose last point is joined to the first, into triangles that cover it once: the indices of
/// their corners. Empty for a polygon that crosses itself or has no area.
///
/// Ears are clipped one after the other (G. H. Meisters, Polygons have ears, 1975): n - 2 triangles, and
/// fewer where points are in line, in O(n^2) steps. A corner is looked at again only when one beside it was
/// cut off (D. Eberly, Triangulation by ear clipping, 2002).
std::vector<std::array<int, 3>> trianglesOf(const AcGePoint2dArray& polygon);
} // namespace entity
