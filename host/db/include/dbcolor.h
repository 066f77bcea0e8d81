#pragma once

/// Colours of entities and layers: by layer, by block, an index of the colour table, or red, green and blue.

#include "acadstrc.h"
#include "dbid.h"

#include <cstdint>

/// A colour in four bytes: the method and its value.
class AcCmEntityColor
{
public:
    enum ColorMethod {
        kByLayer = 0xC0,
        kByBlock = 0xC1,
        kByColor = 0xC2,
        kByACI = 0xC3,
        kByPen = 0xC4,
        kForeground = 0xC5,
        kLayerOff = 0xC6,
        kLayerFrozen = 0xC7,
        kNone = 0xC8
    };
    enum { kACIbyBlock = 0, kACIforeground = 7, kACIbyLayer = 256, kACIstandard = 7, kACImaximum = 255, kACInone = 257 };

    constexpr AcCmEntityColor() = default;
    AcCmEntityColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue) { setRGB(red, green, blue); }

    ColorMethod colorMethod() const { return static_cast<ColorMethod>(mMethod); }
    Acad::ErrorStatus setColorMethod(ColorMethod method);

    bool isByLayer() const { return mMethod == kByLayer; }
    bool isByBlock() const { return mMethod == kByBlock; }
    bool isByColor() const { return mMethod == kByColor; }
    bool isByACI() const { return mMethod == kByACI; }
    bool isNone() const { return mMethod == kNone; }

    /// 0 by block, 1 to 255, 256 by layer, 257 none; 7 for red, green and blue.
    std::int16_t colorIndex() const;
    /// Also sets the method; eInvalidInput outside 0 to 257, and nothing is changed.
    Acad::ErrorStatus setColorIndex(int index);

    std::uint8_t red() const { return mRed; }
    std::uint8_t green() const { return mGreen; }
    std::uint8_t blue() const { return mBlue; }
    void setRGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue);
    /// 0xMMRRGGBB, M being the method.
    std::uint32_t color() const;
    Acad::ErrorStatus setColor(std::uint32_t methodAndValue);

    bool operator==(const AcCmEntityColor& other) const { return color() == other.color(); }
    bool operator!=(const AcCmEntityColor& other) const { return !(*this == other); }

private:
    std::uint8_t mMethod = kByLayer;
    std::uint8_t mRed = 0, mGreen = 0, mBlue = 0; ///< index: the low byte is mBlue
};

/// A colour as dialogs and callers use it.
class AcCmColor : public AcCmEntityColor
{
public:
    AcCmColor() = default;
    AcCmColor(const AcCmEntityColor& color) : AcCmEntityColor(color) {}
    const AcCmEntityColor& entityColor() const { return *this; }
};

/// How much of what lies behind is seen.
class AcCmTransparency
{
public:
    enum transparencyMethod { kByLayer = 0, kByBlock = 1, kByAlpha = 2, kErrorValue = 3 };

    constexpr AcCmTransparency() = default;
    constexpr explicit AcCmTransparency(std::uint8_t alpha) : mMethod(kByAlpha), mAlpha(alpha) {}

    transparencyMethod method() const { return static_cast<transparencyMethod>(mMethod); }
    void setMethod(transparencyMethod method) { mMethod = method; }
    bool isByLayer() const { return mMethod == kByLayer; }
    bool isByBlock() const { return mMethod == kByBlock; }
    bool isByAlpha() const { return mMethod == kByAlpha; }
    /// 255 solid, 0 clear.
    std::uint8_t alpha() const { return mAlpha; }
    void setAlpha(std::uint8_t alpha)
    {
        mMethod = kByAlpha;
        mAlpha = alpha;
    }
    void setAlphaPercent(double percent) { setAlpha(static_cast<std::uint8_t>(percent * 255.0 + 0.5)); }
    double alphaPercent() const { return mAlpha / 255.0; }
    bool isSolid() const { return mMethod == kByAlpha && mAlpha == 255; }
    bool isClear() const { return mMethod == kByAlpha && mAlpha == 0; }

    /// The number of group 440: the method in the upper byte, the alpha in the lowest.
    std::uint32_t serializeOut() const { return static_cast<std::uint32_t>(mMethod) << 24 | (isByAlpha() ? mAlpha : 0u); }
    void serializeIn(std::uint32_t value)
    {
        mMethod = static_cast<std::uint8_t>(value >> 24 & 3);
        mAlpha = isByAlpha() ? static_cast<std::uint8_t>(value & 255) : 255;
    }

    bool operator==(const AcCmTransparency& other) const { return serializeOut() == other.serializeOut(); }
    bool operator!=(const AcCmTransparency& other) const { return !(*this == other); }

private:
    std::uint8_t mMethod = kByLayer;
    std::uint8_t mAlpha = 255;
};
