#pragma once

/// Numbers from text and to text.

#include "windef.h"

#include "crtstring.h"

/// The number at the start of a text, behind white space and a sign; 0 when there is none, or no text. The
/// rest is not looked at. A number that is too large becomes the largest or smallest of its type, with errno
/// ERANGE. LONG has 32 bits.
int _wtoi(const wchar_t* text);
LONG _wtol(const wchar_t* text);
LONGLONG _wtoi64(const wchar_t* text);
LONGLONG _wtoll(const wchar_t* text);
LONGLONG _atoi64(const char* text);
/// With a decimal point and an exponent, whatever the locale; too large is infinity, too small 0.
double _wtof(const wchar_t* text);

/// Writes a number in a base from 2 to 36, with small letters. Only in base 10 it can be negative; the other
/// bases show its bits. _s: EINVAL for a null pointer, a size of 0 or another base, ERANGE when it does not
/// fit; the buffer is emptied then. Without _s the buffer is long enough (33 characters, 65 for 64 bits).
#define QM_NUMBER_TO_TEXT(Char, Number, name)                                                                \
    Char* name(Number value, Char* to, int radix);                                                           \
    errno_t name##_s(Number value, Char* to, std::size_t size, int radix);                                   \
    template <std::size_t Size>                                                                              \
    errno_t name##_s(Number value, Char(&to)[Size], int radix)                                               \
    {                                                                                                        \
        return name##_s(value, to, Size, radix);                                                             \
    }
QM_NUMBER_TO_TEXT(wchar_t, int, _itow)
QM_NUMBER_TO_TEXT(wchar_t, LONG, _ltow)
QM_NUMBER_TO_TEXT(wchar_t, ULONG, _ultow)
QM_NUMBER_TO_TEXT(wchar_t, LONGLONG, _i64tow)
QM_NUMBER_TO_TEXT(wchar_t, ULONGLONG, _ui64tow)
QM_NUMBER_TO_TEXT(char, int, _itoa)
QM_NUMBER_TO_TEXT(char, LONG, _ltoa)
QM_NUMBER_TO_TEXT(char, ULONG, _ultoa)
QM_NUMBER_TO_TEXT(char, LONGLONG, _i64toa)
QM_NUMBER_TO_TEXT(char, ULONGLONG, _ui64toa)
#undef QM_NUMBER_TO_TEXT
