#pragma once

#include <string_view>

namespace dxf
{
/// `text` without the blanks, tabs, line ends and NULs around it.
inline std::string_view withoutBlanks(std::string_view text)
{
    constexpr std::string_view blanks(" \t\r\n\0", 5);
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}
} // namespace dxf
