#pragma once

/// The entities of spaces in the order in which selections give them.

#include "dbentity.h"

#include <vector>

namespace ed
{
/// The living entities of a block, the uppermost first: the last one drawn.
std::vector<const AcDbEntity*> uppermostFirst(AcDbObjectId block);
/// Those of model space and of all layouts, the newest first, each space in the order of its own.
std::vector<const AcDbEntity*> newestFirst(const AcDbDatabase& database);
} // namespace ed
