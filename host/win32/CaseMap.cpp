#include <unicode/uchar.h>

#include "CaseMap.h"

#include <algorithm>
#include <array>

namespace
{
constexpr char32_t microSign = 0xB5;

/// Keeps out what Unicode maps across the border of ASCII, and the micro sign, which is no Greek letter.
char32_t admissible(char32_t from, char32_t to)
{
    return from == microSign || (from >= 0x80 && to < 0x80) ? from : to;
}

char32_t upperOf(char32_t c)
{
    return admissible(c, static_cast<char32_t>(u_toupper(static_cast<UChar32>(c))));
}
char32_t lowerOf(char32_t c)
{
    return admissible(c, static_cast<char32_t>(u_tolower(static_cast<UChar32>(c))));
}

using Table = std::array<std::uint16_t, 65536>;

Table makeTable(char32_t (*map)(char32_t))
{
    Table table;
    for (char32_t c = 0; c < table.size(); ++c) {
        const char32_t mapped = map(c);
        table[c] = static_cast<std::uint16_t>(mapped < table.size() ? mapped : c);
    }
    return table;
}

/// One table for the whole process; supplementary letters are rare enough to be asked for one by one.
wchar_t mapped(const Table& table, char32_t (*map)(char32_t), wchar_t c)
{
    const auto code = static_cast<char32_t>(c);
    if (code < table.size()) return static_cast<wchar_t>(table[code]);
    return code <= 0x10FFFF ? static_cast<wchar_t>(map(code)) : c;
}
} // namespace

namespace win32
{
wchar_t toUpper(wchar_t c)
{
    static const Table table = makeTable(upperOf);
    return mapped(table, upperOf, c);
}

wchar_t toLower(wchar_t c)
{
    static const Table table = makeTable(lowerOf);
    return mapped(table, lowerOf, c);
}

int compareNoCase(const wchar_t* a, std::size_t aLength, const wchar_t* b, std::size_t bLength)
{
    const std::size_t common = std::min(aLength, bLength);
    for (std::size_t i = 0; i < common; ++i)
        if (a[i] != b[i]) {
            const wchar_t left = toUpper(a[i]), right = toUpper(b[i]);
            if (left != right) return left < right ? -1 : 1;
        }
    return aLength < bLength ? -1 : aLength > bLength;
}
} // namespace win32
