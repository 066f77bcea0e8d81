#pragma once

#include "windef.h"

namespace win32
{
/// The code page of narrow text: the environment's QM_ACP at start, 936 when it names none.
UINT ansiCodePage();
void setAnsiCodePage(UINT codePage);
} // namespace win32
