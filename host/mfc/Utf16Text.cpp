#include "Utf16Text.h"

#include <string>

namespace
{
constexpr bool wideIsUtf16 = sizeof(wchar_t) == 2;
constexpr char16_t replacement = 0xfffd;

bool isHighSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xd800;
}
bool isLowSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xdc00;
}

void appendUnits(std::u16string& units, std::uint32_t character)
{
    if (character < 0x10000) {
        units += static_cast<char16_t>(character);
    } else if (character < 0x110000) {
        units += static_cast<char16_t>(0xd800 + ((character - 0x10000) >> 10));
        units += static_cast<char16_t>(0xdc00 + (character & 0x3ff));
    } else {
        units += replacement;
    }
}
} // namespace

namespace mfc
{
std::u16string toUtf16(const wchar_t* text, size_t length)
{
    std::u16string units;
    units.reserve(length);
    for (size_t i = 0; i < length; ++i)
        appendUnits(units, static_cast<std::uint32_t>(text[i]));
    return units;
}

CString fromUtf16(const std::u16string& units)
{
    std::wstring text;
    text.reserve(units.size());
    for (size_t i = 0; i < units.size(); ++i) {
        const bool isPair = isHighSurrogate(units[i]) && i + 1 < units.size() && isLowSurrogate(units[i + 1]);
        if (wideIsUtf16 || !isPair) {
            text += static_cast<wchar_t>(units[i]);
        } else {
            text += static_cast<wchar_t>(0x10000 + ((units[i] & 0x3ff) << 10) + (units[i + 1] & 0x3ff));
            ++i;
        }
    }
    return CString(text.data(), static_cast<int>(text.size()));
}
} // namespace mfc
