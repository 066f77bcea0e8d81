#pragma once

#include "dbregion.h"

#include <memory>
#include <vector>

namespace entity
{
/// The area that lies inside of an odd number of regions, whatever their order: what lies in another is cut
/// out of it, and what lies in that is area again. Null for an empty list and for regions that leave one
/// plane.
std::unique_ptr<AcDbRegion> areaByTurns(std::vector<std::unique_ptr<AcDbRegion>> regions);
} // namespace entity
