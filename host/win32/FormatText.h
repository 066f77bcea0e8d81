#pragma once

#include "crtformat.h"

namespace crt
{
/// The text under %s and its kin as it goes into a format of either width: all of it, or with a precision
/// that is not negative its beginning. Reads no further than the precision needs. A null text is "(null)".
void textOf(const FormatArg& text, int precision, std::wstring& out);
void textOf(const FormatArg& text, int precision, std::string& out);

/// One character of either width as it goes into a format.
void characterOf(wchar_t character, std::wstring& out);
void characterOf(wchar_t character, std::string& out);
void characterOf(char character, std::wstring& out);
void characterOf(char character, std::string& out);
} // namespace crt
