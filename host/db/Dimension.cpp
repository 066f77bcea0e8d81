#include "dbdimension.h"

#include "acutads.h"
#include "ClassRegistration.h"
#include "dbblock.h"
#include "dbdatabase.h"
#include "DimensionPicture.h"
#include "DimensionText.h"
#include "DimVariables.h"
#include "PlanarCoords.h"
#include "Stub.h"

#include <cmath>

ACDB_ABSTRACT_CLASS(AcDbDimension, AcDbEntity)

namespace
{
bool isInPaperSpace(const AcDbObject& object)
{
    const auto* block = AcDbBlockTableRecord::cast(residentObject(object.ownerId()));
    return block && block->isLayout() && block->name().CompareNoCase(ACDB_MODEL_SPACE) != 0;
}

bool isPureMove(const AcGeMatrix3d& map)
{
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            if (map.entry[row][column] != (row == column ? 1.0 : 0.0)) return false;
        }
    }
    return true;
}

double mappedAngle(const AcGeMatrix3d& map, double angle)
{
    const AcGeVector3d direction = map * AcGeVector3d(std::cos(angle), std::sin(angle), 0.0);
    return std::atan2(direction.y, direction.x);
}
} // namespace

AcDbDimension::~AcDbDimension() = default;

// A block shows one dimension: the copy gets its own when it is closed.
AcDbDimension::AcDbDimension(const AcDbDimension& other) : AcDbEntity(other)
{
    *this = other;
}

AcDbDimension& AcDbDimension::operator=(const AcDbDimension& other)
{
    AcDbEntity::operator=(other);
    mDefPoint = other.mDefPoint;
    mFlags = other.mFlags;
    mBlock = other.mBlock;
    mStyle = other.mStyle;
    mTextPosition = other.mTextPosition;
    mBlockPosition = other.mBlockPosition;
    mNormal = other.mNormal;
    mText = other.mText;
    mTextRotation = other.mTextRotation;
    mHorizontalRotation = other.mHorizontalRotation;
    mSpacingFactor = other.mSpacingFactor;
    mFileMeasure = other.mFileMeasure;
    mAttachment = other.mAttachment;
    mSpacingStyle = other.mSpacingStyle;
    mHasFileMeasure = other.mHasFileMeasure;
    mGiven = other.mGiven;
    mFlipsFirst = other.mFlipsFirst;
    mFlipsSecond = other.mFlipsSecond;
    mIsStale = other.mIsStale || other.mMadeBlock;
    mMadeBlock = false;
    return *this;
}

void AcDbDimension::begin(const AcGePoint3d& defPoint, const ACHAR* dimText, AcDbObjectId dimStyle)
{
    mDefPoint = defPoint;
    if (dimText) setDimensionText(dimText);
    if (!dimStyle.isNull()) setDimensionStyle(dimStyle);
}

Acad::ErrorStatus AcDbDimension::beginReshape()
{
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mIsStale = true;
    mHasFileMeasure = false;
    return status;
}

Acad::ErrorStatus AcDbDimension::change(AcGePoint3d& member, const AcGePoint3d& point)
{
    if (!isFinite(point)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) member = point;
    return status;
}

Acad::ErrorStatus AcDbDimension::change(double& member, double value)
{
    if (!std::isfinite(value)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) member = value;
    return status;
}

Acad::ErrorStatus AcDbDimension::setDimBlockId(AcDbObjectId block)
{
    if (!block.isNull() && !AcDbBlockTableRecord::cast(residentObject(block))) return Acad::eWrongObjectType;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mBlock = block;
    mMadeBlock = false;
    mIsStale = block.isNull();
    return status;
}

AcGePoint3d AcDbDimension::dimBlockPosition() const
{
    return ocsToWorld(mNormal) * mBlockPosition;
}

Acad::ErrorStatus AcDbDimension::setDimBlockPosition(const AcGePoint3d& position)
{
    if (!isFinite(position)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mBlockPosition = worldToOcs(mNormal) * position;
    return status;
}

AcGeMatrix3d AcDbDimension::blockTransform() const
{
    return AcGeMatrix3d::translation(dimBlockPosition().asVector());
}

AcGePoint3d AcDbDimension::textPosition() const
{
    return ocsToWorld(mNormal) * mTextPosition;
}

Acad::ErrorStatus AcDbDimension::setTextPosition(const AcGePoint3d& position)
{
    const Acad::ErrorStatus status = change(mTextPosition, worldToOcs(mNormal) * position);
    if (status == Acad::eOk) mFlags = static_cast<std::int16_t>(mFlags | userPosition);
    return status;
}

Acad::ErrorStatus AcDbDimension::useSetTextPosition()
{
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) mFlags = static_cast<std::int16_t>(mFlags | userPosition);
    return status;
}

Acad::ErrorStatus AcDbDimension::useDefaultTextPosition()
{
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) mFlags = static_cast<std::int16_t>(mFlags & ~userPosition);
    return status;
}

Acad::ErrorStatus AcDbDimension::setTextRotation(double rotation)
{
    return change(mTextRotation, rotation);
}

Acad::ErrorStatus AcDbDimension::setTextAttachment(AcDbMText::AttachmentPoint attachment)
{
    if (attachment < AcDbMText::kTopLeft || attachment > AcDbMText::kBottomRight) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) mAttachment = static_cast<std::int8_t>(attachment);
    return status;
}

Acad::ErrorStatus AcDbDimension::setTextLineSpacingStyle(AcDb::LineSpacingStyle style)
{
    if (style != AcDb::kAtLeast && style != AcDb::kExactly) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) mSpacingStyle = static_cast<std::int8_t>(style);
    return status;
}

Acad::ErrorStatus AcDbDimension::setTextLineSpacingFactor(double factor)
{
    return factor >= 0.25 && factor <= 4.0 ? change(mSpacingFactor, factor) : Acad::eInvalidInput;
}

ACHAR* AcDbDimension::dimensionText() const
{
    ACHAR* copy = nullptr;
    acutNewString(mText, copy);
    return copy;
}

Acad::ErrorStatus AcDbDimension::dimensionText(CString& text) const
{
    text = mText;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setDimensionText(const ACHAR* text)
{
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) mText = text ? text : L"";
    return status;
}

Acad::ErrorStatus AcDbDimension::measurement(double& value) const
{
    value = measure();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::formatMeasurement(CString& formatted, double measurement,
                                                   const ACHAR* dimensionText) const
{
    if (!std::isfinite(measurement)) return Acad::eInvalidInput;
    DimensionMeasure measured{measurement, isAngular(), measureSign(), isInPaperSpace(*this)};
    const CString text = dimensionText ? dimensionText : L"";
    formatted = ::dimensionText(dimVariablesOf(dimensionStyle(), *this), measured, text).c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::formatMeasurement(ACHAR*& formatted, double measurement,
                                                   const ACHAR* dimensionText) const
{
    CString text;
    const Acad::ErrorStatus status = formatMeasurement(text, measurement, dimensionText);
    if (status != Acad::eOk) return status;
    return acutNewString(text, formatted) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbDimension::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength() || !std::isfinite(normal.lengthSqrd())) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginReshape();
    if (status != Acad::eOk) return status;
    const AcGeMatrix3d map = worldToOcs(normal.normal()) * ocsToWorld(mNormal);
    mTextPosition.transformBy(map);
    mBlockPosition.transformBy(map);
    mNormal = normal.normal();
    return status;
}

Acad::ErrorStatus AcDbDimension::setElevation(double elevation)
{
    return change(mTextPosition.z, elevation);
}

Acad::ErrorStatus AcDbDimension::setHorizontalRotation(double rotation)
{
    return change(mHorizontalRotation, rotation);
}

AcDbObjectId AcDbDimension::dimensionStyle() const
{
    if (!mStyle.isNull() || !database()) return mStyle;
    AcDbObjectId standard;
    const auto* table = AcDbDimStyleTable::cast(residentObject(database()->dimStyleTableId()));
    if (table) table->getAt(L"Standard", standard);
    return standard;
}

void AcDbDimension::subSetDatabaseDefaults(AcDbDatabase* db) { mStyle = db->dimstyle(); }

Acad::ErrorStatus AcDbDimension::setDimensionStyle(AcDbObjectId style)
{
    if (!AcDbDimStyleTableRecord::cast(residentObject(style))) return Acad::eInvalidDimStyle;
    if (database() && style.database() != database()) return Acad::eWrongDatabase;
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) mStyle = style;
    return status;
}

Acad::ErrorStatus AcDbDimension::setDimstyleData(AcDbObjectId style)
{
    const Acad::ErrorStatus status = setDimensionStyle(style);
    return status == Acad::eOk ? clearDimOverrides(*this) : status;
}

Acad::ErrorStatus AcDbDimension::setArrowFirstIsFlipped(bool flipped)
{
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) mFlipsFirst = flipped;
    return status;
}

Acad::ErrorStatus AcDbDimension::setArrowSecondIsFlipped(bool flipped)
{
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) mFlipsSecond = flipped;
    return status;
}

Acad::ErrorStatus AcDbDimension::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    plane.set(ocsToWorld(mNormal) * AcGePoint3d(0.0, 0.0, elevation()), mNormal);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

void AcDbDimension::getEcs(AcGeMatrix3d& matrix) const
{
    matrix = ocsToWorld(mNormal);
}

double AcDbDimension::textAngle(const DimVariables& variables, double along, bool isInside) const
{
    const bool isHorizontal = isInside ? variables.dimtih : variables.dimtoh;
    return horizontal() + (isHorizontal ? 0.0 : readableAngle(along - horizontal())) + mTextRotation;
}

bool AcDbDimension::draw(DimensionPicture& picture, AcGePoint2d& textMiddle) const
{
    const DimensionMeasure measured{measure(), isAngular(), measureSign(), isInPaperSpace(*this)};
    picture.setContents(::dimensionText(picture.variables(), measured, mText));
    return layOut(picture, textMiddle);
}

Acad::ErrorStatus AcDbDimension::subTransformBy(const AcGeMatrix3d& xform)
{
    const AcGeVector3d normal = mappedNormal(xform, mNormal);
    const AcGeMatrix3d map = mappedCoordinates(xform, mNormal, normal);
    const bool mirrors = map.entry[0][0] * map.entry[1][1] - map.entry[0][1] * map.entry[1][0] < 0.0;
    const bool keepsPicture = isPureMove(xform) && !mIsStale && !mBlock.isNull();
    mTextPosition.transformBy(map);
    mHorizontalRotation = -mappedAngle(map, horizontal());
    // A mirrored dimension keeps its text readable.
    if (mirrors) {
        mHorizontalRotation = -readableAngle(-mHorizontalRotation);
        mTextRotation = -mTextRotation;
    }
    mDefPoint.transformBy(xform);
    mapPoints(xform);
    mapAngles(map);
    mNormal = normal;
    if (keepsPicture) {
        mBlockPosition.transformBy(map);
    } else {
        mIsStale = true;
        mHasFileMeasure = false;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&,
                                                  AcDbIntArray&) const
{
    gripPoints.append(definingPoints());
    gripPoints.append(textPosition());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    const AcGePoint3dArray points = definingPoints();
    mIsStale = true;
    mHasFileMeasure = false;
    for (int i = 0; i < points.length(); ++i) {
        if (indices.contains(i)) setDefiningPoint(i, points[i] + offset);
    }
    return indices.contains(points.length()) ? setTextPosition(textPosition() + offset) : Acad::eOk;
}
