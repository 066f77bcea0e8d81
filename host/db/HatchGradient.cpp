/// Gradients of hatches.

#include "dbhatch.h"
#include "IndexColors.h"
#include "PlanarCoords.h"

#include <algorithm>

namespace
{
constexpr const wchar_t* names[] = {L"LINEAR",           L"CYLINDER",     L"INVCYLINDER",
                                    L"SPHERICAL",        L"INVSPHERICAL", L"HEMISPHERICAL",
                                    L"INVHEMISPHERICAL", L"CURVED",       L"INVCURVED"};

/// Red, green and blue of a stop.
AcCmColor colorOf(const hatch::GradientStop& stop)
{
    AcCmColor color;
    if (stop.rgb)
        color.setRGB(static_cast<std::uint8_t>(*stop.rgb >> 16), static_cast<std::uint8_t>(*stop.rgb >> 8),
                     static_cast<std::uint8_t>(*stop.rgb));
    else if (stop.index)
        color.setColorIndex(*stop.index);
    return color;
}

hatch::GradientStop stopOf(const AcCmColor& color, double value)
{
    hatch::GradientStop stop;
    stop.value = value;
    if (color.isByColor())
        stop.rgb = static_cast<std::int32_t>(color.color() & 0xFFFFFF);
    else
        stop.index = color.colorIndex();
    return stop;
}

colors::Rgb rgbOf(const AcCmColor& color)
{
    if (color.isByColor()) return {color.red(), color.green(), color.blue()};
    return colors::rgbOfIndex(color.colorIndex());
}

std::uint8_t between(int from, int to, double part)
{
    return static_cast<std::uint8_t>(from + (to - from) * part + 0.5);
}

AcCmColor mixed(const AcCmColor& from, const AcCmColor& to, double part)
{
    const colors::Rgb a = rgbOf(from), b = rgbOf(to);
    AcCmColor color;
    color.setRGB(between(a.red, b.red, part), between(a.green, b.green, part), between(a.blue, b.blue, part));
    return color;
}
} // namespace

/// The gradient, with what a new one has.
hatch::Gradient& AcDbHatch::needGradient()
{
    if (mGradient) return *mGradient;
    hatch::Gradient& gradient = mGradient.need();
    gradient.name = names[0];
    gradient.colorCount = 2;
    constexpr std::int32_t blue = 0x0000FF, yellow = 0xFFFF00;
    gradient.stops = {{0.0, {}, blue}, {1.0, {}, yellow}};
    return gradient;
}

Acad::ErrorStatus AcDbHatch::setHatchObjectType(HatchObjectType type)
{
    if (type != kHatchObject && type != kGradientObject) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginPatternChange();
    if (status != Acad::eOk) return status;
    if (type == kHatchObject && !mGradient) return status;
    needGradient().isGradient = type == kGradientObject;
    if (type == kGradientObject) {
        mName = L"SOLID";
        mSolid = 1;
        mLines.clear();
    }
    return status;
}

Acad::ErrorStatus AcDbHatch::setGradient(GradientPatternType gradType, const ACHAR* gradName)
{
    if (gradType != kPreDefinedGradient || !gradName) return Acad::eInvalidInput;
    const auto isName = [gradName](const wchar_t* name) {
        return CString(name).CompareNoCase(gradName) == 0;
    };
    const auto* found = std::find_if(std::begin(names), std::end(names), isName);
    if (found == std::end(names)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) needGradient().name = *found;
    return status;
}

Acad::ErrorStatus AcDbHatch::setGradientAngle(double angle)
{
    if (!isFinite(angle)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) needGradient().angle = angle;
    return status;
}

Acad::ErrorStatus AcDbHatch::setGradientShift(float shift)
{
    if (!(shift >= 0.0F && shift <= 1.0F)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) needGradient().shift = shift;
    return status;
}

Acad::ErrorStatus AcDbHatch::setGradientOneColorMode(bool oneColorMode)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) needGradient().isOneColor = oneColorMode;
    return status;
}

Acad::ErrorStatus AcDbHatch::setShadeTintValue(float value)
{
    if (!(value >= 0.0F && value <= 1.0F)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) needGradient().tint = value;
    return status;
}

Acad::ErrorStatus AcDbHatch::setGradientColors(unsigned int count, const AcCmColor* colors,
                                               const float* values)
{
    if (count != 2 || !colors || !values || values[0] != 0.0F || values[1] != 1.0F)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) needGradient().stops = {stopOf(colors[0], 0.0), stopOf(colors[1], 1.0)};
    return status;
}

Acad::ErrorStatus AcDbHatch::getGradientColors(unsigned int& count, AcCmColor*& colors, float*& values) const
{
    count = mGradient ? static_cast<unsigned int>(mGradient->stops.size()) : 0;
    colors = new AcCmColor[count];
    values = new float[count];
    for (unsigned int i = 0; i < count; ++i) {
        colors[i] = colorOf(mGradient->stops[i]);
        values[i] = static_cast<float>(mGradient->stops[i].value);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::evaluateGradientColorAt(float value, AcCmColor& color) const
{
    if (!mGradient || mGradient->stops.empty() || !(value >= 0.0F && value <= 1.0F))
        return Acad::eInvalidInput;
    const auto& stops = mGradient->stops;
    const auto next =
        std::find_if(stops.begin(), stops.end(), [value](const auto& at) { return at.value >= value; });
    if (next == stops.begin() || next == stops.end()) {
        color = colorOf(next == stops.end() ? stops.back() : *next);
        return Acad::eOk;
    }
    const auto& last = *(next - 1);
    color = mixed(colorOf(last), colorOf(*next), (value - last.value) / (next->value - last.value));
    return Acad::eOk;
}
