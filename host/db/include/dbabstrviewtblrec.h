#pragma once

#include "acdb.h"
#include "dbsymbase.h"
#include "gepnt2d.h"
#include "gepnt3d.h"
#include "gevec3d.h"

/// What named views and viewports of model space have in common. The centre is in the view's own coordinate system
/// (DCS), in which height and width are measured; target and direction are in world coordinates; angles are in
/// radians.
class AcDbAbstractViewTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS(AcDbAbstractViewTableRecord);

    AcGePoint2d centerPoint() const { return mCenter; }
    void setCenterPoint(const AcGePoint2d& center) { assign(mCenter, center); }
    double height() const { return mHeight; }
    /// Heights and widths that are not above 0 change nothing.
    void setHeight(double height);
    double width() const { return mWidth; }
    void setWidth(double width);
    AcGePoint3d target() const { return mTarget; }
    void setTarget(const AcGePoint3d& target) { assign(mTarget, target); }
    /// From the target to the eye.
    AcGeVector3d viewDirection() const { return mDirection; }
    /// A vector without length changes nothing.
    void setViewDirection(const AcGeVector3d& direction);
    double viewTwist() const { return mTwist; }
    void setViewTwist(double angle) { assign(mTwist, angle); }
    double lensLength() const { return mLensLength; }
    void setLensLength(double length) { assign(mLensLength, length); }
    double frontClipDistance() const { return mFrontClip; }
    void setFrontClipDistance(double distance) { assign(mFrontClip, distance); }
    double backClipDistance() const { return mBackClip; }
    void setBackClipDistance(double distance) { assign(mBackClip, distance); }

    bool perspectiveEnabled() const { return hasMode(perspectiveMode); }
    void setPerspectiveEnabled(bool enabled) { setMode(perspectiveMode, enabled); }
    bool frontClipEnabled() const { return hasMode(frontClipMode); }
    void setFrontClipEnabled(bool enabled) { setMode(frontClipMode, enabled); }
    bool backClipEnabled() const { return hasMode(backClipMode); }
    void setBackClipEnabled(bool enabled) { setMode(backClipMode, enabled); }
    /// The front plane passes through the eye.
    bool frontClipAtEye() const { return !hasMode(frontClipNotAtEyeMode); }
    void setFrontClipAtEye(bool atEye) { setMode(frontClipNotAtEyeMode, !atEye); }

    enum RenderMode { k2DOptimized = 0, kWireframe, kHiddenLine, kFlatShaded, kGouraudShaded, kFlatShadedWithWireframe,
                      kGouraudShadedWithWireframe };
    RenderMode renderMode() const { return static_cast<RenderMode>(mRenderMode); }
    Acad::ErrorStatus setRenderMode(RenderMode mode);
    AcDbObjectId visualStyle() const { return mVisualStyle; }
    Acad::ErrorStatus setVisualStyle(AcDbObjectId id) { return assign(mVisualStyle, id); }

    // The coordinate system that belongs to the view.

    Acad::ErrorStatus getUcs(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis) const;
    /// eInvalidInput unless the axes are perpendicular and have a length.
    Acad::ErrorStatus setUcs(const AcGePoint3d& origin, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis);
    Acad::ErrorStatus setUcs(AcDbObjectId ucs);
    Acad::ErrorStatus setUcsToWorld();
    bool isUcsOrthographic(AcDb::OrthographicView& view) const;
    AcDbObjectId ucsName() const { return mUcsName; }
    double elevation() const { return mElevation; }
    Acad::ErrorStatus setElevation(double elevation) { return assign(mElevation, elevation); }

protected:
    AcDbAbstractViewTableRecord() = default;

    AcGePoint2d mCenter;
    double mHeight = 1.0;
    double mWidth = 1.0;
    AcGePoint3d mTarget;
    AcGeVector3d mDirection{0.0, 0.0, 1.0};
    double mTwist = 0.0;
    double mLensLength = 50.0;
    double mFrontClip = 0.0;
    double mBackClip = 0.0;
    AcGePoint3d mUcsOrigin;
    AcGeVector3d mUcsXAxis{1.0, 0.0, 0.0};
    AcGeVector3d mUcsYAxis{0.0, 1.0, 0.0};
    double mElevation = 0.0;
    AcDbObjectId mUcsName, mUcsBase, mVisualStyle;
    std::int16_t mMode = 0; ///< group 71
    std::int16_t mRenderMode = 0;
    std::int16_t mOrthographicType = 0;

private:
    static constexpr int perspectiveMode = 1;
    static constexpr int frontClipMode = 2;
    static constexpr int backClipMode = 4;
    static constexpr int frontClipNotAtEyeMode = 16;

    bool hasMode(int mode) const { return (mMode & mode) != 0; }
    void setMode(int mode, bool on) { assign(mMode, static_cast<std::int16_t>(on ? mMode | mode : mMode & ~mode)); }
};
