#include "dbplotsetval.h"

#include <cmath>

namespace
{
struct Media {
    const wchar_t* name;
    double width, height; ///< millimetres
};

// ISO 216, upright.
constexpr Media papers[] = {
    {L"ISO_A0_(841.00_x_1189.00_MM)", 841, 1189}, {L"ISO_A1_(594.00_x_841.00_MM)", 594, 841},
    {L"ISO_A2_(420.00_x_594.00_MM)", 420, 594},   {L"ISO_A3_(297.00_x_420.00_MM)", 297, 420},
    {L"ISO_A4_(210.00_x_297.00_MM)", 210, 297},
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
