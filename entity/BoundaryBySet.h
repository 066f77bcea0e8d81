#pragma once

#include "adsdef.h"
#include "dbidar.h"
#include "gepnt3d.h"

namespace entity
{
/// Lets AutoCAD's command -BOUNDARY trace among the entities of a selection set, around a point of the current user
/// coordinate system, and gives the ids of what it made; the outline comes first.
AcDbObjectIdArray boundaryBySet(const AcGePoint3d& pt, const ads_name candidates, bool islands, bool asRegions);
} // namespace entity
