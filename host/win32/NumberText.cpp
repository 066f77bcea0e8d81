#include "crtnumber.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <limits>
#include <locale.h>
#include <string>
#include <type_traits>

namespace
{
template <class Char>
const Char* skipBlanks(const Char* text)
{
    while (*text == ' ' || (*text >= '\t' && *text <= '\r'))
        ++text;
    return text;
}

/// The value of the digits, `limit` with errno set when it would be above.
template <class Char>
std::uint64_t magnitude(const Char* text, std::uint64_t limit)
{
    std::uint64_t value = 0;
    for (; *text >= '0' && *text <= '9'; ++text) {
        const std::uint64_t digit = *text - '0';
        if (value > (limit - digit) / 10) {
            errno = ERANGE;
            return limit;
        }
        value = value * 10 + digit;
    }
    return value;
}

template <class Number, class Char>
Number parseInteger(const Char* text)
{
    if (!text) {
        errno = EINVAL;
        return 0;
    }
    text = skipBlanks(text);
    const bool isNegative = *text == '-';
    if (isNegative || *text == '+') ++text;
    const std::uint64_t most = std::numeric_limits<Number>::max();
    const std::uint64_t value = magnitude(text, isNegative ? most + 1 : most);
    return static_cast<Number>(isNegative ? 0 - value : value);
}

locale_t plainLocale()
{
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

/// The digits, signs and letters that a number can be made of: its end is found by who reads it.
std::string asciiStart(const wchar_t* text)
{
    std::string start;
    for (; *text > ' ' && *text < 0x7f; ++text)
        start += static_cast<char>(*text);
    return start;
}

template <class Char, class Number>
std::basic_string<Char> digitsOf(Number value, int radix)
{
    char digits[66];
    const auto bits = static_cast<std::make_unsigned_t<Number>>(value);
    const auto end = radix == 10 ? std::to_chars(digits, digits + sizeof digits, value, radix).ptr
                                 : std::to_chars(digits, digits + sizeof digits, bits, radix).ptr;
    return std::basic_string<Char>(digits, end);
}

template <class Char, class Number>
errno_t writeNumber(Number value, Char* to, std::size_t size, int radix)
{
    if (!to || !size) return errno = EINVAL;
    *to = 0;
    if (radix < 2 || radix > 36) return errno = EINVAL;
    const auto digits = digitsOf<Char>(value, radix);
    if (digits.size() >= size) return errno = ERANGE;
    std::copy_n(digits.c_str(), digits.size() + 1, to);
    return 0;
}
} // namespace

int _wtoi(const wchar_t* text)
{
    return parseInteger<int>(text);
}
LONG _wtol(const wchar_t* text)
{
    return parseInteger<LONG>(text);
}
LONGLONG _wtoi64(const wchar_t* text)
{
    return parseInteger<LONGLONG>(text);
}
LONGLONG _wtoll(const wchar_t* text)
{
    return parseInteger<LONGLONG>(text);
}
LONGLONG _atoi64(const char* text)
{
    return parseInteger<LONGLONG>(text);
}

double _wtof(const wchar_t* text)
{
    if (text) return strtod_l(asciiStart(skipBlanks(text)).c_str(), nullptr, plainLocale());
    errno = EINVAL;
    return 0;
}

#define QM_NUMBER_TO_TEXT(Char, Number, name)                                                                \
    Char* name(Number value, Char* to, int radix)                                                            \
    {                                                                                                        \
        writeNumber(value, to, 66, radix);                                                                   \
        return to;                                                                                           \
    }                                                                                                        \
    errno_t name##_s(Number value, Char* to, std::size_t size, int radix)                                    \
    {                                                                                                        \
        return writeNumber(value, to, size, radix);                                                          \
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
