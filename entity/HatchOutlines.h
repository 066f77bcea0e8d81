#pragma once

#include "dbhatch.h"

#include <memory>
#include <vector>

namespace entity
{
/// Appends the outline of a loop of a hatch as new entities in world coordinates: one region, or else a
/// closed polyline for lines and arcs and the curves of the edges for others. False for a loop that makes
/// none.
bool appendOutlines(const AcDbHatch& hatch, int loop, bool asRegion,
                    std::vector<std::unique_ptr<AcDbEntity>>& outlines);
} // namespace entity
