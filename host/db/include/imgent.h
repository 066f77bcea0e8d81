#pragma once

/// AcDbRasterImage: a picture file as it lies in a drawing.

#include "dbentity.h"
#include "gept2dar.h"
#include "gevec2d.h"

class AcDbRasterImageDef;

class AcDbImage : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbImage);
};

/// Points of the picture are in pixels from its upper left corner, x to the right and y down; the middle of the first
/// pixel is (0, 0), so the corners are (-0.5, -0.5) and (width - 0.5, height - 0.5).
class AcDbRasterImage : public AcDbImage
{
public:
    ACRX_DECLARE_MEMBERS(AcDbRasterImage);
    ACDB_STATE_MEMBERS(AcDbRasterImage)
    AcDbRasterImage() = default;

    enum ClipBoundaryType { kInvalid = 0, kRect = 1, kPoly = 2 };
    enum ImageDisplayOpt { kShow = 1, kShowUnAligned = 2, kClip = 4, kTransparent = 8 };

    AcDbObjectId imageDefId() const { return mDefinition; }
    /// Takes the picture's size too. The image keeps its place and extent in the drawing, one without any gets a drawing
    /// unit a pixel. eInvalidInput for what is no definition.
    Acad::ErrorStatus setImageDefId(AcDbObjectId definition);
    AcDbObjectId reactorId() const { return mReactor; }
    Acad::ErrorStatus setReactorId(AcDbObjectId reactor) { return assign(mReactor, reactor); }

    /// The lower left corner of the picture, its whole lower edge and its whole left edge, in world coordinates.
    void getOrientation(AcGePoint3d& origin, AcGeVector3d& u, AcGeVector3d& v) const;
    /// eInvalidInput for edges that are parallel or have no length, and for what is not finite.
    Acad::ErrorStatus setOrientation(const AcGePoint3d& origin, const AcGeVector3d& u, const AcGeVector3d& v);
    /// The lengths of a pixel in the drawing.
    AcGeVector2d scale() const { return {mPixelU.length(), mPixelV.length()}; }
    /// In pixels: that of the definition, or what the image remembers.
    AcGeVector2d imageSize(bool getCachedValue = false) const;
    /// Of points in pixels.
    Acad::ErrorStatus getPixelToModelTransform(AcGeMatrix3d& transform) const;

    /// Two corners of a rectangle, or a polygon whose last point is its first; in pixels. eInvalidInput for others.
    Acad::ErrorStatus setClipBoundary(ClipBoundaryType type, const AcGePoint2dArray& points);
    Acad::ErrorStatus setClipBoundaryToWholeImage();
    ClipBoundaryType clipBoundaryType() const { return static_cast<ClipBoundaryType>(mClipType); }
    AcGePoint2dArray clipBoundary() const;
    /// Whether the boundary is in force and is not the whole picture.
    bool isClipped() const;
    /// Shows what is outside the boundary instead of what is inside.
    bool isClipInverted() const { return mClipInverted; }
    Acad::ErrorStatus setClipInverted(bool inverted);
    /// The frame, in world coordinates: the boundary, its last point not repeated.
    Acad::ErrorStatus getVertices(AcGePoint3dArray& vertices) const;

    /// 0 to 100: eInvalidInput.
    Acad::ErrorStatus setBrightness(Adesk::Int8 value) { return setShare(mBrightness, value); }
    Adesk::Int8 brightness() const { return mBrightness; }
    Acad::ErrorStatus setContrast(Adesk::Int8 value) { return setShare(mContrast, value); }
    Adesk::Int8 contrast() const { return mContrast; }
    Acad::ErrorStatus setFade(Adesk::Int8 value) { return setShare(mFade, value); }
    Adesk::Int8 fade() const { return mFade; }
    void setDisplayOpt(ImageDisplayOpt option, bool on);
    bool isSetDisplayOpt(ImageDisplayOpt option) const { return (mDisplay & option) != 0; }

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    void intersectionCurves(Curves& curves, bool extended) const override;
    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    /// The vertices of the frame. One of an image that is not clipped scales it about the opposite corner; others
    /// move their point of the boundary.
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Acad::ErrorStatus pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick, const AcGePoint3d& last,
                                     AcGePoint3dArray& points) const override;
    /// Drops the picture of itself that the file held for programs without the class.
    void forgetPreview();

private:
    friend struct ImageFields;
    Acad::ErrorStatus setShare(std::int8_t& member, int value);
    std::vector<AcGePoint2d> framePoints() const;
    AcGePoint3d worldOf(const AcGePoint2d& pixel) const;
    std::vector<AcGePoint3d> shownLoop() const;
    bool hasFrame() const;
    void drawFrame(AcGiWorldDraw& draw) const;

    AcGePoint3d mOrigin;
    AcGeVector3d mPixelU{1.0, 0.0, 0.0}, mPixelV{0.0, 1.0, 0.0}; ///< one pixel
    AcGePoint2d mSize{1.0, 1.0};                                   ///< in pixels
    std::vector<AcGePoint2d> mClip{{-0.5, -0.5}, {0.5, 0.5}};
    AcDbObjectId mDefinition, mReactor;
    int mVersion = 0;
    std::int16_t mDisplay = kShow | kShowUnAligned | kClip, mClipType = kRect;
    std::int8_t mBrightness = 50, mContrast = 50, mFade = 0;
    bool mIsClipOn = false, mClipInverted = false;
};
