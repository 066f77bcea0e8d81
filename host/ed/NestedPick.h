#pragma once

/// Picks entities inside of blocks.

#include "SelectionSearch.h"

namespace ed
{
struct NestedHit {
    AcDbObjectId entity;
    AcGeMatrix3d toWorld;                 ///< from the entity's coordinates
    std::vector<AcDbObjectId> containers; ///< the innermost first
};

/// Goes down from an entity that meets the area to what meets it inside.
NestedHit nestedHit(SelectionSearch& search, const AcDbDatabase& database, const SelectionArea& area,
                    AcDbObjectId entity);
} // namespace ed
