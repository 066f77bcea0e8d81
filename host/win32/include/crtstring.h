#pragma once

/// Texts and blocks of memory: comparison without case, and copies that check the size of their target.
///
/// The functions ending in _s return 0, or an error code that is in errno too:
///   EINVAL   a null pointer, a size of 0, or a target that holds no terminator where one is needed;
///   ERANGE   the target is too small.
/// A target that is there is emptied then. The host never ends the process for it. Sizes count characters
/// and include the terminator.

#include "windef.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>

using errno_t = int;
using rsize_t = std::size_t;

#define _TRUNCATE (static_cast<std::size_t>(-1))
#define STRUNCATE 80
#define _countof(array) (sizeof(crt::countOf(array)))

namespace crt
{
template <class T, std::size_t Count>
char (&countOf(T (&)[Count]))[Count];

/// A character in upper or lower case by the simple mapping of Unicode; others as they are.
wchar_t toUpper(wchar_t character);
wchar_t toLower(wchar_t character);
} // namespace crt

/// Below 0, 0 or above 0 as the first text comes before, equals or comes behind the second; letters are
/// compared in lower case. Of narrow text only ASCII letters have a case; _mbsicmp takes whole characters
/// of the ANSI code page. The `n` functions compare `count` characters at most.
int _wcsicmp(const wchar_t* first, const wchar_t* second);
int _wcsnicmp(const wchar_t* first, const wchar_t* second, std::size_t count);
int _stricmp(const char* first, const char* second);
int _strnicmp(const char* first, const char* second, std::size_t count);
int _mbsicmp(const unsigned char* first, const unsigned char* second);

/// How many bytes the character at the start of a text in the ANSI code page takes.
std::size_t _mbclen(const unsigned char* character);

/// Change a text in place and return it; _s: EINVAL when there is no terminator within `size`.
wchar_t* _wcsupr(wchar_t* text);
wchar_t* _wcslwr(wchar_t* text);
wchar_t* _wcsrev(wchar_t* text);
char* _strupr(char* text);
char* _strlwr(char* text);
char* _strrev(char* text);
errno_t _wcsupr_s(wchar_t* text, std::size_t size);
errno_t _wcslwr_s(wchar_t* text, std::size_t size);
errno_t _strupr_s(char* text, std::size_t size);
errno_t _strlwr_s(char* text, std::size_t size);

/// Copies for free(); null for a null text.
wchar_t* _wcsdup(const wchar_t* text);
char* _strdup(const char* text);

/// Copy or append a text. The `n` functions take `count` characters of it at most; with _TRUNCATE as many as
/// fit, and the result is STRUNCATE when that is not all.
errno_t wcscpy_s(wchar_t* to, std::size_t size, const wchar_t* from);
errno_t wcscat_s(wchar_t* to, std::size_t size, const wchar_t* from);
errno_t wcsncpy_s(wchar_t* to, std::size_t size, const wchar_t* from, std::size_t count);
errno_t wcsncat_s(wchar_t* to, std::size_t size, const wchar_t* from, std::size_t count);
errno_t strcpy_s(char* to, std::size_t size, const char* from);
errno_t strcat_s(char* to, std::size_t size, const char* from);
errno_t strncpy_s(char* to, std::size_t size, const char* from, std::size_t count);
errno_t strncat_s(char* to, std::size_t size, const char* from, std::size_t count);

/// Copy a block. When it does not fit the target is filled with zeros.
errno_t memcpy_s(void* to, std::size_t size, const void* from, std::size_t count);
errno_t memmove_s(void* to, std::size_t size, const void* from, std::size_t count);
errno_t wmemcpy_s(wchar_t* to, std::size_t size, const wchar_t* from, std::size_t count);

/// The length, `limit` when there is no terminator before it, 0 for a null text.
std::size_t wcsnlen_s(const wchar_t* text, std::size_t limit);
std::size_t strnlen_s(const char* text, std::size_t limit);

/// As the standard wcstok and the common strtok_r.
wchar_t* wcstok_s(wchar_t* text, const wchar_t* separators, wchar_t** context);
char* strtok_s(char* text, const char* separators, char** context);

/// The same for an array, whose size is known.
#define QM_ARRAY_TARGET(Char, name)                                                                          \
    template <std::size_t Size>                                                                              \
    errno_t name(Char(&to)[Size], const Char* from)                                                          \
    {                                                                                                        \
        return name(to, Size, from);                                                                         \
    }
#define QM_ARRAY_TARGET_COUNTED(Char, name)                                                                  \
    template <std::size_t Size>                                                                              \
    errno_t name(Char(&to)[Size], const Char* from, std::size_t count)                                       \
    {                                                                                                        \
        return name(to, Size, from, count);                                                                  \
    }
#define QM_ARRAY_CHANGED(Char, name)                                                                         \
    template <std::size_t Size>                                                                              \
    errno_t name(Char(&text)[Size])                                                                          \
    {                                                                                                        \
        return name(text, Size);                                                                             \
    }
QM_ARRAY_TARGET(wchar_t, wcscpy_s)
QM_ARRAY_TARGET(wchar_t, wcscat_s)
QM_ARRAY_TARGET(char, strcpy_s)
QM_ARRAY_TARGET(char, strcat_s)
QM_ARRAY_TARGET_COUNTED(wchar_t, wcsncpy_s)
QM_ARRAY_TARGET_COUNTED(wchar_t, wcsncat_s)
QM_ARRAY_TARGET_COUNTED(char, strncpy_s)
QM_ARRAY_TARGET_COUNTED(char, strncat_s)
QM_ARRAY_CHANGED(wchar_t, _wcsupr_s)
QM_ARRAY_CHANGED(wchar_t, _wcslwr_s)
QM_ARRAY_CHANGED(char, _strupr_s)
QM_ARRAY_CHANGED(char, _strlwr_s)
#undef QM_ARRAY_TARGET
#undef QM_ARRAY_TARGET_COUNTED
#undef QM_ARRAY_CHANGED
