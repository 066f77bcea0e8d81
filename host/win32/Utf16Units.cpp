#include "Utf16Units.h"

#include "Utf8.h"

namespace win32
{
std::vector<std::uint16_t> toUnits(std::wstring_view text)
{
    std::vector<std::uint16_t> units;
    units.reserve(text.size());
    for (wchar_t c : text) {
        const auto code = static_cast<char32_t>(c);
        if (code <= 0xFFFF) {
            units.push_back(static_cast<std::uint16_t>(code));
        } else if (code <= 0x10FFFF) {
            units.push_back(static_cast<std::uint16_t>(0xD800 + ((code - 0x10000) >> 10)));
            units.push_back(static_cast<std::uint16_t>(0xDC00 + (code & 0x3FF)));
        } else {
            units.push_back(static_cast<std::uint16_t>(replacementCharacter));
        }
    }
    return units;
}

std::wstring fromUnits(const std::uint16_t* units, std::size_t count)
{
    std::wstring text;
    text.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const bool pair = isHighSurrogate(units[i]) && i + 1 < count && isLowSurrogate(units[i + 1]);
        text += static_cast<wchar_t>(pair ? combineSurrogates(units[i], units[i + 1]) : units[i]);
        if (pair) ++i;
    }
    return text;
}
} // namespace win32
