#pragma once

#include "dbid.h"

#include <vector>

namespace commands
{
/// Asks for objects as acedSSGet does. Nothing when none were chosen.
std::vector<AcDbObjectId> selectObjects();
} // namespace commands
