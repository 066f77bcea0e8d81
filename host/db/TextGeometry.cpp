/// Where the characters of a text lie: its box, its alignment, its maps.

#include "PlanarCoords.h"
#include "TextLook.h"
#include "acgi.h"
#include "dbtext.h"

#include <cmath>

namespace
{
lettering::TextMeasure measureOf(const AcGiTextStyle& style, const CString& text)
{
    const TextLook look = textLookOf(style);
    const std::wstring_view view(text, static_cast<std::size_t>(text.GetLength()));
    return lettering::measureText(lettering::fontNamed(look.font), look.look, lettering::decodeTextCodes(view));
}

/// How far the alignment point lies from the start of the baseline, in the text's own coordinates.
AcGeVector2d alignmentOffset(const lettering::TextMeasure& measure, double height, int horizontal, int vertical)
{
    double x = 0.0;
    if (horizontal == AcDb::kTextCenter || horizontal == AcDb::kTextMid) x = measure.advance / 2.0;
    if (horizontal == AcDb::kTextRight) x = measure.advance;
    double y = 0.0;
    if (vertical == AcDb::kTextBottom) y = -measure.descent;
    if (vertical == AcDb::kTextVertMid || horizontal == AcDb::kTextMid) y = height / 2.0;
    if (vertical == AcDb::kTextTop) y = height;
    return {x, y};
}

/// Whether the alignment point alone says where the text lies. Aligned and fitted texts start at their position.
bool hangsOnAlignmentPoint(int horizontal, int vertical)
{
    if (horizontal == AcDb::kTextAlign || horizontal == AcDb::kTextFit) return false;
    return horizontal != AcDb::kTextLeft || vertical != AcDb::kTextBase;
}
} // namespace

AcGiTextStyle AcDbText::drawnStyle() const
{
    AcGiTextStyle style = textStyleOf(textStyle());
    style.textSize = mHeight;
    style.xScale = mWidthFactor;
    style.obliquingAngle = mOblique;
    style.isBackward = isMirroredInX();
    style.isUpsideDown = isMirroredInY();
    return style;
}

/// Programs leave the position of a justified text anywhere, and with another font it would be another one: the text is
/// hung on its alignment point anew.
AcGeMatrix3d AcDbText::textToWorld() const
{
    AcGeMatrix3d turn, move, hang;
    turn.setToRotation(mRotation, AcGeVector3d::kZAxis);
    const bool isHung = hangsOnAlignmentPoint(mHorizontal, mVertical);
    move.setToTranslation((isHung ? mAlignment : mPosition).asVector());
    if (isHung) {
        const AcGeVector2d offset =
            alignmentOffset(measureOf(drawnStyle(), shownText()), mHeight, mHorizontal, mVertical);
        hang.setToTranslation(AcGeVector3d(-offset.x, -offset.y, 0.0));
    }
    return ocsToWorld(mNormal) * move * turn * hang;
}

bool AcDbText::boundingPoints(AcGePoint3d (&corners)[4]) const
{
    const lettering::TextMeasure measure = measureOf(drawnStyle(), shownText());
    if (measure.ink.isEmpty()) return false;
    const AcGeMatrix3d world = textToWorld();
    const AcGePoint2d &min = measure.ink.min, &max = measure.ink.max;
    corners[0] = world * AcGePoint3d(min.x, min.y, 0.0);
    corners[1] = world * AcGePoint3d(max.x, min.y, 0.0);
    corners[2] = world * AcGePoint3d(max.x, max.y, 0.0);
    corners[3] = world * AcGePoint3d(min.x, max.y, 0.0);
    return true;
}

/// Aligned texts grow or shrink to reach from the position to the alignment point; fitted ones change their width
/// only. Both keep the position as their start.
Acad::ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase*)
{
    if (isDefaultAlignment()) return Acad::eNotApplicable;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    const lettering::TextMeasure measure = measureOf(drawnStyle(), shownText());
    if (mHorizontal == AcDb::kTextAlign || mHorizontal == AcDb::kTextFit) {
        const AcGeVector3d along = mAlignment - mPosition;
        if (along.isZeroLength() || !(measure.advance > 0.0)) return status;
        mRotation = std::atan2(along.y, along.x);
        (mHorizontal == AcDb::kTextAlign ? mHeight : mWidthFactor) *= along.length() / measure.advance;
        return status;
    }
    const AcGeVector2d offset = alignmentOffset(measure, mHeight, mHorizontal, mVertical);
    AcGeVector3d turned(offset.x, offset.y, 0.0);
    turned.rotateBy(mRotation, AcGeVector3d::kZAxis);
    mPosition = mAlignment - turned;
    return status;
}

Acad::ErrorStatus AcDbText::subTransformBy(const AcGeMatrix3d& xform)
{
    const AcGeVector3d normal = mappedNormal(xform, mNormal);
    const AcGeMatrix3d map = mappedCoordinates(xform, mNormal, normal);
    AcGeVector3d along(std::cos(mRotation), std::sin(mRotation), 0.0);
    AcGeVector3d up(-along.y, along.x, 0.0);
    along.transformBy(map);
    up.transformBy(map);
    if (along.isZeroLength()) return Acad::eCannotScaleNonUniformly;
    mPosition.transformBy(map);
    mAlignment.transformBy(map);
    // A mirrored text stays readable: it is turned, not reversed.
    const double upwards = std::fabs(along.x * up.y - along.y * up.x) / along.length();
    mRotation = std::atan2(along.y, along.x);
    mWidthFactor *= along.length() / upwards;
    mHeight *= upwards;
    mThickness = mappedThickness(xform, mNormal, mThickness);
    mNormal = normal;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subGetGeomExtents(AcDbExtents& extents) const
{
    AcGePoint3d corners[4];
    if (!boundingPoints(corners)) {
        extents.addPoint(position());
        return Acad::eOk;
    }
    for (const AcGePoint3d& corner : corners) extents.addPoint(corner);
    if (mThickness != 0.0) extents.expandBy(mThickness * mNormal);
    return Acad::eOk;
}

bool AcDbText::subWorldDraw(AcGiWorldDraw* draw) const
{
    const CString& text = shownText();
    const AcGeMatrix3d world = textToWorld();
    draw->geometry().text(world * AcGePoint3d::kOrigin, mNormal, world * AcGeVector3d::kXAxis, text, text.GetLength(), false,
                          drawnStyle());
    return true;
}

Acad::ErrorStatus AcDbText::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    gripPoints.append(position());
    if (!isDefaultAlignment()) gripPoints.append(alignmentPoint());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subGetOsnapPoints(AcDb::OsnapMode mode, const AcGePoint3d&, const AcGePoint3d&,
                                              AcGePoint3dArray& points) const
{
    if (mode == AcDb::kOsModeIns) points.append(isDefaultAlignment() ? position() : alignmentPoint());
    return Acad::eOk;
}
