#pragma once

#include "VariableTable.h"

namespace ed
{
/// The variables that only hold a setting of AutoCAD's dialogs, palettes and commands that are not here:
/// modules read, set and restore them.
const std::vector<VariableInfo>& settingVariables();
} // namespace ed
