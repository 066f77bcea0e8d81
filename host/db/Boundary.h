#pragma once

/// Outlines around a picked point, traced among the entities of a drawing.

#include "dbentity.h"

#include <memory>
#include <vector>

namespace boundary
{
struct Query {
    AcGePoint3d seed; ///< in the coordinates of the plane
    AcGeMatrix3d
        planeToWorld; ///< a rotation and a shift; the outlines lie in its XY plane at the height of the seed
    bool islands = true;    ///< outlines of what lies inside are wanted too
    bool asRegions = false; ///< regions instead of polylines
};

using Outlines = std::vector<std::unique_ptr<AcDbEntity>>;

/// The entities that can bound an area: those of a block that are shown, on a layer that is on and thawed.
std::vector<AcDbObjectId> candidatesIn(AcDbObjectId block);

/// The smallest closed outline around the seed, then the outlines of the islands in it, as new entities in
/// world coordinates with a drawing's current properties: a closed polyline for lines and circular arcs, a
/// region for others. Curves and regions bound it, also those inside of block references; they count where
/// they lie parallel to the plane, as seen along its Z axis. Nothing when the seed is on a curve or what is
/// around it has a gap.
Outlines around(const std::vector<AcDbObjectId>& candidates, const Query& query);
} // namespace boundary
