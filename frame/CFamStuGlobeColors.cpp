#include "CFamStuGlobe.h"

#include "acedads.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>

namespace
{
struct Bytes {
    int red, green, blue;
};

constexpr Bytes bytesOf(DWORD rgb) // 0x00RRGGBB
{
    return {int(rgb >> 16 & 255), int(rgb >> 8 & 255), int(rgb & 255)};
}

int distance(const Bytes& a, const Bytes& b)
{
    return std::abs(a.red - b.red) + std::abs(a.green - b.green) + std::abs(a.blue - b.blue);
}

std::uint8_t scaled(int byte, float factor)
{
    const float value = std::round(static_cast<float>(byte) * factor);
    return value > 0 ? static_cast<std::uint8_t>(std::min(value, 255.0f)) : 0; // NaN too
}
} // namespace

DWORD CFamStuGlobe::GetColorFromIndex(int index)
{
    return index > 255 ? static_cast<DWORD>(index) : acedGetRGB(index);
}

int CFamStuGlobe::GetColorIndexFromRGB(DWORD rgb)
{
    const Bytes wanted = bytesOf(rgb);
    int nearest = 0, least = INT_MAX;
    for (int index = 1; index <= 254; ++index) {
        const int away = distance(bytesOf(acedGetRGB(index)), wanted);
        if (away >= least) continue;
        nearest = index;
        least = away;
    }
    return nearest;
}

AcCmColor CFamStuGlobe::GetAcCmColorFromIndex(int index)
{
    AcCmColor color;
    color.setColorIndex(index);
    return color;
}

AcCmColor CFamStuGlobe::ChangeColor(int index, float factor)
{
    const Bytes bytes = bytesOf(acedGetRGB(index));
    AcCmColor color;
    color.setRGB(scaled(bytes.red, factor), scaled(bytes.green, factor), scaled(bytes.blue, factor));
    return color;
}
