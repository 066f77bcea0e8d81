#include "crtstring.h"

#include "CaseMap.h"

#include <algorithm>
#include <cerrno>

namespace
{
/// Narrow text is changed and compared byte by byte: no letter beyond ASCII has a case there.
wchar_t lower(wchar_t c)
{
    return win32::toLower(c);
}
char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}
wchar_t upper(wchar_t c)
{
    return win32::toUpper(c);
}
char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

std::uint32_t order(wchar_t c)
{
    return static_cast<std::uint32_t>(c);
}
std::uint32_t order(char c)
{
    return static_cast<unsigned char>(c);
}

template <class Char>
int compare(const Char* first, const Char* second, std::size_t count)
{
    for (; count; --count, ++first, ++second) {
        const Char a = lower(*first), b = lower(*second);
        if (a != b) return order(a) < order(b) ? -1 : 1;
        if (!a) break;
    }
    return 0;
}

template <class Char, class Map>
Char* changed(Char* text, Map map)
{
    for (Char* c = text; c && *c; ++c)
        *c = map(*c);
    return text;
}

template <class Char, class Map>
errno_t changeChecked(Char* text, std::size_t size, Map map)
{
    const bool isText = text && std::find(text, text + size, Char()) != text + size;
    if (isText) {
        changed(text, map);
        return 0;
    }
    if (text && size) *text = 0;
    return errno = EINVAL;
}

template <class Char>
Char* reversed(Char* text, std::size_t length)
{
    std::reverse(text, text + length);
    return text;
}

const auto toLower = [](auto c) { return lower(c); };
const auto toUpper = [](auto c) { return upper(c); };
} // namespace

namespace crt
{
wchar_t toUpper(wchar_t character)
{
    return win32::toUpper(character);
}
wchar_t toLower(wchar_t character)
{
    return win32::toLower(character);
}
} // namespace crt

int _wcsicmp(const wchar_t* first, const wchar_t* second)
{
    return compare(first, second, SIZE_MAX);
}
int _wcsnicmp(const wchar_t* first, const wchar_t* second, std::size_t count)
{
    return compare(first, second, count);
}
int _stricmp(const char* first, const char* second)
{
    return compare(first, second, SIZE_MAX);
}
int _strnicmp(const char* first, const char* second, std::size_t count)
{
    return compare(first, second, count);
}

wchar_t* _wcsupr(wchar_t* text)
{
    return changed(text, toUpper);
}
wchar_t* _wcslwr(wchar_t* text)
{
    return changed(text, toLower);
}
wchar_t* _wcsrev(wchar_t* text)
{
    return reversed(text, std::wcslen(text));
}
char* _strupr(char* text)
{
    return changed(text, toUpper);
}
char* _strlwr(char* text)
{
    return changed(text, toLower);
}
char* _strrev(char* text)
{
    return reversed(text, std::strlen(text));
}
errno_t _wcsupr_s(wchar_t* text, std::size_t size)
{
    return changeChecked(text, size, toUpper);
}
errno_t _wcslwr_s(wchar_t* text, std::size_t size)
{
    return changeChecked(text, size, toLower);
}
errno_t _strupr_s(char* text, std::size_t size)
{
    return changeChecked(text, size, toUpper);
}
errno_t _strlwr_s(char* text, std::size_t size)
{
    return changeChecked(text, size, toLower);
}
