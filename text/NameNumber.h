#pragma once

/// The numbers inside names: finding them, adding to them, comparing those at the end.

#include <string>
#include <string_view>
#include <vector>

namespace namenumber
{
/// A number in a text, sign and decimals included.
struct Place {
    std::size_t start;
    std::size_t end;
};

/// The numbers of a text from left to right.
std::vector<Place> find(std::wstring_view text);

/// The number with a step added, in its own format.
/// @return the empty text when a value takes more digits than are computed with
std::wstring increased(std::wstring_view number, double step);

/// The digits at the end of a text.
std::wstring_view endDigits(std::wstring_view text);

/// Below 0, 0 or above 0 as the first number, digits of any length, is less than, equal to or above the
/// second.
int compareDigits(std::wstring_view a, std::wstring_view b);
} // namespace namenumber
