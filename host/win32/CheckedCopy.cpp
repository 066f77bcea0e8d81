#include "crtstring.h"

#include <algorithm>
#include <cerrno>
#include <string>

namespace
{
errno_t failed(errno_t error)
{
    errno = error;
    return error;
}

template <class Char>
errno_t emptied(Char* to, errno_t error)
{
    *to = 0;
    return failed(error);
}

/// How far the text goes, `limit` when it has no terminator before.
template <class Char>
std::size_t lengthWithin(const Char* text, std::size_t limit)
{
    return std::find(text, text + limit, Char()) - text;
}

/// The length of the part of `from` that is to be copied; no more than `enough` is looked at.
template <class Char>
std::size_t wantedLength(const Char* from, std::size_t count, std::size_t enough)
{
    std::size_t length = 0;
    while (length < std::min(count, enough) && from[length])
        ++length;
    return length;
}

/// Puts up to `count` characters behind the first `used` ones. Texts may not overlap, so that memmove is only
/// for callers who do not know that.
template <class Char>
errno_t put(Char* to, std::size_t size, std::size_t used, const Char* from, std::size_t count)
{
    const std::size_t room = size - used;
    const std::size_t length = wantedLength(from, count, room);
    const bool isCut = length == room;
    if (isCut && count != _TRUNCATE) return emptied(to, ERANGE);
    const std::size_t stored = isCut ? room - 1 : length;
    std::memmove(to + used, from, stored * sizeof(Char));
    to[used + stored] = 0;
    return isCut ? STRUNCATE : 0;
}

/// All of a text is asked for, and all of it has to fit.
constexpr std::size_t whole = _TRUNCATE - 1;

template <class Char>
errno_t copyText(Char* to, std::size_t size, const Char* from, std::size_t count)
{
    if (!to && !size && !count) return 0;
    if (!to || !size) return failed(EINVAL);
    if (!from) return count ? emptied(to, EINVAL) : (*to = 0, 0);
    return put(to, size, 0, from, count);
}

template <class Char>
errno_t appendText(Char* to, std::size_t size, const Char* from, std::size_t count)
{
    if (!to && !size && !count) return 0;
    if (!to || !size) return failed(EINVAL);
    const std::size_t used = lengthWithin(to, size);
    if (used == size || (!from && count)) return emptied(to, EINVAL);
    return from ? put(to, size, used, from, count) : 0;
}

errno_t checkBlock(void* to, std::size_t size, const void* from, std::size_t count)
{
    if (count == 0) return 0;
    if (!to) return failed(EINVAL);
    if (from && count <= size) return 0;
    std::memset(to, 0, size);
    return failed(from ? ERANGE : EINVAL);
}
} // namespace

errno_t wcscpy_s(wchar_t* to, std::size_t size, const wchar_t* from)
{
    return copyText(to, size, from, whole);
}
errno_t wcscat_s(wchar_t* to, std::size_t size, const wchar_t* from)
{
    return appendText(to, size, from, whole);
}
errno_t wcsncpy_s(wchar_t* to, std::size_t size, const wchar_t* from, std::size_t count)
{
    return copyText(to, size, from, count);
}
errno_t wcsncat_s(wchar_t* to, std::size_t size, const wchar_t* from, std::size_t count)
{
    return appendText(to, size, from, count);
}
errno_t strcpy_s(char* to, std::size_t size, const char* from)
{
    return copyText(to, size, from, whole);
}
errno_t strcat_s(char* to, std::size_t size, const char* from)
{
    return appendText(to, size, from, whole);
}
errno_t strncpy_s(char* to, std::size_t size, const char* from, std::size_t count)
{
    return copyText(to, size, from, count);
}
errno_t strncat_s(char* to, std::size_t size, const char* from, std::size_t count)
{
    return appendText(to, size, from, count);
}

errno_t memcpy_s(void* to, std::size_t size, const void* from, std::size_t count)
{
    return memmove_s(to, size, from, count);
}

errno_t memmove_s(void* to, std::size_t size, const void* from, std::size_t count)
{
    const errno_t error = checkBlock(to, size, from, count);
    if (!error && count) std::memmove(to, from, count);
    return error;
}

errno_t wmemcpy_s(wchar_t* to, std::size_t size, const wchar_t* from, std::size_t count)
{
    constexpr std::size_t most = SIZE_MAX / sizeof(wchar_t);
    return memcpy_s(to, std::min(size, most) * sizeof(wchar_t), from,
                    std::min(count, most) * sizeof(wchar_t));
}

std::size_t wcsnlen_s(const wchar_t* text, std::size_t limit)
{
    return text ? wcsnlen(text, limit) : 0;
}
std::size_t strnlen_s(const char* text, std::size_t limit)
{
    return text ? strnlen(text, limit) : 0;
}

wchar_t* wcstok_s(wchar_t* text, const wchar_t* separators, wchar_t** context)
{
    return wcstok(text, separators, context);
}
char* strtok_s(char* text, const char* separators, char** context)
{
    return strtok_r(text, separators, context);
}

wchar_t* _wcsdup(const wchar_t* text)
{
    return text ? wcsdup(text) : nullptr;
}
char* _strdup(const char* text)
{
    return text ? strdup(text) : nullptr;
}
