#pragma once

#include "windef.h"

namespace win32
{
/// The size of the screen in pixels: 1920 by 1080 at start. A side that is not positive is not taken.
SIZE screenSize();
void setScreenSize(SIZE size);
} // namespace win32
