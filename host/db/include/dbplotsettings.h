#pragma once

#include "dbidar.h"
#include "dbobject.h"
#include "gepnt2d.h"

#include <atlstr.h>

class AcDbPlotSettings;

/// How a page is plotted: device, paper, area, scale. Lengths are in millimetres unless said otherwise; what depends
/// on a device is set through AcDbPlotSettingsValidator.
class AcDbPlotSettings : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbPlotSettings);
    ACDB_STATE_MEMBERS(AcDbPlotSettings)
    explicit AcDbPlotSettings(bool modelType = false);

    enum PlotPaperUnits { kInches = 0, kMillimeters = 1, kPixels = 2 };
    enum PlotRotation { k0degrees = 0, k90degrees = 1, k180degrees = 2, k270degrees = 3 };
    enum PlotType { kDisplay = 0, kExtents = 1, kLimits = 2, kView = 3, kWindow = 4, kLayout = 5 };
    /// Group 75, by the numbers of the DXF reference: paper by drawing.
    enum StdScaleType {
        kScaleToFit = 0,
        k1_128in_1ft = 1,
        k1_64in_1ft = 2,
        k1_32in_1ft = 3,
        k1_16in_1ft = 4,
        k3_32in_1ft = 5,
        k1_8in_1ft = 6,
        k3_16in_1ft = 7,
        k1_4in_1ft = 8,
        k3_8in_1ft = 9,
        k1_2in_1ft = 10,
        k3_4in_1ft = 11,
        k1in_1ft = 12,
        k3in_1ft = 13,
        k6in_1ft = 14,
        k1ft_1ft = 15,
        k1_1 = 16,
        k1_2 = 17,
        k1_4 = 18,
        k1_8 = 19,
        k1_10 = 20,
        k1_16 = 21,
        k1_20 = 22,
        k1_30 = 23,
        k1_40 = 24,
        k1_50 = 25,
        k1_100 = 26,
        k2_1 = 27,
        k4_1 = 28,
        k8_1 = 29,
        k10_1 = 30,
        k100_1 = 31,
        k1000_1 = 32,
        kStdScaleCount = 33
    };
    enum ShadePlotType {
        kAsDisplayed = 0,
        kWireframe = 1,
        kHidden = 2,
        kRendered = 3,
        kVisualStyle = 4,
        kRenderPreset = 5
    };
    enum ShadePlotResLevel { kDraft = 0, kPreview = 1, kNormal = 2, kPresentation = 3, kMaximum = 4, kCustom = 5 };

    /// True for settings of model space.
    bool modelType() const { return has(modelFlag); }
    /// Puts the settings into the dictionary of page setups under their name; they stay open. The statuses of
    /// AcDbDictionary::setAt; eInvalidInput for a null database.
    Acad::ErrorStatus addToPlotSettingsDict(AcDbDatabase* database);

    // Names come as pointers into the object, which hold while it is unchanged, or as copies that acutDelString
    // releases.

    Acad::ErrorStatus getPlotSettingsName(const ACHAR*& name) const { return give(mName, name); }
    Acad::ErrorStatus getPlotSettingsName(ACHAR*& name) const { return give(mName, name); }
    Acad::ErrorStatus setPlotSettingsName(const ACHAR* name) { return assign(mName, CString(name)); }
    Acad::ErrorStatus getPlotCfgName(const ACHAR*& name) const { return give(mDevice, name); }
    Acad::ErrorStatus getPlotCfgName(ACHAR*& name) const { return give(mDevice, name); }
    Acad::ErrorStatus getCanonicalMediaName(const ACHAR*& name) const { return give(mMedia, name); }
    Acad::ErrorStatus getCanonicalMediaName(ACHAR*& name) const { return give(mMedia, name); }
    Acad::ErrorStatus getPlotViewName(const ACHAR*& name) const { return give(mView, name); }
    Acad::ErrorStatus getPlotViewName(ACHAR*& name) const { return give(mView, name); }
    Acad::ErrorStatus getCurrentStyleSheet(const ACHAR*& name) const { return give(mStyleSheet, name); }
    Acad::ErrorStatus getCurrentStyleSheet(ACHAR*& name) const { return give(mStyleSheet, name); }

    Acad::ErrorStatus getPlotPaperSize(double& width, double& height) const;
    /// Left, bottom, right, top.
    Acad::ErrorStatus getPlotPaperMargins(double& xMin, double& yMin, double& xMax, double& yMax) const;
    Acad::ErrorStatus getPlotOrigin(double& x, double& y) const;
    /// In drawing units.
    Acad::ErrorStatus getPlotWindowArea(double& xMin, double& yMin, double& xMax, double& yMax) const;
    AcGePoint2d getPaperImageOrigin() const { return AcGePoint2d(mImageX, mImageY); }
    PlotPaperUnits plotPaperUnits() const { return static_cast<PlotPaperUnits>(mUnits); }
    PlotRotation plotRotation() const { return static_cast<PlotRotation>(mRotation); }
    PlotType plotType() const { return static_cast<PlotType>(mType); }
    bool plotCentered() const { return has(centeredFlag); }

    /// Paper units per drawing unit as two numbers, for scales that are not standard.
    Acad::ErrorStatus getCustomPrintScale(double& numerator, double& denominator) const;
    bool useStandardScale() const { return has(standardScaleFlag); }
    StdScaleType stdScaleType() const { return static_cast<StdScaleType>(mStdScaleType); }
    Acad::ErrorStatus getStdScale(double& scale) const;

    bool plotViewportBorders() const { return has(bordersFlag); }
    Acad::ErrorStatus setPlotViewportBorders(bool on) { return set(bordersFlag, on); }
    bool plotHidden() const { return has(hiddenFlag); }
    Acad::ErrorStatus setPlotHidden(bool on) { return set(hiddenFlag, on); }
    bool plotPlotStyles() const { return has(plotStylesFlag); }
    Acad::ErrorStatus setPlotPlotStyles(bool on) { return set(plotStylesFlag, on); }
    bool showPlotStyles() const { return has(showStylesFlag); }
    Acad::ErrorStatus setShowPlotStyles(bool on) { return set(showStylesFlag, on); }
    bool scaleLineweights() const { return has(scaleWeightsFlag); }
    Acad::ErrorStatus setScaleLineweights(bool on) { return set(scaleWeightsFlag, on); }
    bool printLineweights() const { return has(printWeightsFlag); }
    Acad::ErrorStatus setPrintLineweights(bool on) { return set(printWeightsFlag, on); }
    bool drawViewportsFirst() const { return has(viewportsFirstFlag); }
    Acad::ErrorStatus setDrawViewportsFirst(bool on) { return set(viewportsFirstFlag, on); }

    ShadePlotType shadePlot() const { return static_cast<ShadePlotType>(mShadePlot); }
    Acad::ErrorStatus setShadePlot(ShadePlotType type);
    ShadePlotResLevel shadePlotResLevel() const { return static_cast<ShadePlotResLevel>(mShadeLevel); }
    Acad::ErrorStatus setShadePlotResLevel(ShadePlotResLevel level);
    std::int16_t shadePlotCustomDPI() const { return mShadeDpi; }
    /// eInvalidInput unless 100 to 32767.
    Acad::ErrorStatus setShadePlotCustomDPI(std::int16_t dpi);

    /// Takes over the settings of other settings or of a layout; a layout keeps its own data. eWrongObjectType.
    Acad::ErrorStatus copyFrom(const AcRxObject* other) override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

private:
    friend class AcDbPlotSettingsValidator;
    static constexpr int bordersFlag = 1;
    static constexpr int showStylesFlag = 2;
    static constexpr int centeredFlag = 4;
    static constexpr int hiddenFlag = 8;
    static constexpr int standardScaleFlag = 16;
    static constexpr int plotStylesFlag = 32;
    static constexpr int scaleWeightsFlag = 64;
    static constexpr int printWeightsFlag = 128;
    static constexpr int viewportsFirstFlag = 512;
    static constexpr int modelFlag = 1024;

    bool has(int flag) const { return (mFlags & flag) != 0; }
    Acad::ErrorStatus set(int flag, bool on) { return assign(mFlags, on ? mFlags | flag : mFlags & ~flag); }
    static Acad::ErrorStatus give(const CString& from, const ACHAR*& name);
    static Acad::ErrorStatus give(const CString& from, ACHAR*& name);

    CString mName, mDevice, mMedia, mView, mStyleSheet;
    double mMarginLeft = 0.0, mMarginBottom = 0.0, mMarginRight = 0.0, mMarginTop = 0.0;
    double mPaperWidth = 0.0, mPaperHeight = 0.0;
    double mOriginX = 0.0, mOriginY = 0.0;
    double mWindowLeft = 0.0, mWindowBottom = 0.0, mWindowRight = 0.0, mWindowTop = 0.0;
    double mNumerator = 1.0, mDenominator = 1.0;
    double mStdScale = 1.0;
    double mImageX = 0.0, mImageY = 0.0;
    int mFlags;
    std::int16_t mUnits = kMillimeters, mRotation = k0degrees, mType = kDisplay, mStdScaleType = k1_1;
    std::int16_t mShadePlot = kAsDisplayed, mShadeLevel = kNormal, mShadeDpi = 300;
};
