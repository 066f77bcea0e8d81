#include "dbdimradial.h"

#include "ClassRegistration.h"
#include "DimensionPicture.h"
#include "DxfFields.h"

#include <cmath>

ACDB_DXF_CLASS(AcDbRadialDimension, AcDbDimension, DIMENSION)
ACDB_DXF_CLASS(AcDbDiametricDimension, AcDbDimension, DIMENSION)
ACDB_DXF_CLASS(AcDbRadialDimensionLarge, AcDbDimension, LARGE_RADIAL_DIMENSION)

const DxfClass AcDbRadialDimension::dxf("AcDbRadialDimension", &AcDbDimension::dxf,
                                        {
                                            dxf::point<&AcDbRadialDimension::mChordPoint>(15),
                                            dxf::real<&AcDbRadialDimension::mLeaderLength>(40),
                                        });
const DxfClass AcDbDiametricDimension::dxf("AcDbDiametricDimension", &AcDbDimension::dxf,
                                           {
                                               dxf::point<&AcDbDiametricDimension::mChordPoint>(15),
                                               dxf::real<&AcDbDiametricDimension::mLeaderLength>(40),
                                           });
const DxfClass AcDbRadialDimensionLarge::dxf("AcDbRadialDimensionLarge", &AcDbDimension::dxf,
                                             {
                                                 dxf::point<&AcDbRadialDimensionLarge::mOverrideCenter>(13),
                                                 dxf::point<&AcDbRadialDimensionLarge::mJogPoint>(14),
                                                 dxf::point<&AcDbRadialDimensionLarge::mChordPoint>(15),
                                                 dxf::real<&AcDbRadialDimensionLarge::mJogAngle>(40),
                                             });

namespace
{
/// The line of a radius or diameter, in the dimension's plane.
struct RadialShape {
    AcGePoint2d center, tip;
    AcGeVector2d outwards; ///< unit, from the centre to the tip
    double radius = 0.0;

    RadialShape(const AcGePoint2d& from, const AcGePoint2d& to)
        : center(from), tip(to), outwards((to - from).normal()), radius((to - from).length())
    {
    }
};

/// A cross, or with a negative DIMCEN centre lines, as seen with texts outside.
void drawCenterMark(DimensionPicture& picture, const RadialShape& shape)
{
    const DimVariables& v = picture.variables();
    const double size = std::fabs(v.scaled(v.dimcen));
    if (size == 0.0 || size >= shape.radius) return;
    for (const AcGeVector2d& axis : {AcGeVector2d::kXAxis, AcGeVector2d::kYAxis}) {
        picture.dimensionLine(shape.center - axis * size, shape.center + axis * size);
        if (v.dimcen > 0.0) continue;
        for (const double side : {-1.0, 1.0})
            picture.dimensionLine(shape.center + axis * (side * 2.0 * size),
                                  shape.center + axis * (side * (shape.radius + size)));
    }
}

/// A line from a point on the text's landing to the text. Returns where the line to the arrow starts.
AcGePoint2d drawLanding(DimensionPicture& picture, const AcGePoint2d& middle, double angle,
                        const AcGePoint2d& tip)
{
    const DimVariables& v = picture.variables();
    const AcGeVector2d along(std::cos(angle), std::sin(angle));
    const double side = (middle - tip).dotProduct(along) < 0.0 ? -1.0 : 1.0;
    const AcGePoint2d end = middle - along * (side * (picture.textWidth() / 2.0 + picture.gap()));
    const AcGePoint2d landing = end - along * (side * v.scaled(v.dimasz));
    picture.dimensionLine(end, landing);
    return landing;
}

/// Where a text without a place of its own stands: outside, behind the leader and its landing.
AcGePoint2d defaultMiddle(const DimensionPicture& picture, const RadialShape& shape, double leaderLength,
                          double angle)
{
    const DimVariables& v = picture.variables();
    const double leader = leaderLength > 0.0 ? leaderLength : 2.0 * v.scaled(v.dimasz);
    const AcGeVector2d along(std::cos(angle), std::sin(angle));
    const double side = shape.outwards.dotProduct(along) < 0.0 ? -1.0 : 1.0;
    const double landing = v.scaled(v.dimasz) + picture.gap() + picture.textWidth() / 2.0;
    return shape.tip + shape.outwards * leader + along * (side * landing);
}

/// A text inside the curve: the line runs from it to the arrow.
void drawInside(DimensionPicture& picture, const RadialShape& shape, const AcGePoint2d& middle, double angle,
                const AcGePoint2d& lineStart)
{
    const double reach = picture.textReach(shape.outwards, angle) + picture.gap();
    const double distance = (middle - lineStart).dotProduct(shape.outwards);
    const double end = (shape.tip - lineStart).dotProduct(shape.outwards) - picture.arrowSize();
    const auto at = [&](double along) { return lineStart + shape.outwards * along; };
    if (!picture.hasText()) return picture.dimensionLine(lineStart, at(end));
    if (distance - reach > 0.0) picture.dimensionLine(lineStart, at(distance - reach));
    if (distance + reach < end) picture.dimensionLine(at(distance + reach), at(end));
}

/// A text outside the curve: its landing, the line to the arrow, and by DIMTOFL the line inside from
/// `lineStart`.
void drawOutside(DimensionPicture& picture, const RadialShape& shape, const AcGePoint2d& middle, double angle,
                 const AcGePoint2d& lineStart)
{
    const AcGePoint2d landing = drawLanding(picture, middle, angle, shape.tip);
    const AcGeVector2d inwards = (shape.tip - landing).normal();
    picture.dimensionLine(landing, shape.tip - inwards * picture.arrowSize());
    if (picture.variables().dimtofl) picture.dimensionLine(lineStart, shape.tip);
    picture.arrow(shape.tip, inwards, false);
    drawCenterMark(picture, shape);
}
} // namespace

DbChordDimension::DbChordDimension(Type type, const AcGePoint3d& across, const AcGePoint3d& chordPoint,
                                   const ACHAR* dimText, AcDbObjectId dimStyle)
    : AcDbDimension(type), mChordPoint(chordPoint)
{
    begin(across, dimText, dimStyle);
}

double DbChordDimension::measure() const
{
    return mChordPoint.distanceTo(mDefPoint);
}

DbLeaderDimension::DbLeaderDimension(Type type, const AcGePoint3d& across, const AcGePoint3d& chordPoint,
                                     double leaderLength, const ACHAR* dimText, AcDbObjectId dimStyle)
    : DbChordDimension(type, across, chordPoint, dimText, dimStyle), mLeaderLength(leaderLength)
{
}

bool DbLeaderDimension::layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const
{
    const AcGePoint2d across = picture.toPlane(mDefPoint), tip = picture.toPlane(mChordPoint);
    const RadialShape shape(isDiameter() ? across + (tip - across) / 2.0 : across, tip);
    if (shape.radius == 0.0) return false;
    const bool isOwn = !isUsingDefaultTextPosition();
    const bool isInside = isOwn && (textInPlane() - shape.center).length() < shape.radius;
    const double angle = textAngle(picture.variables(), shape.outwards.angle(), isInside);
    textMiddle = isOwn ? textInPlane() : defaultMiddle(picture, shape, mLeaderLength, angle);
    if (isInside) {
        const double farArrow = isDiameter() ? picture.arrowSize() : 0.0;
        drawInside(picture, shape, textMiddle, angle, across + shape.outwards * farArrow);
        if (isDiameter()) picture.arrow(across, -shape.outwards, true);
        picture.arrow(shape.tip, shape.outwards, false);
    } else {
        drawOutside(picture, shape, textMiddle, angle, across);
    }
    picture.text(textMiddle, angle);
    for (const AcGePoint3d& point : {mChordPoint, mDefPoint})
        picture.definitionPoint(point);
    return true;
}

void DbLeaderDimension::mapPoints(const AcGeMatrix3d& xform)
{
    const double before = measure();
    const AcGeVector3d line = mChordPoint - mDefPoint;
    mChordPoint.transformBy(xform);
    if (before > 0.0) mLeaderLength *= (xform * line).length() / before;
}

AcGePoint3dArray DbLeaderDimension::definingPoints() const
{
    AcGePoint3dArray points;
    points.append(isDiameter() ? mChordPoint : mDefPoint);
    points.append(isDiameter() ? mDefPoint : mChordPoint);
    return points;
}

void DbLeaderDimension::setDefiningPoint(int index, const AcGePoint3d& point)
{
    ((index == 0) == isDiameter() ? mChordPoint : mDefPoint) = point;
}

AcDbRadialDimension::AcDbRadialDimension(const AcGePoint3d& center, const AcGePoint3d& chordPoint,
                                         double leaderLength, const ACHAR* dimText, AcDbObjectId dimStyle)
    : DbLeaderDimension(radialType, center, chordPoint, leaderLength, dimText, dimStyle)
{
}

AcDbDiametricDimension::AcDbDiametricDimension(const AcGePoint3d& chordPoint,
                                               const AcGePoint3d& farChordPoint, double leaderLength,
                                               const ACHAR* dimText, AcDbObjectId dimStyle)
    : DbLeaderDimension(diametricType, farChordPoint, chordPoint, leaderLength, dimText, dimStyle)
{
}

AcDbRadialDimensionLarge::AcDbRadialDimensionLarge(const AcGePoint3d& center, const AcGePoint3d& chordPoint,
                                                   const AcGePoint3d& overrideCenter,
                                                   const AcGePoint3d& jogPoint, double jogAngle,
                                                   const ACHAR* dimText, AcDbObjectId dimStyle)
    : DbChordDimension(largeRadialType, center, chordPoint, dimText, dimStyle),
      mOverrideCenter(overrideCenter), mJogPoint(jogPoint), mJogAngle(jogAngle)
{
}

bool AcDbRadialDimensionLarge::layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const
{
    const AcGePoint2d start = picture.toPlane(mOverrideCenter), jog = picture.toPlane(mJogPoint);
    const RadialShape shape(picture.toPlane(mDefPoint), picture.toPlane(mChordPoint));
    if (shape.radius == 0.0) return false;
    const DimVariables& v = picture.variables();
    // The jog runs through its point, one text height long, from the line of the start to that of the arrow.
    const double turn = mJogAngle != 0.0 ? mJogAngle : v.dimjogang;
    AcGeVector2d across = shape.outwards;
    across.rotateBy(-turn);
    const double half = picture.textHeight() / 2.0 + picture.gap();
    const AcGePoint2d first = jog + across * half, second = jog - across * half;
    picture.dimensionLine(start, first);
    picture.dimensionLine(first, second);
    const double angle = textAngle(v, shape.outwards.angle(), true);
    const bool isOwn = !isUsingDefaultTextPosition();
    textMiddle = isOwn ? textInPlane() : second + (shape.tip - second) / 2.0;
    drawInside(picture, shape, textMiddle, angle, second);
    picture.arrow(shape.tip, shape.outwards, false);
    picture.text(textMiddle, angle);
    for (const AcGePoint3d& point : {mChordPoint, mOverrideCenter, mJogPoint})
        picture.definitionPoint(point);
    return true;
}

void AcDbRadialDimensionLarge::mapPoints(const AcGeMatrix3d& xform)
{
    for (AcGePoint3d* point : {&mChordPoint, &mOverrideCenter, &mJogPoint})
        point->transformBy(xform);
}

AcGePoint3dArray AcDbRadialDimensionLarge::definingPoints() const
{
    AcGePoint3dArray points;
    points.append(mDefPoint);
    points.append(mChordPoint);
    points.append(mOverrideCenter);
    points.append(mJogPoint);
    return points;
}

void AcDbRadialDimensionLarge::setDefiningPoint(int index, const AcGePoint3d& point)
{
    AcGePoint3d* const points[] = {&mDefPoint, &mChordPoint, &mOverrideCenter, &mJogPoint};
    *points[index] = point;
}
