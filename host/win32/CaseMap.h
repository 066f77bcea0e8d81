#pragma once

#include "windef.h"

namespace win32
{
/// The simple case mapping of Windows' tables: one character for one, whatever the locale. A letter outside
/// ASCII has no counterpart inside it (dotless i, long s and the Kelvin sign stay as they are). Any value is
/// taken; what is no letter comes back unchanged.
wchar_t toUpper(wchar_t c);
wchar_t toLower(wchar_t c);

/// Compares without regard to case, by the upper-case values of the characters: negative, 0 or positive.
int compareNoCase(const wchar_t* a, std::size_t aLength, const wchar_t* b, std::size_t bLength);
} // namespace win32
