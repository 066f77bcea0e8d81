#pragma once

#include "windef.h"

#include <string>
#include <string_view>

namespace win32
{
/// The names shared by window classes, registered messages and clipboard formats: each has one number from
/// 0xC000 to 0xFFFF for the life of the process, found without regard to case.

/// The number of a name, given to it now if it has none. 0 when all numbers are taken.
ATOM numberOfName(std::wstring_view name);

/// The name as it was first given; empty for a number that stands for none.
std::wstring nameOfNumber(UINT number);
} // namespace win32
