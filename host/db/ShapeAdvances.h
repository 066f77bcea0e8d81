#pragma once

#include <cstdint>
#include <string_view>

namespace lettering
{
/// How far a character of a shape font moves the pen, in text heights; 0 when that is not known. `font` is
/// the bare name of the font. Known are the printable ASCII characters of "romans" and "simplex".
double shapeAdvance(std::wstring_view font, std::uint32_t character);
} // namespace lettering
