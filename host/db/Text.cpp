#include "dbtext.h"

#include "PlanarCoords.h"
#include "TextLook.h"
#include "acutads.h"
#include "dbapserv.h"
#include "dbdatabase.h"
#include "dbsymutl.h"
#include "gecurv3d.h"
#include "gelnsg3d.h"

#include <cmath>

namespace
{
constexpr double mostOblique = 85.0 * 3.14159265358979323846 / 180.0;
}

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style, double height, double rotation)
    : mPosition(position), mRotation(rotation), mText(text), mStyle(style)
{
    if (height > 0.0) mHeight = height;
}

AcGePoint3d AcDbText::position() const { return ocsToWorld(mNormal) * mPosition; }

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& position)
{
    if (!isFinite(position)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mPosition = worldToOcs(mNormal) * position;
    return status;
}

AcGePoint3d AcDbText::alignmentPoint() const { return ocsToWorld(mNormal) * mAlignment; }

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& point)
{
    if (!isFinite(point)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mAlignment = worldToOcs(mNormal) * point;
    mHasAlignment = true;
    return status;
}

Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode)
{
    if (mode < AcDb::kTextLeft || mode > AcDb::kTextFit) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mHorizontal = static_cast<std::int8_t>(mode);
    return status;
}

Acad::ErrorStatus AcDbText::setVerticalMode(AcDb::TextVertMode mode)
{
    if (mode < AcDb::kTextBase || mode > AcDb::kTextTop) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mVertical = static_cast<std::int8_t>(mode);
    return status;
}

Acad::ErrorStatus AcDbText::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength() || !std::isfinite(normal.lengthSqrd())) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mNormal = normal.normal();
    return status;
}

Acad::ErrorStatus AcDbText::setThickness(double thickness)
{
    if (!std::isfinite(thickness)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mThickness = thickness;
    return status;
}

Acad::ErrorStatus AcDbText::setRotation(double rotation)
{
    if (!std::isfinite(rotation)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mRotation = rotation;
    return status;
}

Acad::ErrorStatus AcDbText::setOblique(double oblique)
{
    if (!(std::fabs(oblique) <= mostOblique)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mOblique = oblique;
    return status;
}

Acad::ErrorStatus AcDbText::setHeight(double height)
{
    if (!(height > 0.0) || !std::isfinite(height)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mHeight = height;
    return status;
}

Acad::ErrorStatus AcDbText::setWidthFactor(double factor)
{
    if (!(factor > 0.0) || !std::isfinite(factor)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mWidthFactor = factor;
    return status;
}

ACHAR* AcDbText::textString() const
{
    ACHAR* copy = nullptr;
    acutNewString(mText, copy);
    return copy;
}

Acad::ErrorStatus AcDbText::textString(CString& text) const
{
    text = mText;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text)
{
    if (!text || CString(text).FindOneOf(L"\r\n") >= 0) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mText = text;
    return status;
}

AcDbObjectId AcDbText::textStyle() const
{
    if (!mStyle.isNull()) return mStyle;
    const AcDbDatabase* from = database() ? database() : acdbHostApplicationServices()->workingDatabase();
    return from ? from->textstyle() : AcDbObjectId();
}

Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style)
{
    if (!style.isValid() || !style.objectClass()->isDerivedFrom(AcDbTextStyleTableRecord::desc()))
        return Acad::eInvalidTextStyle;
    if (database() && style.database() != database()) return Acad::eWrongDatabase;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mStyle = style;
    return status;
}

Acad::ErrorStatus AcDbText::mirrorInX(bool mirror)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mGeneration = static_cast<std::int16_t>(mirror ? mGeneration | 2 : mGeneration & ~2);
    return status;
}

Acad::ErrorStatus AcDbText::mirrorInY(bool mirror)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mGeneration = static_cast<std::int16_t>(mirror ? mGeneration | 4 : mGeneration & ~4);
    return status;
}

Acad::ErrorStatus AcDbText::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    plane.set(position(), mNormal);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

void AcDbText::getEcs(AcGeMatrix3d& matrix) const { matrix = ocsToWorld(mNormal); }

void AcDbText::subSetDatabaseDefaults(AcDbDatabase* db)
{
    mStyle = db->textstyle();
    const AcGiTextStyle style = textStyleOf(mStyle);
    mWidthFactor = style.xScale;
    mOblique = style.obliquingAngle;
    mGeneration = static_cast<std::int16_t>((style.isBackward ? 2 : 0) | (style.isUpsideDown ? 4 : 0));
}

/// Records that name no style have "Standard", whichever is current.
void AcDbText::completeRead()
{
    AcDbEntity::completeRead();
    if (mStyle.isNull()) mStyle = acdbSymUtil()->textStyleStandardId(database());
}

Acad::ErrorStatus AcDbText::subClose()
{
    if (mStyle.isNull()) mStyle = textStyle();
    if (isModifiedGraphics() && !isDefaultAlignment()) adjustAlignment(database());
    return AcDbEntity::subClose();
}

void AcDbText::intersectionCurves(Curves& curves, bool) const
{
    AcGePoint3d corners[4];
    if (!boundingPoints(corners)) return;
    for (int i = 0; i < 4; ++i) curves.push_back(std::make_unique<AcGeLineSeg3d>(corners[i], corners[(i + 1) % 4]));
}
