#include "dbplotsettings.h"

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "acutads.h"
#include "dbdatabase.h"
#include "dbdict.h"

ACDB_DXF_CLASS(AcDbPlotSettings, AcDbObject, PLOTSETTINGS)

const DxfClass AcDbPlotSettings::dxf("AcDbPlotSettings", nullptr,
                                     {
                                         dxf::text<&AcDbPlotSettings::mName>(1),
                                         dxf::text<&AcDbPlotSettings::mDevice>(2),
                                         dxf::text<&AcDbPlotSettings::mMedia>(4),
                                         dxf::text<&AcDbPlotSettings::mView>(6),
                                         dxf::real<&AcDbPlotSettings::mMarginLeft>(40),
                                         dxf::real<&AcDbPlotSettings::mMarginBottom>(41),
                                         dxf::real<&AcDbPlotSettings::mMarginRight>(42),
                                         dxf::real<&AcDbPlotSettings::mMarginTop>(43),
                                         dxf::real<&AcDbPlotSettings::mPaperWidth>(44),
                                         dxf::real<&AcDbPlotSettings::mPaperHeight>(45),
                                         dxf::real<&AcDbPlotSettings::mOriginX>(46),
                                         dxf::real<&AcDbPlotSettings::mOriginY>(47),
                                         dxf::real<&AcDbPlotSettings::mWindowLeft>(48),
                                         dxf::real<&AcDbPlotSettings::mWindowBottom>(49),
                                         dxf::real<&AcDbPlotSettings::mWindowRight>(140),
                                         dxf::real<&AcDbPlotSettings::mWindowTop>(141),
                                         dxf::real<&AcDbPlotSettings::mNumerator>(142),
                                         dxf::real<&AcDbPlotSettings::mDenominator>(143),
                                         dxf::integer<&AcDbPlotSettings::mFlags>(70),
                                         dxf::integer<&AcDbPlotSettings::mUnits>(72),
                                         dxf::integer<&AcDbPlotSettings::mRotation>(73),
                                         dxf::integer<&AcDbPlotSettings::mType>(74),
                                         dxf::text<&AcDbPlotSettings::mStyleSheet>(7),
                                         dxf::integer<&AcDbPlotSettings::mStdScaleType>(75),
                                         dxf::integer<&AcDbPlotSettings::mShadePlot>(76).from(DxfVersion::r2004),
                                         dxf::integer<&AcDbPlotSettings::mShadeLevel>(77).from(DxfVersion::r2004),
                                         dxf::integer<&AcDbPlotSettings::mShadeDpi>(78).from(DxfVersion::r2004),
                                         dxf::real<&AcDbPlotSettings::mStdScale>(147),
                                         dxf::real<&AcDbPlotSettings::mImageX>(148),
                                         dxf::real<&AcDbPlotSettings::mImageY>(149),
                                     });

AcDbPlotSettings::AcDbPlotSettings(bool modelType)
    : mFlags(standardScaleFlag | plotStylesFlag | printWeightsFlag | viewportsFirstFlag | (modelType ? modelFlag : 0))
{
}

Acad::ErrorStatus AcDbPlotSettings::give(const CString& from, const ACHAR*& name)
{
    name = from;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPlotSettings::give(const CString& from, ACHAR*& name)
{
    return acutNewString(from, name) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbPlotSettings::addToPlotSettingsDict(AcDbDatabase* database)
{
    if (!database) return Acad::eInvalidInput;
    AcDbDictionary* settings = nullptr;
    Acad::ErrorStatus status = database->getPlotSettingsDictionary(settings, AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    AcDbObjectId id;
    status = settings->setAt(mName, this, id);
    settings->close();
    return status;
}

Acad::ErrorStatus AcDbPlotSettings::getPlotPaperSize(double& width, double& height) const
{
    width = mPaperWidth;
    height = mPaperHeight;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPlotSettings::getPlotPaperMargins(double& xMin, double& yMin, double& xMax, double& yMax) const
{
    xMin = mMarginLeft;
    yMin = mMarginBottom;
    xMax = mMarginRight;
    yMax = mMarginTop;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPlotSettings::getPlotOrigin(double& x, double& y) const
{
    x = mOriginX;
    y = mOriginY;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPlotSettings::getPlotWindowArea(double& xMin, double& yMin, double& xMax, double& yMax) const
{
    xMin = mWindowLeft;
    yMin = mWindowBottom;
    xMax = mWindowRight;
    yMax = mWindowTop;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPlotSettings::getCustomPrintScale(double& numerator, double& denominator) const
{
    numerator = mNumerator;
    denominator = mDenominator;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPlotSettings::getStdScale(double& scale) const
{
    scale = mStdScale;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPlotSettings::setShadePlot(ShadePlotType type)
{
    if (type < kAsDisplayed || type > kRenderPreset) return Acad::eInvalidInput;
    return assign(mShadePlot, static_cast<std::int16_t>(type));
}

Acad::ErrorStatus AcDbPlotSettings::setShadePlotResLevel(ShadePlotResLevel level)
{
    if (level < kDraft || level > kCustom) return Acad::eInvalidInput;
    return assign(mShadeLevel, static_cast<std::int16_t>(level));
}

Acad::ErrorStatus AcDbPlotSettings::setShadePlotCustomDPI(std::int16_t dpi)
{
    return dpi >= 100 ? assign(mShadeDpi, dpi) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbPlotSettings::copyFrom(const AcRxObject* other)
{
    if (!other) return Acad::eNullObjectPointer;
    const AcDbPlotSettings* settings = AcDbPlotSettings::cast(other);
    if (!settings) return Acad::eWrongObjectType;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) AcDbPlotSettings::operator=(*settings);
    return status;
}
