#pragma once

#include "windef.h"

#include <string>
#include <string_view>

namespace win32
{
/// Text at the border to the operating system, which speaks UTF-8. What has no counterpart becomes U+FFFD.
std::wstring fromUtf8(std::string_view text);
std::string toUtf8(std::wstring_view text);

/// Text in a code page (CP_ACP and its kin are resolved; an unknown page is read as UTF-8). Characters
/// without a counterpart become '?', a best-fit character is taken where there is one.
std::wstring widen(UINT codePage, std::string_view text);
std::string narrow(UINT codePage, std::wstring_view text);
} // namespace win32
