#pragma once

/// What the Microsoft C library has beyond the standard's.

#include "windef.h"

#include "crtformat.h"

namespace crt
{
/// A character in upper or lower case by the simple mapping of Unicode; others as they are.
wchar_t toUpper(wchar_t character);
wchar_t toLower(wchar_t character);
} // namespace crt

/// Below 0, 0 or above 0 as the first text comes before, equals or comes behind the second; letters are
/// compared in lower case. The _mbsicmp of bytes in the ANSI code page: ASCII letters only.
int _wcsicmp(const wchar_t* first, const wchar_t* second);
int _mbsicmp(const unsigned char* first, const unsigned char* second);

/// How many bytes the character at the start of a text in the ANSI code page takes.
std::size_t _mbclen(const unsigned char* character);
