#pragma once

#include "dbid.h"

#include <string>
#include <vector>

class AcDbDatabase;

namespace ed
{
/// Puts behind each entity those of its selectable groups that are not in the list yet, living and in the current
/// space. Returns the number of groups.
std::size_t addGroups(const AcDbDatabase& database, std::vector<AcDbObjectId>& ids);
/// The living entities of a group, in its order; empty when there is none of that name.
std::vector<AcDbObjectId> entitiesOfGroup(const AcDbDatabase& database, const std::wstring& name);
} // namespace ed
