#include "dbmtext.h"

#include "DbObjectAccess.h"
#include "MTextExtras.h"
#include "MTextMembers.h"
#include "PlanarCoords.h"
#include "acutads.h"
#include "dbapserv.h"
#include "dbdatabase.h"

#include <cmath>

namespace
{
AcGeVector3d directionOf(const AcGeVector3d& normal, double rotation)
{
    return ocsToWorld(normal) * AcGeVector3d(std::cos(rotation), std::sin(rotation), 0.0);
}
} // namespace

AcDbMText::AcDbMText() = default;
AcDbMText::AcDbMText(const AcDbMText& other) = default;
AcDbMText& AcDbMText::operator=(const AcDbMText& other) = default;
AcDbMText::~AcDbMText() = default;

Acad::ErrorStatus AcDbMText::beginTextChange()
{
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mIsChanged = true;
    if (!mExtras) return status;
    mExtras->fileWidth.reset();
    mExtras->fileHeight.reset();
    return status;
}

Acad::ErrorStatus AcDbMText::setLocation(const AcGePoint3d& location)
{
    if (!std::isfinite(location.x + location.y + location.z)) return Acad::eInvalidInput;
    return change(mLocation, location);
}

Acad::ErrorStatus AcDbMText::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength() || !std::isfinite(normal.length())) return Acad::eInvalidInput;
    const double turn = rotation();
    const Acad::ErrorStatus status = change(mNormal, normal.normal());
    return status == Acad::eOk ? setRotation(turn) : status;
}

AcGeVector3d AcDbMText::direction() const
{
    if (mExtras && mExtras->fileRotation) return directionOf(mNormal, *mExtras->fileRotation);
    const AcGeVector3d inPlane = mDirection - mDirection.dotProduct(mNormal) / mNormal.lengthSqrd() * mNormal;
    return inPlane.isZeroLength() ? directionOf(mNormal, 0.0) : inPlane.normal();
}

Acad::ErrorStatus AcDbMText::setDirection(const AcGeVector3d& direction)
{
    const AcGeVector3d inPlane = direction - direction.dotProduct(mNormal) * mNormal;
    if (inPlane.isZeroLength() || !std::isfinite(inPlane.length())) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = change(mDirection, inPlane.normal());
    if (status == Acad::eOk && mExtras) mExtras->fileRotation.reset();
    return status;
}

double AcDbMText::rotation() const
{
    const AcGeVector3d along = worldToOcs(mNormal) * direction();
    return std::atan2(along.y, along.x);
}

Acad::ErrorStatus AcDbMText::setRotation(double rotation)
{
    if (!std::isfinite(rotation)) return Acad::eInvalidInput;
    return setDirection(directionOf(mNormal, rotation));
}

Acad::ErrorStatus AcDbMText::setWidth(double width)
{
    return width >= 0.0 && std::isfinite(width) ? change(mWidth, width) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbMText::setHeight(double height)
{
    return height >= 0.0 && std::isfinite(height) ? change(mHeight, height) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbMText::setTextHeight(double height)
{
    return height > 0.0 && std::isfinite(height) ? change(mTextHeight, height) : Acad::eInvalidInput;
}

AcDbObjectId AcDbMText::textStyle() const
{
    if (!mStyle.isNull()) return mStyle;
    const AcDbDatabase* from = database() ? database() : acdbHostApplicationServices()->workingDatabase();
    return from ? from->textstyle() : AcDbObjectId();
}

Acad::ErrorStatus AcDbMText::setTextStyle(AcDbObjectId style)
{
    if (!style.isValid() || !style.objectClass()->isDerivedFrom(AcDbTextStyleTableRecord::desc()))
        return Acad::eInvalidTextStyle;
    if (database() && style.database() != database()) return Acad::eWrongDatabase;
    return change(mStyle, style);
}

Acad::ErrorStatus AcDbMText::setAttachment(AttachmentPoint attachment)
{
    if (attachment < kTopLeft || attachment > kBottomRight) return Acad::eInvalidInput;
    return change(mAttachment, attachment);
}

Acad::ErrorStatus AcDbMText::setFlowDirection(FlowDirection direction)
{
    if (direction < kLtoR || direction > kByStyle) return Acad::eInvalidInput;
    return change(mFlowDirection, direction);
}

Acad::ErrorStatus AcDbMText::setLineSpacingStyle(AcDb::LineSpacingStyle style)
{
    if (style != AcDb::kAtLeast && style != AcDb::kExactly) return Acad::eInvalidInput;
    return change(mSpacingStyle, style);
}

Acad::ErrorStatus AcDbMText::setLineSpacingFactor(double factor)
{
    return factor >= 0.25 && factor <= 4.0 ? change(mSpacingFactor, factor) : Acad::eInvalidInput;
}

ACHAR* AcDbMText::contents() const
{
    ACHAR* copy = nullptr;
    acutNewString(mContents, copy);
    return copy;
}

Acad::ErrorStatus AcDbMText::contents(CString& contents) const
{
    contents = mContents;
    return Acad::eOk;
}

int AcDbMText::setContents(const ACHAR* contents)
{
    if (!contents || beginTextChange() != Acad::eOk) return 0;
    mContents = contents;
    if (mExtras) mExtras->chunks.clear();
    return 1;
}

ACHAR* AcDbMText::text() const
{
    CString plain;
    text(plain);
    ACHAR* copy = nullptr;
    acutNewString(plain, copy);
    return copy;
}

Acad::ErrorStatus AcDbMText::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    plane.set(mLocation, mNormal);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

void AcDbMText::getEcs(AcGeMatrix3d& matrix) const { matrix = ocsToWorld(mNormal); }

void AcDbMText::subSetDatabaseDefaults(AcDbDatabase* db) { mStyle = db->textstyle(); }

Acad::ErrorStatus AcDbMText::subClose()
{
    if (mStyle.isNull()) mStyle = textStyle();
    if (mIsChanged) MTextFields::forgetEmbedded(*this);
    mIsChanged = false;
    return AcDbEntity::subClose();
}
