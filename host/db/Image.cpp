#include "imgent.h"

#include "ClassRegistration.h"
#include "DbObjectAccess.h"
#include "DxfFields.h"
#include "ImageFields.h"
#include "PlanarCoords.h"
#include "Stub.h"
#include "imgdef.h"

#include <algorithm>
#include <cmath>

ACDB_ABSTRACT_CLASS(AcDbImage, AcDbEntity)
ACDB_DXF_CLASS(AcDbRasterImage, AcDbImage, IMAGE)

const DxfClass AcDbRasterImage::dxf("AcDbRasterImage", &AcDbEntity::dxf, ACDB_IMAGE_FIELDS);

namespace
{
bool isFinite(const AcGeVector3d& vector) { return ::isFinite(AcGePoint3d::kOrigin + vector); }

/// Group codes of the pictures that files hold for programs without an entity's class.
bool isPreview(int code) { return code == 92 || code == 160 || code == 310; }
} // namespace

AcGeVector2d AcDbRasterImage::imageSize(bool getCachedValue) const
{
    const auto* definition = AcDbRasterImageDef::cast(residentObject(mDefinition));
    const bool asksDefinition = !getCachedValue && definition && definition->size().x > 0.0 && definition->size().y > 0.0;
    return asksDefinition ? definition->size() : AcGeVector2d(mSize.x, mSize.y);
}

Acad::ErrorStatus AcDbRasterImage::setImageDefId(AcDbObjectId definition)
{
    const auto* found = AcDbRasterImageDef::cast(residentObject(definition));
    if (!found) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    const bool hadOne = !mDefinition.isNull();
    mDefinition = definition;
    const AcGeVector2d size = found->size();
    if (!(size.x > 0.0) || !(size.y > 0.0)) return status;
    const bool wasWhole = !isClipped();
    if (hadOne) {
        mPixelU *= mSize.x / size.x;
        mPixelV *= mSize.y / size.y;
    }
    mSize.set(size.x, size.y);
    return wasWhole ? setClipBoundaryToWholeImage() : status;
}

void AcDbRasterImage::getOrientation(AcGePoint3d& origin, AcGeVector3d& u, AcGeVector3d& v) const
{
    origin = mOrigin;
    u = mPixelU * mSize.x;
    v = mPixelV * mSize.y;
}

Acad::ErrorStatus AcDbRasterImage::setOrientation(const AcGePoint3d& origin, const AcGeVector3d& u,
                                                  const AcGeVector3d& v)
{
    if (!::isFinite(origin) || !isFinite(u) || !isFinite(v)) return Acad::eInvalidInput;
    if (u.isZeroLength() || v.isZeroLength() || u.isParallelTo(v)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mOrigin = origin;
    mPixelU = u / mSize.x;
    mPixelV = v / mSize.y;
    return status;
}

AcGePoint3d AcDbRasterImage::worldOf(const AcGePoint2d& pixel) const
{
    return mOrigin + mPixelU * (pixel.x + 0.5) + mPixelV * (mSize.y - pixel.y - 0.5);
}

Acad::ErrorStatus AcDbRasterImage::getPixelToModelTransform(AcGeMatrix3d& transform) const
{
    const AcGeVector3d down = -mPixelV;
    transform.setCoordSystem(worldOf(AcGePoint2d::kOrigin), mPixelU, down, mPixelU.crossProduct(down).normal());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbRasterImage::setClipBoundary(ClipBoundaryType type, const AcGePoint2dArray& points)
{
    const int count = points.length();
    const bool isRectangle = type == kRect && count == 2;
    const bool isPolygon = type == kPoly && count >= 4 && points[0].isEqualTo(points[count - 1]);
    const bool areFinite = std::all_of(points.begin(), points.end(), [](const AcGePoint2d& point) {
        return std::isfinite(point.x) && std::isfinite(point.y);
    });
    if ((!isRectangle && !isPolygon) || !areFinite) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mClip.assign(points.begin(), points.end());
    mClipType = static_cast<std::int16_t>(type);
    mIsClipOn = true;
    forgetPreview();
    return status;
}

Acad::ErrorStatus AcDbRasterImage::setClipBoundaryToWholeImage()
{
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mClip = {{-0.5, -0.5}, {mSize.x - 0.5, mSize.y - 0.5}};
    mClipType = kRect;
    mIsClipOn = mClipInverted = false;
    forgetPreview();
    return status;
}

AcGePoint2dArray AcDbRasterImage::clipBoundary() const
{
    AcGePoint2dArray points;
    for (const AcGePoint2d& point : mClip)
        points.append(point);
    return points;
}

bool AcDbRasterImage::isClipped() const { return mIsClipOn && isSetDisplayOpt(kClip) && mClip.size() > 1; }

Acad::ErrorStatus AcDbRasterImage::setClipInverted(bool inverted)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mClipInverted = inverted;
    return status;
}

std::vector<AcGePoint2d> AcDbRasterImage::framePoints() const
{
    const std::vector<AcGePoint2d> whole = {{-0.5, -0.5}, {mSize.x - 0.5, mSize.y - 0.5}};
    std::vector<AcGePoint2d> points = isClipped() ? mClip : whole;
    if (points.size() == 2) {
        const AcGePoint2d low = points[0], high = points[1];
        return {{low.x, high.y}, high, {high.x, low.y}, low};
    }
    if (points.size() > 1 && points.front().isEqualTo(points.back())) points.pop_back();
    return points;
}

Acad::ErrorStatus AcDbRasterImage::getVertices(AcGePoint3dArray& vertices) const
{
    for (const AcGePoint2d& point : framePoints())
        vertices.append(worldOf(point));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbRasterImage::setShare(std::int8_t& member, int value)
{
    if (value < 0 || value > 100) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) member = static_cast<std::int8_t>(value);
    return status;
}

void AcDbRasterImage::setDisplayOpt(ImageDisplayOpt option, bool on)
{
    if (beginChange() == Acad::eOk) mDisplay = static_cast<std::int16_t>(on ? mDisplay | option : mDisplay & ~option);
}

Acad::ErrorStatus AcDbRasterImage::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    plane.set(mOrigin, mPixelU, mPixelV);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

void AcDbRasterImage::forgetPreview()
{
    DbObjectExtras* extras = DbObjectAccess::extras(*this);
    if (!extras) return;
    for (KeptGroups& kept : extras->keptGroups) {
        if (kept.section != &AcDbEntity::dxf) continue;
        PackedGroups rest;
        DxfGroup group;
        for (std::size_t at = 0; kept.groups.read(at, group);) {
            if (!isPreview(group.code)) rest.append(group);
        }
        kept.groups = std::move(rest);
    }
}

Acad::ErrorStatus AcDbRasterImage::subTransformBy(const AcGeMatrix3d& xform)
{
    mOrigin.transformBy(xform);
    mPixelU.transformBy(xform);
    mPixelV.transformBy(xform);
    forgetPreview();
    return Acad::eOk;
}
