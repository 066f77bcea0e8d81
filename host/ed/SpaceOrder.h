#pragma once

/// The entities of spaces in the order in which selections give them.

#include "dbentity.h"

#include <vector>

namespace ed
{
/// The entities of a block, the uppermost first: the last one drawn. Erased ones may be among them.
std::vector<AcDbObjectId> idsUppermostFirst(AcDbObjectId block);
/// The living ones.
std::vector<const AcDbEntity*> uppermostFirst(AcDbObjectId block);
/// Those of model space and of all layouts, the newest first, each space in the order of its own.
std::vector<const AcDbEntity*> newestFirst(const AcDbDatabase& database);
} // namespace ed
