#pragma once

/// AcDbViewport: a window of a layout onto model space.

#include "dbentity.h"
#include "dbidar.h"
#include "gepnt2d.h"
#include "gevec2d.h"

/// The viewport lies in paper space; its view, in model space, is given by a target and a direction (world
/// coordinates) and a centre and height in the view's own coordinates (DCS). The first viewport of a layout
/// shows the layout itself.
///
/// Setters return eInvalidInput for a value out of range and leave the viewport unchanged.
class AcDbViewport : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbViewport);
    ACDB_STATE_MEMBERS(AcDbViewport)
    AcDbViewport() = default;

    // The window on the paper.

    double height() const { return mHeight; }
    /// eInvalidInput unless above 0.
    Acad::ErrorStatus setHeight(double height);
    double width() const { return mWidth; }
    Acad::ErrorStatus setWidth(double width);
    AcGePoint3d centerPoint() const { return mCenter; }
    Acad::ErrorStatus setCenterPoint(const AcGePoint3d& point);
    /// 1 for the viewport of the layout itself, from 2 on for those that are on; -1 for the others.
    std::int16_t number() const { return mNumber; }

    bool isOn() const { return (mStatus & offBit) == 0 && mDisplayOrder != 0; }
    Acad::ErrorStatus setOn();
    Acad::ErrorStatus setOff();

    // The view.

    AcGePoint3d viewTarget() const { return mTarget; }
    Acad::ErrorStatus setViewTarget(const AcGePoint3d& point);
    /// From the target to the eye.
    AcGeVector3d viewDirection() const { return mDirection; }
    /// eInvalidInput for a zero vector.
    Acad::ErrorStatus setViewDirection(const AcGeVector3d& direction);
    double viewHeight() const { return mViewHeight; }
    Acad::ErrorStatus setViewHeight(double height);
    AcGePoint2d viewCenter() const { return mViewCenter; }
    Acad::ErrorStatus setViewCenter(const AcGePoint2d& center);
    /// Radians by which the view is turned about its direction.
    double twistAngle() const { return mTwist; }
    Acad::ErrorStatus setTwistAngle(double angle);
    double lensLength() const { return mLensLength; }
    Acad::ErrorStatus setLensLength(double length);
    double frontClipDistance() const { return mFrontClip; }
    Acad::ErrorStatus setFrontClipDistance(double distance);
    double backClipDistance() const { return mBackClip; }
    Acad::ErrorStatus setBackClipDistance(double distance);

    bool isFrontClipOn() const { return has(frontClipBit); }
    Acad::ErrorStatus setFrontClipOn() { return setStatus(frontClipBit, true); }
    Acad::ErrorStatus setFrontClipOff() { return setStatus(frontClipBit, false); }
    bool isBackClipOn() const { return has(backClipBit); }
    Acad::ErrorStatus setBackClipOn() { return setStatus(backClipBit, true); }
    Acad::ErrorStatus setBackClipOff() { return setStatus(backClipBit, false); }
    bool isFrontClipAtEyeOn() const { return !has(frontClipNotAtEyeBit); }
    Acad::ErrorStatus setFrontClipAtEyeOn() { return setStatus(frontClipNotAtEyeBit, false); }
    Acad::ErrorStatus setFrontClipAtEyeOff() { return setStatus(frontClipNotAtEyeBit, true); }
    bool isPerspectiveOn() const { return has(perspectiveBit); }
    Acad::ErrorStatus setPerspectiveOn() { return setStatus(perspectiveBit, true); }
    Acad::ErrorStatus setPerspectiveOff() { return setStatus(perspectiveBit, false); }

    /// The scale may not be changed by zooming inside.
    bool isLocked() const { return has(lockedBit); }
    Acad::ErrorStatus setLocked() { return setStatus(lockedBit, true); }
    Acad::ErrorStatus setUnlocked() { return setStatus(lockedBit, false); }
    bool isTransparent() const { return !has(notTransparentBit); }
    Acad::ErrorStatus setTransparent() { return setStatus(notTransparentBit, false); }
    Acad::ErrorStatus setOpaque() { return setStatus(notTransparentBit, true); }

    // The scale: paper units per drawing unit, height over view height.

    enum StandardScaleType {
        kScaleToFit = 0,
        kCustomScale,
        k1_1,
        k1_2,
        k1_4,
        k1_5,
        k1_8,
        k1_10,
        k1_16,
        k1_20,
        k1_30,
        k1_40,
        k1_50,
        k1_100,
        k2_1,
        k4_1,
        k8_1,
        k10_1,
        k100_1,
        k1_128in_1ft,
        k1_64in_1ft,
        k1_32in_1ft,
        k1_16in_1ft,
        k3_32in_1ft,
        k1_8in_1ft,
        k3_16in_1ft,
        k1_4in_1ft,
        k3_8in_1ft,
        k1_2in_1ft,
        k3_4in_1ft,
        k1in_1ft,
        k1and1_2in_1ft,
        k3in_1ft,
        k6in_1ft,
        k1ft_1ft
    };
    double customScale() const;
    /// eInvalidInput for 0 and below.
    Acad::ErrorStatus setCustomScale(double scale);
    StandardScaleType standardScale() const;
    /// kScaleToFit and kCustomScale change nothing but the kind.
    Acad::ErrorStatus setStandardScale(StandardScaleType type);

    // What is shown.

    bool isGridOn() const { return has(gridBit); }
    Acad::ErrorStatus setGridOn() { return setStatus(gridBit, true); }
    Acad::ErrorStatus setGridOff() { return setStatus(gridBit, false); }
    AcGeVector2d gridIncrement() const { return mGrid; }
    Acad::ErrorStatus setGridIncrement(const AcGeVector2d& increment);
    std::uint16_t gridMajor() const { return static_cast<std::uint16_t>(mGridMajor); }
    Acad::ErrorStatus setGridMajor(std::uint16_t lines);
    bool isSnapOn() const { return has(snapBit); }
    Acad::ErrorStatus setSnapOn() { return setStatus(snapBit, true); }
    Acad::ErrorStatus setSnapOff() { return setStatus(snapBit, false); }
    bool isSnapIsometric() const { return has(isometricBit); }
    Acad::ErrorStatus setSnapIsometric() { return setStatus(isometricBit, true); }
    Acad::ErrorStatus setSnapStandard() { return setStatus(isometricBit, false); }
    double snapAngle() const { return mSnapAngle; }
    Acad::ErrorStatus setSnapAngle(double angle);
    AcGePoint2d snapBasePoint() const { return mSnapBase; }
    Acad::ErrorStatus setSnapBasePoint(const AcGePoint2d& point);
    AcGeVector2d snapIncrement() const { return mSnap; }
    Acad::ErrorStatus setSnapIncrement(const AcGeVector2d& increment);
    bool isUcsIconVisible() const { return has(iconVisibleBit); }
    Acad::ErrorStatus setUcsIconVisible() { return setStatus(iconVisibleBit, true); }
    Acad::ErrorStatus setUcsIconInvisible() { return setStatus(iconVisibleBit, false); }
    bool isUcsIconAtOrigin() const { return has(iconAtOriginBit); }
    Acad::ErrorStatus setUcsIconAtOrigin() { return setStatus(iconAtOriginBit, true); }
    Acad::ErrorStatus setUcsIconAtCorner() { return setStatus(iconAtOriginBit, false); }
    bool isFastZoomOn() const { return has(fastZoomBit); }
    Acad::ErrorStatus setFastZoomOn() { return setStatus(fastZoomBit, true); }
    Acad::ErrorStatus setFastZoomOff() { return setStatus(fastZoomBit, false); }
    bool hiddenLinesRemoved() const { return has(hideBit); }
    Acad::ErrorStatus showHiddenLines() { return setStatus(hideBit, false); }
    Acad::ErrorStatus removeHiddenLines() { return setStatus(hideBit, true); }
    /// Segments a circle is shown with at least, 1 to 20000.
    std::uint16_t circleSides() const { return static_cast<std::uint16_t>(mCircleSides); }
    Acad::ErrorStatus setCircleSides(std::uint16_t sides);
    double elevation() const { return mElevation; }
    Acad::ErrorStatus setElevation(double elevation);

    /// 0 wireframe 2D, 1 wireframe, 2 hidden, 3 flat, 4 Gouraud, 5 flat with wireframe, 6 Gouraud with
    /// wireframe.
    int renderMode() const { return mRenderMode; }
    Acad::ErrorStatus setRenderMode(int mode);
    enum ShadePlotType {
        kAsDisplayed = 0,
        kWireframe = 1,
        kHidden = 2,
        kRendered = 3,
        kVisualStyle = 4,
        kRenderPreset = 5
    };
    ShadePlotType shadePlot() const { return static_cast<ShadePlotType>(mShadePlot); }
    Acad::ErrorStatus setShadePlot(ShadePlotType type);
    AcDbObjectId visualStyle() const { return mVisualStyle; }
    Acad::ErrorStatus setVisualStyle(AcDbObjectId style);
    AcDbObjectId background() const { return mBackground; }
    Acad::ErrorStatus setBackground(AcDbObjectId background);
    /// The name of the plot style sheet, as a copy to be released with acutDelString.
    Acad::ErrorStatus plotStyleSheet(ACHAR*& name) const;
    Acad::ErrorStatus setPlotStyleSheet(const ACHAR* name);

    // Layers that are frozen here only.

    /// Appends what is not frozen yet. eInvalidLayer, and nothing changed, for what is no layer.
    Acad::ErrorStatus freezeLayersInViewport(const AcDbObjectIdArray& layers);
    Acad::ErrorStatus thawLayersInViewport(const AcDbObjectIdArray& layers);
    Acad::ErrorStatus thawAllLayersInViewport();
    bool isLayerFrozenInViewport(AcDbObjectId layer) const;
    Acad::ErrorStatus getFrozenLayerList(AcDbObjectIdArray& layers) const;

    // The shape.

    /// Whether an entity's outline clips the view instead of the rectangle.
    bool isNonRectClipOn() const { return has(clipBit); }
    /// eInvalidInput while there is no entity.
    Acad::ErrorStatus setNonRectClipOn();
    Acad::ErrorStatus setNonRectClipOff() { return setStatus(clipBit, false); }
    AcDbObjectId nonRectClipEntityId() const { return mClip; }
    /// A closed polyline, circle, ellipse, spline or region of the same space; the null id takes the clip
    /// away.
    Acad::ErrorStatus setNonRectClipEntityId(AcDbObjectId entity);

    // The coordinate system.

    Acad::ErrorStatus getUcs(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis) const;
    /// eInvalidInput unless the axes are perpendicular and have a length.
    Acad::ErrorStatus setUcs(const AcGePoint3d& origin, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis);
    Acad::ErrorStatus setUcs(AcDbObjectId ucs);
    Acad::ErrorStatus setUcsToWorld();
    AcDbObjectId ucsName() const { return mUcsName; }
    bool isUcsOrthographic(AcDb::OrthographicView& view) const;
    bool isUcsSavedWithViewport() const { return mUcsPerViewport != 0; }
    Acad::ErrorStatus setUcsPerViewport(bool perViewport);
    bool isUcsFollowModeOn() const { return has(ucsFollowBit); }
    Acad::ErrorStatus setUcsFollowModeOn() { return setStatus(ucsFollowBit, true); }
    Acad::ErrorStatus setUcsFollowModeOff() { return setStatus(ucsFollowBit, false); }

    /// From the view (DCS, at the target) to the world.
    AcGeMatrix3d viewToWorld() const;
    /// From model space to the paper, for views without perspective.
    AcGeMatrix3d modelToPaper() const;

    /// Takes the view out of the extended data where files before R2000 have it.
    void completeRead() override;
    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

private:
    friend struct ViewportFields;
    /// Group 90.
    enum StatusBit : std::int32_t {
        perspectiveBit = 0x1,
        frontClipBit = 0x2,
        backClipBit = 0x4,
        ucsFollowBit = 0x8,
        frontClipNotAtEyeBit = 0x10,
        iconVisibleBit = 0x20,
        iconAtOriginBit = 0x40,
        fastZoomBit = 0x80,
        snapBit = 0x100,
        gridBit = 0x200,
        isometricBit = 0x400,
        hideBit = 0x800,
        lockedBit = 0x4000,
        notTransparentBit = 0x8000,
        clipBit = 0x10000,
        offBit = 0x20000
    };
    bool has(StatusBit bit) const { return (mStatus & bit) != 0; }
    Acad::ErrorStatus setStatus(StatusBit bit, bool on);
    template <class Value>
    Acad::ErrorStatus change(Value& member, const Value& value);

    AcGePoint3d mCenter;
    double mWidth = 1.0, mHeight = 1.0;
    AcGePoint2d mViewCenter, mSnapBase;
    AcGeVector2d mSnap{0.5, 0.5}, mGrid{0.5, 0.5};
    AcGeVector3d mDirection = AcGeVector3d::kZAxis;
    AcGePoint3d mTarget;
    double mLensLength = 50.0, mFrontClip = 0.0, mBackClip = 0.0, mViewHeight = 1.0;
    double mSnapAngle = 0.0, mTwist = 0.0, mElevation = 0.0;
    AcGePoint3d mUcsOrigin;
    AcGeVector3d mUcsXAxis = AcGeVector3d::kXAxis, mUcsYAxis = AcGeVector3d::kYAxis;
    CString mPlotStyleSheet;
    std::vector<AcDbObjectId> mFrozen;
    AcDbObjectId mClip, mUcsName, mUcsBase, mVisualStyle, mBackground;
    std::int32_t mStatus = iconVisibleBit | iconAtOriginBit | fastZoomBit | notTransparentBit;
    std::int16_t mDisplayOrder = 0;   ///< group 68: 0 off, -1 on but not shown, 1 ... the order
    std::int16_t mNumber = -1;        ///< group 69
    std::int16_t mStandardScale = -1; ///< the type that was set; -1: the scale says it
    std::int16_t mCircleSides = 1000, mGridMajor = 5, mShadePlot = 0, mOrthographicType = 0;
    std::int8_t mRenderMode = 0, mUcsPerViewport = 1, mUcsIconPerViewport = 0;
    bool mFrozenAsHard = false;  ///< the file lists frozen layers by groups 341
    bool mHasViewGroups = false; ///< the file gives the view by groups; older ones do by extended data
};

/// Paper units per drawing unit of a standard scale, with inches and feet taken as such: 1/4" = 1' is 1/48. 0
/// for kScaleToFit, kCustomScale and values that are none.
double acdbStandardScaleValue(AcDbViewport::StandardScaleType type);
