#pragma once

#include <cstdint>

namespace colors
{
/// Red, green and blue, each 0 ... 255.
struct Rgb {
    std::uint8_t red = 0, green = 0, blue = 0;
    bool operator==(const Rgb& other) const
    {
        return red == other.red && green == other.green && blue == other.blue;
    }
    bool operator!=(const Rgb& other) const { return !(*this == other); }
};

/// The colour of a number of the AutoCAD Color Index, 1 ... 255; 7 is white, as on a dark screen. Other
/// numbers (0 by block, 256 by layer, 257 none) have no colour of their own and get that of 7.
Rgb rgbOfIndex(int index);

/// The number, 1 ... 255, whose colour is nearest to this one (by the sum of squares); the lowest of several.
int indexOfRgb(Rgb color);
} // namespace colors
