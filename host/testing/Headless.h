#pragma once

/// What a test may do to the headless desktop and a module may not: choose the ANSI code page, hold keys
/// down, read the message boxes that were shown.

#include <windows.h>

namespace headless
{
/// Chooses the code page of narrow text (CP_ACP) for this process: 936, 950, 1252 or 65001.
void setAnsiCodePage(UINT codePage);
} // namespace headless
