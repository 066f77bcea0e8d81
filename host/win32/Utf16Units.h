#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace win32
{
/// Wide text as UTF-16 units, as Windows keeps it outside of this process, and back. Lone surrogates go
/// through unchanged; what is no character becomes U+FFFD.
std::vector<std::uint16_t> toUnits(std::wstring_view text);
std::wstring fromUnits(const std::uint16_t* units, std::size_t count);
} // namespace win32
