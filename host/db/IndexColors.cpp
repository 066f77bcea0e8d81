#include "IndexColors.h"

#include <array>

namespace colors
{
namespace
{
constexpr Rgb basicColors[] = {{255, 0, 0},   {255, 255, 0},   {0, 255, 0},     {0, 255, 255},  {0, 0, 255},
                               {255, 0, 255}, {255, 255, 255}, {128, 128, 128}, {192, 192, 192}};

/// How much of a primary colour is in the hue, 0 ... 4 quarters, `step` times 15 degrees from its full
/// strength.
constexpr int quarters(int step)
{
    const int away = step > 12 ? 24 - step : step;
    return away <= 4 ? 4 : away >= 8 ? 0 : 8 - away;
}

/// 10 ... 249: 24 hues, 15 degrees apart, each in five brightnesses, full and half-way to grey (odd numbers).
constexpr std::uint8_t wheelPart(int index, int primaryHue)
{
    constexpr int brightness[] = {255, 165, 127, 76, 38};
    const int hue = index / 10 - 1;
    const int part = quarters((hue - primaryHue + 24) % 24);
    const int full = brightness[index % 10 / 2];
    // Half-way to grey: full / 2 + full / 2 * part / 4, in whole numbers.
    return static_cast<std::uint8_t>(index % 2 == 0 ? full * part / 4 : full * (4 + part) / 8);
}

constexpr Rgb compute(int index)
{
    if (index < 10) return basicColors[index - 1];
    if (index < 250) return {wheelPart(index, 0), wheelPart(index, 8), wheelPart(index, 16)};
    // 250 ... 255: six greys from 20 % to white.
    const auto grey = static_cast<std::uint8_t>(51 + 204 * (index - 250) / 5);
    return {grey, grey, grey};
}

constexpr std::array<Rgb, 256> makeTable()
{
    std::array<Rgb, 256> table{};
    for (int i = 1; i < 256; ++i)
        table[static_cast<std::size_t>(i)] = compute(i);
    table[0] = compute(7);
    return table;
}

constexpr std::array<Rgb, 256> table = makeTable();

int distance(Rgb a, Rgb b)
{
    const int red = a.red - b.red, green = a.green - b.green, blue = a.blue - b.blue;
    return red * red + green * green + blue * blue;
}
} // namespace

Rgb rgbOfIndex(int index)
{
    return table[static_cast<std::size_t>(index >= 1 && index <= 255 ? index : 7)];
}

int indexOfRgb(Rgb color)
{
    int best = 1;
    for (int i = 2; i < 256; ++i)
        if (distance(rgbOfIndex(i), color) < distance(rgbOfIndex(best), color)) best = i;
    return best;
}
} // namespace colors
