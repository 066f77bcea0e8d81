#pragma once

#include "windef.h"

namespace win32
{
/// Holds a virtual key down or lets it go. Keys are 1 to 254; others are not taken.
void setKeyDown(int key, bool down);

/// Lets all keys go and forgets what was pressed.
void releaseAllKeys();
} // namespace win32
