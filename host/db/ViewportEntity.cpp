#include "acutads.h"
#include "dbblock.h"
#include "dbucs.h"
#include "dbviewport.h"
#include "PlanarCoords.h"
#include "Stub.h"

#include <algorithm>
#include <cmath>

namespace
{
bool isFinite(const AcGeVector2d& v)
{
    return std::isfinite(v.x) && std::isfinite(v.y);
}
bool isFinite(const AcGeVector3d& v)
{
    return std::isfinite(v.lengthSqrd());
}
bool isFinite(AcDbObjectId)
{
    return true;
}
bool isFinite(std::int16_t)
{
    return true;
}
bool isFinite(std::int8_t)
{
    return true;
}
bool isFinite(std::int32_t)
{
    return true;
}

bool isLayer(AcDbObjectId id)
{
    return AcDbLayerTableRecord::cast(residentObject(id)) != nullptr;
}

/// The scales of the types from k1_1 on.
constexpr double standardScales[] = {
    1.0,       1.0 / 2,   1.0 / 4,   1.0 / 5,   1.0 / 8,  1.0 / 10, 1.0 / 16, 1.0 / 20, 1.0 / 30,
    1.0 / 40,  1.0 / 50,  1.0 / 100, 2.0,       4.0,      8.0,      10.0,     100.0,    1.0 / 1536,
    1.0 / 768, 1.0 / 384, 1.0 / 192, 1.0 / 128, 1.0 / 96, 1.0 / 64, 1.0 / 48, 1.0 / 32, 1.0 / 24,
    1.0 / 16,  1.0 / 12,  1.0 / 8,   1.0 / 4,   1.0 / 2,  1.0};
constexpr int standardScaleCount = static_cast<int>(sizeof standardScales / sizeof standardScales[0]);

bool isSameScale(double a, double b)
{
    return std::fabs(a - b) <= 1e-9 * std::fabs(b);
}

/// The highest number of the viewports in a block.
std::int16_t highestNumber(AcDbObjectId blockId)
{
    std::int16_t highest = 0;
    const auto* block = AcDbBlockTableRecord::cast(residentObject(blockId));
    if (!block) return highest;
    for (const AcDbObjectId id : block->entityIds()) {
        const auto* viewport = id.isErased() ? nullptr : AcDbViewport::cast(residentObject(id));
        if (viewport) highest = std::max(highest, viewport->number());
    }
    return highest;
}
} // namespace

double acdbStandardScaleValue(AcDbViewport::StandardScaleType type)
{
    const int index = type - AcDbViewport::k1_1;
    return index >= 0 && index < standardScaleCount ? standardScales[index] : 0.0;
}

template <class Value>
Acad::ErrorStatus AcDbViewport::change(Value& member, const Value& value)
{
    if (!isFinite(value)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) member = value;
    return status;
}

Acad::ErrorStatus AcDbViewport::setStatus(StatusBit bit, bool on)
{
    return change(mStatus, on ? mStatus | bit : mStatus & ~bit);
}

Acad::ErrorStatus AcDbViewport::setHeight(double height)
{
    return height > 0.0 ? change(mHeight, height) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbViewport::setWidth(double width)
{
    return width > 0.0 ? change(mWidth, width) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbViewport::setCenterPoint(const AcGePoint3d& point)
{
    return change(mCenter, point);
}

Acad::ErrorStatus AcDbViewport::setOn()
{
    const Acad::ErrorStatus status = setStatus(offBit, false);
    if (status != Acad::eOk || mDisplayOrder != 0) return status;
    if (mNumber < 1) mNumber = static_cast<std::int16_t>(highestNumber(ownerId()) + 1);
    mDisplayOrder = mNumber;
    return status;
}

Acad::ErrorStatus AcDbViewport::setOff()
{
    return setStatus(offBit, true);
}

Acad::ErrorStatus AcDbViewport::setViewTarget(const AcGePoint3d& point)
{
    return change(mTarget, point);
}

Acad::ErrorStatus AcDbViewport::setViewDirection(const AcGeVector3d& direction)
{
    return direction.isZeroLength() ? Acad::eInvalidInput : change(mDirection, direction);
}

Acad::ErrorStatus AcDbViewport::setViewHeight(double height)
{
    const Acad::ErrorStatus status = height > 0.0 ? change(mViewHeight, height) : Acad::eInvalidInput;
    if (status == Acad::eOk) mStandardScale = -1;
    return status;
}

Acad::ErrorStatus AcDbViewport::setViewCenter(const AcGePoint2d& center)
{
    return change(mViewCenter, center);
}
Acad::ErrorStatus AcDbViewport::setTwistAngle(double angle)
{
    return change(mTwist, angle);
}
Acad::ErrorStatus AcDbViewport::setLensLength(double length)
{
    return length > 0.0 ? change(mLensLength, length) : Acad::eInvalidInput;
}
Acad::ErrorStatus AcDbViewport::setFrontClipDistance(double distance)
{
    return change(mFrontClip, distance);
}
Acad::ErrorStatus AcDbViewport::setBackClipDistance(double distance)
{
    return change(mBackClip, distance);
}

double AcDbViewport::customScale() const
{
    return mViewHeight != 0.0 ? mHeight / mViewHeight : 1.0;
}

Acad::ErrorStatus AcDbViewport::setCustomScale(double scale)
{
    if (!(scale > 0.0)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = change(mViewHeight, mHeight / scale);
    if (status == Acad::eOk) mStandardScale = kCustomScale;
    return status;
}

AcDbViewport::StandardScaleType AcDbViewport::standardScale() const
{
    const auto kept = static_cast<StandardScaleType>(mStandardScale);
    const bool holds = kept > kCustomScale && isSameScale(customScale(), acdbStandardScaleValue(kept));
    if (holds || kept == kScaleToFit || kept == kCustomScale) return kept;
    for (int i = 0; i < standardScaleCount; ++i) {
        if (isSameScale(customScale(), standardScales[i])) return static_cast<StandardScaleType>(k1_1 + i);
    }
    return kCustomScale;
}

Acad::ErrorStatus AcDbViewport::setStandardScale(StandardScaleType type)
{
    if (type < kScaleToFit || type > k1ft_1ft) return Acad::eInvalidInput;
    const double scale = acdbStandardScaleValue(type);
    const Acad::ErrorStatus status = change(mViewHeight, scale > 0.0 ? mHeight / scale : mViewHeight);
    if (status == Acad::eOk) mStandardScale = static_cast<std::int16_t>(type);
    return status;
}

Acad::ErrorStatus AcDbViewport::setGridIncrement(const AcGeVector2d& increment)
{
    return increment.x >= 0.0 && increment.y >= 0.0 ? change(mGrid, increment) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbViewport::setGridMajor(std::uint16_t lines)
{
    return lines <= 100 ? change(mGridMajor, static_cast<std::int16_t>(lines)) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbViewport::setSnapAngle(double angle)
{
    return change(mSnapAngle, angle);
}
Acad::ErrorStatus AcDbViewport::setSnapBasePoint(const AcGePoint2d& point)
{
    return change(mSnapBase, point);
}

Acad::ErrorStatus AcDbViewport::setSnapIncrement(const AcGeVector2d& increment)
{
    return increment.x >= 0.0 && increment.y >= 0.0 ? change(mSnap, increment) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbViewport::setCircleSides(std::uint16_t sides)
{
    const bool isInRange = sides >= 1 && sides <= 20000;
    return isInRange ? change(mCircleSides, static_cast<std::int16_t>(sides)) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbViewport::setElevation(double elevation)
{
    return change(mElevation, elevation);
}

Acad::ErrorStatus AcDbViewport::setRenderMode(int mode)
{
    return mode >= 0 && mode <= 6 ? change(mRenderMode, static_cast<std::int8_t>(mode)) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbViewport::setShadePlot(ShadePlotType type)
{
    const bool isInRange = type >= kAsDisplayed && type <= kRenderPreset;
    return isInRange ? change(mShadePlot, static_cast<std::int16_t>(type)) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbViewport::setVisualStyle(AcDbObjectId style)
{
    return change(mVisualStyle, style);
}
Acad::ErrorStatus AcDbViewport::setBackground(AcDbObjectId background)
{
    return change(mBackground, background);
}

Acad::ErrorStatus AcDbViewport::plotStyleSheet(ACHAR*& name) const
{
    return acutNewString(mPlotStyleSheet, name) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbViewport::setPlotStyleSheet(const ACHAR* name)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mPlotStyleSheet = name ? name : L"";
    return status;
}

Acad::ErrorStatus AcDbViewport::freezeLayersInViewport(const AcDbObjectIdArray& layers)
{
    for (int i = 0; i < layers.length(); ++i) {
        if (!isLayer(layers[i])) return Acad::eInvalidLayer;
    }
    const Acad::ErrorStatus status = beginChange();
    for (int i = 0; status == Acad::eOk && i < layers.length(); ++i) {
        if (!isLayerFrozenInViewport(layers[i])) mFrozen.push_back(layers[i]);
    }
    return status;
}

Acad::ErrorStatus AcDbViewport::thawLayersInViewport(const AcDbObjectIdArray& layers)
{
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    const auto isThawed = [&](AcDbObjectId id) { return layers.contains(id); };
    mFrozen.erase(std::remove_if(mFrozen.begin(), mFrozen.end(), isThawed), mFrozen.end());
    return status;
}

Acad::ErrorStatus AcDbViewport::thawAllLayersInViewport()
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mFrozen.clear();
    return status;
}

bool AcDbViewport::isLayerFrozenInViewport(AcDbObjectId layer) const
{
    return std::find(mFrozen.begin(), mFrozen.end(), layer) != mFrozen.end();
}

Acad::ErrorStatus AcDbViewport::getFrozenLayerList(AcDbObjectIdArray& layers) const
{
    for (const AcDbObjectId id : mFrozen) {
        if (!id.isErased()) layers.append(id);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::setNonRectClipOn()
{
    return mClip.isNull() ? Acad::eInvalidInput : setStatus(clipBit, true);
}

Acad::ErrorStatus AcDbViewport::setNonRectClipEntityId(AcDbObjectId entity)
{
    if (entity.isNull()) {
        const Acad::ErrorStatus status = setStatus(clipBit, false);
        if (status == Acad::eOk) mClip = entity;
        return status;
    }
    const auto* outline = AcDbEntity::cast(residentObject(entity));
    AcDbExtents extents;
    if (!outline || outline == this || outline->getGeomExtents(extents) != Acad::eOk)
        return Acad::eInvalidInput;
    if (outline->ownerId() != ownerId()) return Acad::eInvalidOwnerObject;
    const Acad::ErrorStatus status = setStatus(clipBit, true);
    if (status != Acad::eOk) return status;
    // The rectangle follows the outline; what is seen keeps its scale and its place on the paper.
    const double scale = customScale();
    const AcGePoint3d middle = extents.minPoint() + (extents.maxPoint() - extents.minPoint()) / 2.0;
    const AcGeVector3d moved = middle - mCenter;
    mViewCenter += AcGeVector2d(moved.x, moved.y) / scale;
    mCenter = middle;
    mWidth = extents.maxPoint().x - extents.minPoint().x;
    mHeight = extents.maxPoint().y - extents.minPoint().y;
    mViewHeight = mHeight / scale;
    mClip = entity;
    return status;
}

Acad::ErrorStatus AcDbViewport::getUcs(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis) const
{
    origin = mUcsOrigin;
    xAxis = mUcsXAxis;
    yAxis = mUcsYAxis;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::setUcs(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                       const AcGeVector3d& yAxis)
{
    if (!isFinite(origin) || !xAxis.isPerpendicularTo(yAxis)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mUcsOrigin = origin;
    mUcsXAxis = xAxis.normal();
    mUcsYAxis = yAxis.normal();
    mUcsName.setNull();
    mUcsBase.setNull();
    mOrthographicType = 0;
    return status;
}

Acad::ErrorStatus AcDbViewport::setUcs(AcDbObjectId ucs)
{
    const auto* record = AcDbUCSTableRecord::cast(residentObject(ucs));
    if (!record) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = setUcs(record->origin(), record->xAxis(), record->yAxis());
    if (status == Acad::eOk) mUcsName = ucs;
    return status;
}

Acad::ErrorStatus AcDbViewport::setUcsToWorld()
{
    return setUcs(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis);
}

bool AcDbViewport::isUcsOrthographic(AcDb::OrthographicView& view) const
{
    view = static_cast<AcDb::OrthographicView>(mOrthographicType);
    return mOrthographicType != 0;
}

Acad::ErrorStatus AcDbViewport::setUcsPerViewport(bool perViewport)
{
    return change(mUcsPerViewport, static_cast<std::int8_t>(perViewport));
}
