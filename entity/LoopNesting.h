#pragma once

#include "dbidar.h"
#include "geplane.h"

#include <vector>

namespace entity
{
/// Which of some closed loops, each the entities that make it, lie in no other one, as seen along the normal
/// of a plane. Loops do not cross; curves count as chords near them.
std::vector<bool> outermost(const std::vector<AcDbObjectIdArray>& loops, const AcGePlane& plane);
} // namespace entity
