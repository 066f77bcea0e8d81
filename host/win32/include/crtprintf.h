#pragma once

/// Formatted text in a buffer of the caller. The directives are those of crtformat.h; arguments may be
/// strings of either width, passed as they are. The functions without `v` are templates because a string
/// object cannot pass through `...`.
///
/// Results count characters without the terminator. -1 with errno set: EINVAL for a null buffer, a null
/// format or no room at all, ERANGE where a text does not fit, ENOMEM. The host never ends the process for
/// it.

#include "crtformat.h"
#include "crtstring.h"

#include <cstdio>
#include <cwchar>

namespace crt
{
/// What happens to a text that does not fit.
enum class Overflow {
    fails,        ///< The buffer is emptied: -1, ERANGE.
    failsCounted, ///< Cut at the count if that is below the size or _TRUNCATE, result -1; else as `fails`.
    unterminated, ///< The buffer is filled, without a terminator: -1. Exactly full is no error.
    terminated    ///< The buffer is filled and terminated: -1.
};

/// A buffer of `size` characters; `count` is looked at by `failsCounted` only.
template <class Char>
struct FormatBuffer {
    Char* to;
    std::size_t size;
    std::size_t count = _TRUNCATE;
};

int formatInto(FormatBuffer<wchar_t> buffer, Overflow rule, const wchar_t* format, const FormatArg* args,
               std::size_t count);
int formatInto(FormatBuffer<char> buffer, Overflow rule, const char* format, const FormatArg* args,
               std::size_t count);
int formatIntoV(FormatBuffer<wchar_t> buffer, Overflow rule, const wchar_t* format, va_list args);
int formatIntoV(FormatBuffer<char> buffer, Overflow rule, const char* format, va_list args);

template <class Char, class... Args>
int formatTyped(FormatBuffer<Char> buffer, Overflow rule, const Char* format, const Args&... args)
{
    const auto list = formatArgs(args...);
    return formatInto(buffer, rule, format, list.begin(), list.size());
}
} // namespace crt

/// QM_PRINT_FAMILY declares one family for one width of character:
///
/// secure         The whole text or none: a text that does not fit empties the buffer (ERANGE).
/// secureCounted  At most `count` characters and a terminator. A longer text is cut, with result -1, when the
///                count is below the size or _TRUNCATE; otherwise as `secure`.
/// counted        At most `count` characters; a text of exactly that length is not terminated, a longer one
///                is cut, not terminated, and -1. A null buffer with count 0 measures.
/// measure        The length.
#define QM_PRINT_FAMILY(Char, secure, secureCounted, counted, measure)                                       \
    template <class... Args>                                                                                 \
    int secure(Char* to, std::size_t size, const Char* format, const Args&... args)                          \
    {                                                                                                        \
        return crt::formatTyped(crt::FormatBuffer<Char>{to, size}, crt::Overflow::fails, format, args...);   \
    }                                                                                                        \
    template <std::size_t Size, class... Args>                                                               \
    int secure(Char(&to)[Size], const Char* format, const Args&... args)                                     \
    {                                                                                                        \
        return secure(to, Size, format, args...);                                                            \
    }                                                                                                        \
    template <class... Args>                                                                                 \
    int secureCounted(Char* to, std::size_t size, std::size_t count, const Char* format,                     \
                      const Args&... args)                                                                   \
    {                                                                                                        \
        return crt::formatTyped(crt::FormatBuffer<Char>{to, size, count}, crt::Overflow::failsCounted,       \
                                format, args...);                                                            \
    }                                                                                                        \
    template <std::size_t Size, class... Args>                                                               \
    int secureCounted(Char(&to)[Size], std::size_t count, const Char* format, const Args&... args)           \
    {                                                                                                        \
        return secureCounted(to, Size, count, format, args...);                                              \
    }                                                                                                        \
    template <class... Args>                                                                                 \
    int counted(Char* to, std::size_t count, const Char* format, const Args&... args)                        \
    {                                                                                                        \
        return crt::formatTyped(crt::FormatBuffer<Char>{to, count}, crt::Overflow::unterminated, format,     \
                                args...);                                                                    \
    }                                                                                                        \
    template <class... Args>                                                                                 \
    int measure(const Char* format, const Args&... args)                                                     \
    {                                                                                                        \
        return counted(nullptr, 0, format, args...);                                                         \
    }

QM_PRINT_FAMILY(wchar_t, swprintf_s, _snwprintf_s, _snwprintf, _scwprintf)
QM_PRINT_FAMILY(char, sprintf_s, _snprintf_s, _snprintf, _scprintf)
#undef QM_PRINT_FAMILY

/// A text that does not fit is cut and terminated, with result -1.
template <class Arg, class... Args>
int swprintf(wchar_t* to, std::size_t size, const wchar_t* format, const Arg& arg, const Args&... args)
{
    return crt::formatTyped(crt::FormatBuffer<wchar_t>{to, size}, crt::Overflow::terminated, format, arg,
                            args...);
}
template <std::size_t Size, class... Args>
int swprintf(wchar_t (&to)[Size], const wchar_t* format, const Args&... args)
{
    return crt::formatTyped(crt::FormatBuffer<wchar_t>{to, Size}, crt::Overflow::terminated, format, args...);
}

int vswprintf_s(wchar_t* to, std::size_t size, const wchar_t* format, va_list args);
int _vsnwprintf(wchar_t* to, std::size_t count, const wchar_t* format, va_list args);
int _vsnwprintf_s(wchar_t* to, std::size_t size, std::size_t count, const wchar_t* format, va_list args);
int _vscwprintf(const wchar_t* format, va_list args);
int vsprintf_s(char* to, std::size_t size, const char* format, va_list args);
int _vsnprintf(char* to, std::size_t count, const char* format, va_list args);
int _vsnprintf_s(char* to, std::size_t size, std::size_t count, const char* format, va_list args);
int _vscprintf(const char* format, va_list args);
