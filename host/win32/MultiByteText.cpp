#include "crtstring.h"

#include "AnsiCodePage.h"

namespace
{
/// The bytes of a character: its lead byte and the trail bytes that are really there, so that a broken lead byte
/// does not swallow what follows.
std::size_t utf8Length(const unsigned char* character)
{
    const unsigned char lead = *character;
    const std::size_t wanted = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
    std::size_t length = 1;
    while (length < wanted && (character[length] & 0xC0) == 0x80)
        ++length;
    return length;
}

unsigned char lowerAscii(unsigned char c)
{
    return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c;
}
} // namespace

std::size_t _mbclen(const unsigned char* character)
{
    const UINT codePage = win32::ansiCodePage();
    if (codePage == 65001) return utf8Length(character);
    const bool isDoubleByte = codePage == 936 || codePage == 950;
    return isDoubleByte && *character > 0x80 && *character < 0xFF ? 2 : 1;
}

int _mbsicmp(const unsigned char* first, const unsigned char* second)
{
    std::size_t trailing = 0;
    for (;; ++first, ++second) {
        const bool isTrail = trailing != 0;
        trailing = isTrail ? trailing - 1 : _mbclen(first) - 1;
        const unsigned char a = isTrail ? *first : lowerAscii(*first),
                            b = isTrail ? *second : lowerAscii(*second);
        if (a != b) return a < b ? -1 : 1;
        if (!a) return 0;
    }
}
