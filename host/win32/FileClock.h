#pragma once

#include "windef.h"

#include <ctime>

namespace win32
{
/// A point in time as FILETIME (100 ns since 1601, UTC) and as timespec (since 1970, UTC).
FILETIME toFileTime(const timespec& time);
timespec fromFileTime(const FILETIME& time);
} // namespace win32
