#pragma once

#include "dbidar.h"
#include "geplane.h"

#include <vector>

namespace entity
{
/// In how many others each of some closed loops lies, which are the entities that make them, as seen along
/// the normal of a plane. Loops do not cross; curves count as chords near them, texts as the points where
/// they start, which nothing lies in.
std::vector<int> nestingDepths(const std::vector<AcDbObjectIdArray>& loops, const AcGePlane& plane);
} // namespace entity
