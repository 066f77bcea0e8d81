#pragma once

#include "winuser.h"

namespace win32
{
/// How a window is hidden when another one shall not come forward for it.
constexpr UINT hideQuietly = SWP_HIDEWINDOW | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;

/// Destroys a window with all below it, whichever thread made it. See DestroyWindow.
void destroyTree(HWND handle);

/// Takes focus and activation away from a window and all in it. The next visible top-level window, its
/// owner first, becomes the active one.
void leaveWindow(HWND handle);
} // namespace win32
