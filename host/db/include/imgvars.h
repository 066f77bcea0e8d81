#pragma once

/// What holds for all images, and all wipeouts, of a drawing.

#include "dbobject.h"

/// In the named objects under "ACAD_IMAGE_VARS".
class AcDbRasterVariables : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbRasterVariables);
    ACDB_STATE_MEMBERS(AcDbRasterVariables)
    AcDbRasterVariables() = default;

    enum FrameSettings { kImageFrameInvalid = -1, kImageFrameOff = 0, kImageFrameAbove = 1, kImageFrameBelow = 2, kImageFrameOnNoPlot = 3 };
    enum ImageQuality { kImageQualityInvalid = -1, kImageQualityDraft = 0, kImageQualityHigh = 1 };

    /// Opens those of a drawing, which are made where they are missing.
    static Acad::ErrorStatus openRasterVariables(AcDbRasterVariables*& variables, AcDb::OpenMode mode,
                                                 AcDbDatabase* database);
    FrameSettings imageFrame() const { return static_cast<FrameSettings>(mFrame); }
    Acad::ErrorStatus setImageFrame(FrameSettings frame);
    ImageQuality imageQuality() const { return static_cast<ImageQuality>(mQuality); }
    Acad::ErrorStatus setImageQuality(ImageQuality quality);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

private:
    int mVersion = 0;
    std::int16_t mFrame = kImageFrameAbove, mQuality = kImageQualityHigh, mUnits = 0;
};

/// In the named objects under "ACAD_WIPEOUT_VARS".
class AcDbWipeoutVariables : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbWipeoutVariables);
    ACDB_STATE_MEMBERS(AcDbWipeoutVariables)
    AcDbWipeoutVariables() = default;
    bool showFrame() const { return mFrame == 1; }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

private:
    std::int16_t mFrame = 1;
};
