#pragma once

#include "acdb.h"
#include "dbcolor.h"
#include "dbsymbase.h"

class AcDbLayerTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
    ACDB_STATE_MEMBERS(AcDbLayerTableRecord)
    AcDbLayerTableRecord() = default;

    bool isFrozen() const { return (mFlags & frozenFlag) != 0; }
    /// eInvalidLayer for the current layer, which cannot be frozen.
    Acad::ErrorStatus setIsFrozen(bool frozen);
    bool isOff() const { return mIsOff; }
    void setIsOff(bool off) { assign(mIsOff, off); }
    /// True when the layer is frozen in new viewports.
    bool VPDFLT() const { return (mFlags & frozenInNewViewportsFlag) != 0; }
    void setVPDFLT(bool frozen) { setFlag(frozenInNewViewportsFlag, frozen); }
    bool isLocked() const { return (mFlags & lockedFlag) != 0; }
    void setIsLocked(bool locked) { setFlag(lockedFlag, locked); }
    bool isHidden() const { return mIsHidden; }
    Acad::ErrorStatus setIsHidden(bool hidden) { return assign(mIsHidden, hidden); }
    /// True when an object of the drawing stands on the layer: as AcDbLayerTable::generateUsageData has found it, or as it
    /// is now while that was not called.
    bool isInUse() const;

    AcCmColor color() const { return mColor; }
    AcCmEntityColor entityColor() const { return mColor; }
    /// By layer and by block mean nothing here and change nothing.
    void setColor(const AcCmColor& color);
    AcDbObjectId linetypeObjectId() const { return mLinetype; }
    void setLinetypeObjectId(AcDbObjectId id);
    AcDb::LineWeight lineWeight() const { return static_cast<AcDb::LineWeight>(mLineWeight); }
    /// eBadLineWeightValue unless it is a weight of its own or the default one.
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight);
    bool isPlottable() const { return mIsPlottable; }
    Acad::ErrorStatus setIsPlottable(bool plottable) { return assign(mIsPlottable, plottable); }

    /// The name of the plot style, as a copy that the caller releases with acutDelString; null without one.
    ACHAR* plotStyleName() const;
    AcDbObjectId plotStyleNameId() const { return mPlotStyle; }
    /// eKeyNotFound when the drawing has no plot style of that name.
    Acad::ErrorStatus setPlotStyleName(const ACHAR* name);
    Acad::ErrorStatus setPlotStyleName(AcDbObjectId id) { return assign(mPlotStyle, id); }
    AcDbObjectId materialId() const { return mMaterial; }
    Acad::ErrorStatus setMaterialId(AcDbObjectId id) { return assign(mMaterial, id); }
    AcDbObjectId visualStyle() const { return mVisualStyle; }
    Acad::ErrorStatus setVisualStyle(AcDbObjectId id) { return assign(mVisualStyle, id); }

    /// The description, as a copy that the caller releases with acutDelString. It is extended data of
    /// "AcAecLayerStandard", and can be set once the layer is in a drawing.
    ACHAR* description() const;
    Acad::ErrorStatus setDescription(const ACHAR* description);
    /// Solid unless set; extended data of "AcCmTransparency".
    AcCmTransparency transparency() const;
    /// eInvalidInput unless by alpha.
    Acad::ErrorStatus setTransparency(const AcCmTransparency& transparency);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    bool isPermanent() const override { return mName == L"0"; }
    Acad::ErrorStatus subErase(bool erasing) override;
    /// A layer without a linetype gets the continuous one of its drawing.
    void addedToTable() override;

private:
    friend struct LayerAccess;
    friend class AcDbLayerTable;
    enum class Usage : std::uint8_t { unknown, unused, used };
    static AcCmEntityColor white();
    static constexpr int frozenFlag = 1;
    static constexpr int frozenInNewViewportsFlag = 2;
    static constexpr int lockedFlag = 4;

    AcCmEntityColor mColor = white();
    std::int16_t mFileColorIndex = 7; ///< the index that stands beside a true colour in files
    std::int16_t mLineWeight = AcDb::kLnWtByLwDefault;
    bool mIsOff = false;
    bool mIsPlottable = true;
    bool mIsHidden = false;
    Usage mUsage = Usage::unknown;
    AcDbObjectId mLinetype, mPlotStyle, mMaterial, mVisualStyle;
};
