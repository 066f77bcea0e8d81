#pragma once

#include "windef.h"

namespace win32
{
/// The simplified or traditional form of a Chinese character; the character itself where there is none, or
/// where it would not be a single character of the Basic Multilingual Plane.
wchar_t toSimplified(wchar_t c);
wchar_t toTraditional(wchar_t c);
} // namespace win32
