#include "dbplotsetval.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{
struct Media {
    const wchar_t* name;
    const wchar_t* shown;
    double width, height; ///< millimetres
};

// ISO 216, upright.
constexpr Media papers[] = {
    {L"ISO_A0_(841.00_x_1189.00_MM)", L"ISO A0 (841.00 x 1189.00 MM)", 841, 1189},
    {L"ISO_A1_(594.00_x_841.00_MM)", L"ISO A1 (594.00 x 841.00 MM)", 594, 841},
    {L"ISO_A2_(420.00_x_594.00_MM)", L"ISO A2 (420.00 x 594.00 MM)", 420, 594},
    {L"ISO_A3_(297.00_x_420.00_MM)", L"ISO A3 (297.00 x 420.00 MM)", 297, 420},
    {L"ISO_A4_(210.00_x_297.00_MM)", L"ISO A4 (210.00 x 297.00 MM)", 210, 297},
};
constexpr double millimetresPerInch = 25.4;

/// Paper and drawing of each standard scale.
struct Scale {
    double paper, drawing;
};
constexpr Scale scales[AcDbPlotSettings::kStdScaleCount] = {
    {0, 1},        {1.0 / 128, 12}, {1.0 / 64, 12}, {1.0 / 32, 12}, {1.0 / 16, 12}, {3.0 / 32, 12}, {1.0 / 8, 12},
    {3.0 / 16, 12}, {1.0 / 4, 12},   {3.0 / 8, 12},  {1.0 / 2, 12},  {3.0 / 4, 12},  {1, 12},        {3, 12},
    {6, 12},       {12, 12},        {1, 1},         {1, 2},         {1, 4},         {1, 8},         {1, 10},
    {1, 16},       {1, 20},         {1, 30},        {1, 40},        {1, 50},        {1, 100},       {2, 1},
    {4, 1},        {8, 1},          {10, 1},        {100, 1},       {1000, 1},
};
constexpr const wchar_t* noDevice = L"None";

const Media* paperNamed(const ACHAR* name)
{
    for (const Media& paper : papers) {
        if (name && CString(name).CompareNoCase(paper.name) == 0) return &paper;
    }
    return nullptr;
}

/// The gate of every member, then the change.
template <class Change>
Acad::ErrorStatus change(AcDbPlotSettings* settings, bool isValid, Change apply)
{
    if (!settings) return Acad::eNullObjectPointer;
    if (!isValid) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = settings->assertWriteEnabled();
    if (status == Acad::eOk) apply();
    return status;
}
} // namespace

Acad::ErrorStatus AcDbPlotSettingsValidator::setPlotCfgName(AcDbPlotSettings* settings, const ACHAR* device,
                                                            const ACHAR* media)
{
    const bool isKnown = device && CString(device).CompareNoCase(noDevice) == 0 && (!media || paperNamed(media));
    const Acad::ErrorStatus status = change(settings, isKnown, [&] { settings->mDevice = device; });
    return status == Acad::eOk && media ? setCanonicalMediaName(settings, media) : status;
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setCanonicalMediaName(AcDbPlotSettings* settings, const ACHAR* media)
{
    const Media* paper = paperNamed(media);
    return change(settings, paper != nullptr, [&] {
        settings->mMedia = paper->name;
        settings->mPaperWidth = paper->width;
        settings->mPaperHeight = paper->height;
    });
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setClosestMediaName(AcDbPlotSettings* settings, double width,
                                                                 double height, AcDbPlotSettings::PlotPaperUnits units,
                                                                 bool)
{
    if (!settings) return Acad::eNullObjectPointer;
    const bool isLength = units == AcDbPlotSettings::kInches || units == AcDbPlotSettings::kMillimeters;
    if (!isLength || !(width > 0.0) || !(height > 0.0)) return Acad::eInvalidInput;
    const double unit = units == AcDbPlotSettings::kInches ? millimetresPerInch : 1.0;
    const double shorter = std::min(width, height) * unit, longer = std::max(width, height) * unit;
    const auto difference = [&](const Media& paper) {
        return std::fabs(paper.width - shorter) + std::fabs(paper.height - longer);
    };
    const Media& closest = *std::min_element(std::begin(papers), std::end(papers), [&](const Media& a, const Media& b) {
        return difference(a) < difference(b);
    });
    const Acad::ErrorStatus status = setCanonicalMediaName(settings, closest.name);
    return status == Acad::eOk ? setPlotPaperUnits(settings, units) : status;
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setDefaultPlotConfig(AcDbPlotSettings* settings)
{
    return setPlotCfgName(settings, noDevice, papers[0].name);
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setPlotOrigin(AcDbPlotSettings* settings, double x, double y)
{
    return change(settings, std::isfinite(x) && std::isfinite(y), [&] {
        settings->mOriginX = x;
        settings->mOriginY = y;
    });
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setPlotPaperUnits(AcDbPlotSettings* settings,
                                                               AcDbPlotSettings::PlotPaperUnits units)
{
    const bool isValid = units >= AcDbPlotSettings::kInches && units <= AcDbPlotSettings::kPixels;
    return change(settings, isValid, [&] { settings->mUnits = static_cast<std::int16_t>(units); });
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setPlotRotation(AcDbPlotSettings* settings,
                                                             AcDbPlotSettings::PlotRotation rotation)
{
    const bool isValid = rotation >= AcDbPlotSettings::k0degrees && rotation <= AcDbPlotSettings::k270degrees;
    return change(settings, isValid, [&] { settings->mRotation = static_cast<std::int16_t>(rotation); });
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setPlotCentered(AcDbPlotSettings* settings, bool centered)
{
    return change(settings, true, [&] { settings->set(AcDbPlotSettings::centeredFlag, centered); });
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setPlotType(AcDbPlotSettings* settings, AcDbPlotSettings::PlotType type)
{
    const bool isValid = type >= AcDbPlotSettings::kDisplay && type <= AcDbPlotSettings::kLayout;
    return change(settings, isValid, [&] { settings->mType = static_cast<std::int16_t>(type); });
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setPlotWindowArea(AcDbPlotSettings* settings, double xMin, double yMin,
                                                               double xMax, double yMax)
{
    return change(settings, xMin < xMax && yMin < yMax, [&] {
        settings->mWindowLeft = xMin;
        settings->mWindowBottom = yMin;
        settings->mWindowRight = xMax;
        settings->mWindowTop = yMax;
    });
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setPlotViewName(AcDbPlotSettings* settings, const ACHAR* view)
{
    return change(settings, view != nullptr, [&] { settings->mView = view; });
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setUseStandardScale(AcDbPlotSettings* settings, bool standard)
{
    return change(settings, true, [&] { settings->set(AcDbPlotSettings::standardScaleFlag, standard); });
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setStdScaleType(AcDbPlotSettings* settings,
                                                             AcDbPlotSettings::StdScaleType type)
{
    const bool isValid = type >= AcDbPlotSettings::kScaleToFit && type < AcDbPlotSettings::kStdScaleCount;
    return change(settings, isValid, [&] {
        settings->mStdScaleType = static_cast<std::int16_t>(type);
        settings->set(AcDbPlotSettings::standardScaleFlag, true);
        if (type == AcDbPlotSettings::kScaleToFit) return;
        settings->mNumerator = scales[type].paper;
        settings->mDenominator = scales[type].drawing;
        settings->mStdScale = scales[type].paper / scales[type].drawing;
    });
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setStdScale(AcDbPlotSettings* settings, double scale)
{
    const auto found = std::find_if(std::begin(scales), std::end(scales), [&](const Scale& standard) {
        return std::fabs(standard.paper / standard.drawing - scale) <= 1e-9 * std::fabs(scale);
    });
    if (!settings) return Acad::eNullObjectPointer;
    if (found == std::end(scales)) return Acad::eInvalidInput;
    return setStdScaleType(settings, static_cast<AcDbPlotSettings::StdScaleType>(found - scales));
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setCustomPrintScale(AcDbPlotSettings* settings, double numerator,
                                                                 double denominator)
{
    const bool isValid = numerator > 0.0 && denominator > 0.0 && std::isfinite(numerator) && std::isfinite(denominator);
    return change(settings, isValid, [&] {
        settings->mNumerator = numerator;
        settings->mDenominator = denominator;
        settings->set(AcDbPlotSettings::standardScaleFlag, false);
    });
}

Acad::ErrorStatus AcDbPlotSettingsValidator::setCurrentStyleSheet(AcDbPlotSettings* settings, const ACHAR* sheet)
{
    return change(settings, sheet != nullptr, [&] { settings->mStyleSheet = sheet; });
}

Acad::ErrorStatus AcDbPlotSettingsValidator::plotDeviceList(AcArray<const ACHAR*>& devices) const
{
    devices.append(noDevice);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPlotSettingsValidator::canonicalMediaNameList(AcDbPlotSettings* settings,
                                                                    AcArray<const ACHAR*>& names) const
{
    if (!settings) return Acad::eNullObjectPointer;
    for (const Media& paper : papers) names.append(paper.name);
    return Acad::eOk;
}

const ACHAR* AcDbPlotSettingsValidator::getLocaleMediaName(AcDbPlotSettings*, const ACHAR* canonicalName) const
{
    const Media* paper = paperNamed(canonicalName);
    return paper ? paper->shown : nullptr;
}

const ACHAR* AcDbPlotSettingsValidator::getLocaleMediaName(AcDbPlotSettings*, int mediaIndex) const
{
    return mediaIndex >= 0 && mediaIndex < static_cast<int>(std::size(papers)) ? papers[mediaIndex].shown : nullptr;
}

Acad::ErrorStatus AcDbPlotSettingsValidator::plotStyleSheetList(AcArray<const ACHAR*>&) const { return Acad::eOk; }
