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

/// The place of the alignment point on the way from the start of a text to its end.
double partOfWay(int horizontal)
{
    const bool isMiddle = horizontal == AcDb::kTextCenter || horizontal == AcDb::kTextMid;
    return isMiddle ? 0.5 : horizontal == AcDb::kTextRight ? 1.0 : 0.0;
}

/// Its height above the baseline. Middle is that of what is drawn, descenders and all; the others go by the letters.
double heightOfPoint(const lettering::TextMeasure& measure, double height, int horizontal, int vertical)
{
    if (horizontal == AcDb::kTextMid && !measure.ink.isEmpty())
        return (measure.ink.min.y + measure.ink.max.y) / 2.0;
    if (vertical == AcDb::kTextVertMid || horizontal == AcDb::kTextMid) return height / 2.0;
    return vertical == AcDb::kTextBottom ? -measure.descent : vertical == AcDb::kTextTop ? height : 0.0;
}

/// How far the alignment point lies from the start of the text, in the text's own coordinates. Columns hang on their
/// middle line: heights on the letters say nothing to them. Mirrored texts are mirrored in their alignment point.
AcGeVector2d alignmentOffset(const lettering::TextMeasure& measure, const AcGiTextStyle& style, int horizontal,
                             int vertical)
{
    const double way = partOfWay(horizontal) * measure.advance;
    if (style.isVertical) return {0.0, style.isUpsideDown ? way : -way};
    // What is drawn upside down is measured so.
    const bool isMeasured = horizontal == AcDb::kTextMid && !measure.ink.isEmpty();
    const double up = heightOfPoint(measure, style.textSize, horizontal, vertical);
    return {style.isBackward ? -way : way, style.isUpsideDown && !isMeasured ? -up : up};
}

bool readsRight(const AcGeVector3d& along)
{
    const double rounding = 1e-9 * along.length();
    return along.x > rounding || (along.x > -rounding && along.y > 0.0);
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

/// The direction of the characters' own X axis. A column runs down along the rotation of its text: its letters are
/// upright at 270 degrees.
double AcDbText::letterTurn(const AcGiTextStyle& style) const
{
    constexpr double quarter = 1.5707963267948966;
    return style.isVertical ? mRotation + quarter : mRotation;
}

/// Programs leave the position of a justified text anywhere, and with another font it would be another one: the text is
/// hung on its alignment point anew.
AcGeMatrix3d AcDbText::textToWorld() const
{
    const AcGiTextStyle style = drawnStyle();
    AcGeMatrix3d turn, move, hang;
    turn.setToRotation(letterTurn(style), AcGeVector3d::kZAxis);
    const bool isHung = hangsOnAlignmentPoint(mHorizontal, mVertical);
    move.setToTranslation((isHung ? mAlignment : mPosition).asVector());
    if (isHung) {
        const AcGeVector2d offset =
            alignmentOffset(measureOf(style, shownText()), style, mHorizontal, mVertical);
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
/// only, which columns do not: they are turned alone. All keep the position as their start.
void AcDbText::stretch(const AcGiTextStyle& style, double length)
{
    AcGeVector3d along = mAlignment - mPosition;
    if (along.isZeroLength() || !(length > 0.0)) return;
    const double factor = along.length() / length;
    if (!std::isfinite(factor)) return;
    // Mirrored texts run against their direction.
    if (style.isVertical ? style.isUpsideDown : style.isBackward) along = -along;
    mRotation = std::atan2(along.y, along.x);
    if (mHorizontal == AcDb::kTextAlign) mHeight *= factor;
    if (mHorizontal == AcDb::kTextFit && !style.isVertical) mWidthFactor *= factor;
}

Acad::ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase*)
{
    if (isDefaultAlignment()) return Acad::eNotApplicable;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    const AcGiTextStyle style = drawnStyle();
    const lettering::TextMeasure measure = measureOf(style, shownText());
    if (!hangsOnAlignmentPoint(mHorizontal, mVertical)) {
        stretch(style, measure.advance);
        return status;
    }
    const AcGeVector2d offset = alignmentOffset(measure, style, mHorizontal, mVertical);
    AcGeVector3d turned(offset.x, offset.y, 0.0);
    turned.rotateBy(letterTurn(style), AcGeVector3d::kZAxis);
    mPosition = mAlignment - turned;
    return status;
}

/// A mirrored text stands where its mirror image would, but reads the right way round: to the right, or upwards.
/// `along` and `up` are the directions of the image and become those of the text. Of a column the letters are turned
/// alone.
void AcDbText::keepReadable(AcGeVector3d& along, AcGeVector3d& up)
{
    const AcGiTextStyle style = drawnStyle();
    const bool turnsBack = !style.isVertical && !readsRight(along);
    if (!style.isVertical) {
        const lettering::TextMeasure measure = measureOf(style, shownText());
        const double height = heightOfPoint(measure, mHeight, mHorizontal, mVertical) / mHeight;
        const double part = turnsBack ? partOfWay(mHorizontal) : mHorizontal == AcDb::kTextMid ? 0.5 : height;
        const AcGeVector3d way = turnsBack ? (style.isBackward ? -measure.advance : measure.advance) * along
                                           : (style.isUpsideDown ? -mHeight : mHeight) * up;
        const bool isStretched = mHorizontal == AcDb::kTextAlign || mHorizontal == AcDb::kTextFit;
        if (isStretched && turnsBack) {
            std::swap(mPosition, mAlignment);
        } else {
            mPosition += way;
            if (!isDefaultAlignment()) mAlignment += (1.0 - 2.0 * part) * way;
        }
    }
    AcGeVector3d& turned = turnsBack ? along : up;
    turned = -turned;
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
    // The one that a left aligned text has is of no use and stays in the origin.
    if (!isDefaultAlignment()) mAlignment.transformBy(map);
    if (along.x * up.y < along.y * up.x) keepReadable(along, up);
    const double upwards = std::fabs(along.x * up.y - along.y * up.x) / along.length();
    mRotation = std::atan2(along.y, along.x);
    // The letters of a column are as high as it is long.
    const double wide = along.length(), high = upwards;
    const bool isColumn = drawnStyle().isVertical;
    mWidthFactor *= isColumn ? high / wide : wide / high;
    mHeight *= isColumn ? wide : high;
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

bool AcDbText::subWorldDraw(AcGiWorldDraw* draw)
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

Acad::ErrorStatus AcDbText::pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d&, const AcGePoint3d&,
                                              AcGePoint3dArray& points) const
{
    if (mode == AcDb::kOsModeIns) points.append(isDefaultAlignment() ? position() : alignmentPoint());
    return Acad::eOk;
}
