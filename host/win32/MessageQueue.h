#pragma once

#include "winuser.h"

#include <vector>

namespace win32
{
/// Drops the posted messages of a window that is going.
void dropMessagesOf(HWND handle);

/// Takes the posted messages of one window (null: of all) out of every thread's queue, oldest first.
std::vector<MSG> takePostedMessages(HWND handle);
} // namespace win32
