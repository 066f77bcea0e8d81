#pragma once

#include "atlstr.h"

#include <string>

namespace mfc
{
/// The text as UTF-16 units. A character beyond Unicode becomes U+FFFD; a lone surrogate stays.
std::u16string toUtf16(const wchar_t* text, size_t length);
/// The units as text: pairs of surrogates become one character where a wide character has room for it.
CString fromUtf16(const std::u16string& units);
} // namespace mfc
