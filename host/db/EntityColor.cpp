#include "dbcolor.h"

Acad::ErrorStatus AcCmEntityColor::setColorMethod(ColorMethod method)
{
    if (method < kByLayer || method > kNone) return Acad::eInvalidInput;
    mMethod = static_cast<std::uint8_t>(method);
    return Acad::eOk;
}

std::int16_t AcCmEntityColor::colorIndex() const
{
    switch (mMethod) {
    case kByBlock: return kACIbyBlock;
    case kByLayer: return kACIbyLayer;
    case kNone: return kACInone;
    case kByACI: return mBlue;
    default: return kACIstandard;
    }
}

Acad::ErrorStatus AcCmEntityColor::setColorIndex(int index)
{
    if (index < 0 || index > kACInone) return Acad::eInvalidInput;
    *this = AcCmEntityColor();
    if (index == kACIbyLayer) return Acad::eOk;
    mMethod = index == kACIbyBlock ? kByBlock : index == kACInone ? kNone : kByACI;
    mBlue = mMethod == kByACI ? static_cast<std::uint8_t>(index) : 0;
    return Acad::eOk;
}

void AcCmEntityColor::setRGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    mMethod = kByColor;
    mRed = red;
    mGreen = green;
    mBlue = blue;
}

std::uint32_t AcCmEntityColor::color() const
{
    return static_cast<std::uint32_t>(mMethod) << 24 | static_cast<std::uint32_t>(mRed) << 16 |
           static_cast<std::uint32_t>(mGreen) << 8 | mBlue;
}

Acad::ErrorStatus AcCmEntityColor::setColor(std::uint32_t methodAndValue)
{
    const Acad::ErrorStatus status = setColorMethod(static_cast<ColorMethod>(methodAndValue >> 24));
    if (status != Acad::eOk) return status;
    mRed = static_cast<std::uint8_t>(methodAndValue >> 16);
    mGreen = static_cast<std::uint8_t>(methodAndValue >> 8);
    mBlue = static_cast<std::uint8_t>(methodAndValue);
    return Acad::eOk;
}
