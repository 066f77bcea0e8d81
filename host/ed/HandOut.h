#pragma once

#include "adsdef.h"

#include <string>

namespace ed
{
/// Puts a text into a caller's buffer of `size` characters. RTNORM; RTINPUTTRUNCATED when it is cut to fit;
/// RTERROR for no buffer.
int handOut(const std::wstring& from, ACHAR* text, std::size_t size);
} // namespace ed
