#include "dbviewport.h"

#include "acgi.h"

AcGeMatrix3d AcDbViewport::viewToWorld() const
{
    return AcGeMatrix3d::rotation(-mTwist, mDirection, mTarget) *
           AcGeMatrix3d::translation(mTarget.asVector()) * AcGeMatrix3d::planeToWorld(mDirection);
}

AcGeMatrix3d AcDbViewport::modelToPaper() const
{
    const AcGeVector3d toViewCenter(-mViewCenter.x, -mViewCenter.y, 0.0);
    return AcGeMatrix3d::translation(mCenter.asVector()) * AcGeMatrix3d::scaling(customScale()) *
           AcGeMatrix3d::translation(toViewCenter) * viewToWorld().inverse();
}

Acad::ErrorStatus AcDbViewport::subTransformBy(const AcGeMatrix3d& xform)
{
    if (!xform.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    const double scale = (xform * AcGeVector3d::kXAxis).length();
    mCenter.transformBy(xform);
    mWidth *= scale;
    mHeight *= scale;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::subGetGeomExtents(AcDbExtents& extents) const
{
    const AcGeVector3d half(mWidth / 2.0, mHeight / 2.0, 0.0);
    extents.addPoint(mCenter - half);
    extents.addPoint(mCenter + half);
    return Acad::eOk;
}

bool AcDbViewport::subWorldDraw(AcGiWorldDraw* draw)
{
    // The layout's own viewport is not seen; an outline that clips draws itself.
    if (mNumber == 1 || isNonRectClipOn()) return true;
    const double x = mWidth / 2.0, y = mHeight / 2.0;
    const AcGePoint3d corners[] = {mCenter + AcGeVector3d(-x, -y, 0.0), mCenter + AcGeVector3d(x, -y, 0.0),
                                   mCenter + AcGeVector3d(x, y, 0.0), mCenter + AcGeVector3d(-x, y, 0.0),
                                   mCenter + AcGeVector3d(-x, -y, 0.0)};
    draw->geometry().polyline(5, corners);
    return true;
}

Acad::ErrorStatus AcDbViewport::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&,
                                                 AcDbIntArray&) const
{
    for (int i = 0; i < 4; ++i) {
        const double x = i == 0 || i == 3 ? -mWidth / 2.0 : mWidth / 2.0,
                     y = i < 2 ? -mHeight / 2.0 : mHeight / 2.0;
        gripPoints.append(mCenter + AcGeVector3d(x, y, 0.0));
    }
    gripPoints.append(mCenter);
    return Acad::eOk;
}

/// The middle moves the viewport; a corner resizes it, while the corner across and the scale stay.
Acad::ErrorStatus AcDbViewport::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    if (indices.contains(4) || indices.length() > 1) return setCenterPoint(mCenter + offset);
    const int corner = indices.first();
    const double width = mWidth + (corner == 0 || corner == 3 ? -offset.x : offset.x);
    const double height = mHeight + (corner < 2 ? -offset.y : offset.y);
    if (!(width > 0.0) || !(height > 0.0)) return Acad::eInvalidInput;
    mViewHeight *= height / mHeight;
    mWidth = width;
    mHeight = height;
    mCenter += AcGeVector3d(offset.x, offset.y, 0.0) / 2.0;
    return Acad::eOk;
}
