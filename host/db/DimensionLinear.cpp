#include "dbdimlinear.h"

#include "ClassRegistration.h"
#include "DimensionLineText.h"
#include "DimensionPicture.h"
#include "DxfFields.h"
#include "PlanarCoords.h"

#include <cmath>

ACDB_DXF_CLASS(AcDbAlignedDimension, AcDbDimension, DIMENSION)
ACDB_DXF_CLASS(AcDbRotatedDimension, AcDbDimension, DIMENSION)

struct LinearFields {
    static DbLinearDimension& of(AcDbObject& object) { return static_cast<DbLinearDimension&>(object); }
    static const DbLinearDimension& of(const AcDbObject& object)
    {
        return static_cast<const DbLinearDimension&>(object);
    }

    /// An angle that is left out while 0, unless the file stated it.
    template <double DbLinearDimension::*Angle, bool DbLinearDimension::*IsGiven>
    static DxfField angle(int code)
    {
        DxfField field = dxf::angle<Angle>(code).unlessDefault();
        field.read = [](AcDbObject& object, const DxfField& self, DxfSource& source) {
            of(object).*IsGiven = true;
            dxf::angle<Angle>(self.code).read(object, self, source);
        };
        field.isDefault = [](const AcDbObject& object, const DxfField&) {
            return !(of(object).*IsGiven) && of(object).*Angle == 0.0;
        };
        return field;
    }

    static DxfField rotation()
    {
        return angle<&DbLinearDimension::mRotation, &DbLinearDimension::mGivesRotation>(50);
    }
    static DxfField oblique()
    {
        return angle<&DbLinearDimension::mOblique, &DbLinearDimension::mGivesOblique>(52);
    }
};

const DxfClass DbLinearDimension::dxf("AcDbAlignedDimension", &AcDbDimension::dxf,
                                      {
                                          dxf::point<&DbLinearDimension::mPoint1>(13),
                                          dxf::point<&DbLinearDimension::mPoint2>(14),
                                          LinearFields::rotation(),
                                          LinearFields::oblique(),
                                      });
const DxfClass AcDbRotatedDimension::dxf("AcDbRotatedDimension", &DbLinearDimension::dxf, {});

DbLinearDimension::DbLinearDimension(Type type, const AcGePoint3d& point1, const AcGePoint3d& point2,
                                     const AcGePoint3d& linePoint, const ACHAR* dimText,
                                     AcDbObjectId dimStyle)
    : AcDbDimension(type), mPoint1(point1), mPoint2(point2)
{
    begin(linePoint, dimText, dimStyle);
}

double AcDbAlignedDimension::direction() const
{
    const AcGeVector3d along = worldToOcs(normal()) * (mPoint2 - mPoint1);
    return std::atan2(along.y, along.x);
}

/// Where the lines of a linear dimension lie, in its plane.
struct LinearShape {
    AcGePoint2d point1, point2; ///< what is measured
    AcGePoint2d end1, end2;     ///< of the dimension line
    AcGeVector2d along;         ///< from the first end to the second
    AcGeVector2d extension;     ///< of the extension lines, from the points towards the line
    double length = 0.0;

    LinearShape(const DbLinearDimension& dimension)
    {
        const AcGeMatrix3d map = worldToOcs(dimension.normal());
        const auto flat = [&](const AcGePoint3d& point) {
            const AcGePoint3d p = map * point;
            return AcGePoint2d(p.x, p.y);
        };
        point1 = flat(dimension.mPoint1);
        point2 = flat(dimension.mPoint2);
        const double angle = dimension.direction();
        along.set(std::cos(angle), std::sin(angle));
        extension = along.perpVector();
        if (std::fabs(std::sin(dimension.mOblique)) > 1e-9) {
            extension.set(std::cos(angle + dimension.mOblique), std::sin(angle + dimension.mOblique));
        }
        const AcGePoint2d linePoint = flat(dimension.mDefPoint);
        end1 = foot(point1, linePoint);
        end2 = foot(point2, linePoint);
        length = (end2 - end1).dotProduct(along);
        if (length < 0.0) {
            along = -along;
            length = -length;
        }
        if ((linePoint - point2).dotProduct(extension) < 0.0) extension = -extension;
    }

private:
    /// The point of the dimension line that an extension line from `point` meets.
    AcGePoint2d foot(const AcGePoint2d& point, const AcGePoint2d& linePoint) const
    {
        const AcGeVector2d normal = along.perpVector();
        return point + extension * ((linePoint - point).dotProduct(normal) / extension.dotProduct(normal));
    }
};

double DbLinearDimension::measure() const
{
    return LinearShape(*this).length;
}

namespace
{
void drawExtensionLine(DimensionPicture& picture, const LinearShape& shape, bool isSecond)
{
    const DimVariables& v = picture.variables();
    const AcGePoint2d &from = isSecond ? shape.point2 : shape.point1,
                      &to = isSecond ? shape.end2 : shape.end1;
    if (isSecond ? v.dimse2 : v.dimse1) return;
    const bool isThere = (to - from).length() > 1e-9;
    const AcGeVector2d outwards = isThere ? (to - from).normal() : shape.extension;
    AcGePoint2d start = from + outwards * v.scaled(v.dimexo);
    if (v.dimfxlenOn)
        start = to - outwards * std::fmin(v.scaled(v.dimfxlen), (to - start).dotProduct(outwards));
    const AcGePoint2d end = to + outwards * v.scaled(v.dimexe);
    if ((end - start).dotProduct(outwards) > 0.0) picture.extensionLine(start, end, isSecond);
}

/// The dimension line with its arrows; `text` says where it is interrupted and how far it goes on.
void drawLine(DimensionPicture& picture, const LinearShape& shape, const LineText& text)
{
    const DimVariables& v = picture.variables();
    const double size = picture.arrowSize();
    const auto at = [&](double distance) { return shape.end1 + shape.along * distance; };
    const double trim = text.arrowsInside ? size : 0.0;
    const double over = v.dimtsz > 0.0 ? v.scaled(v.dimdle) : 0.0;
    const double from = trim - over, to = shape.length - trim + over;
    const bool isBetween = text.arrowsInside || text.isInside || v.dimtofl || text.hasLeader;
    if (isBetween && text.breakTo > text.breakFrom) {
        if (!v.dimsd1 && text.breakFrom > from)
            picture.dimensionLine(at(from), at(std::fmin(text.breakFrom, to)));
        if (!v.dimsd2 && text.breakTo < to) picture.dimensionLine(at(std::fmax(text.breakTo, from)), at(to));
    } else if (isBetween && !(v.dimsd1 && v.dimsd2)) {
        picture.dimensionLine(at(v.dimsd1 ? shape.length / 2.0 : from),
                              at(v.dimsd2 ? shape.length / 2.0 : to));
    }
    if (text.extendTo > shape.length)
        picture.dimensionLine(at(text.arrowsInside ? shape.length : shape.length + size), at(text.extendTo));
    if (text.extendFrom < 0.0)
        picture.dimensionLine(at(text.arrowsInside ? 0.0 : -size), at(text.extendFrom));
    if (text.hidesArrows) return;
    const double sign = text.arrowsInside ? 1.0 : -1.0;
    if (!text.arrowsInside && text.extendFrom >= 0.0) picture.dimensionLine(at(-size), at(-2.0 * size));
    if (!text.arrowsInside && text.extendTo <= shape.length)
        picture.dimensionLine(at(shape.length + size), at(shape.length + 2.0 * size));
    if (!v.dimsd1) picture.arrow(shape.end1, shape.along * -sign, false);
    if (!v.dimsd2) picture.arrow(shape.end2, shape.along * sign, true);
}
} // namespace

bool DbLinearDimension::layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const
{
    const LinearShape shape(*this);
    const DimVariables& v = picture.variables();
    LineTextRequest request;
    request.length = shape.length;
    request.angleInside = textAngle(v, shape.along.angle(), true);
    request.angleOutside = textAngle(v, shape.along.angle(), false);
    request.origin = shape.end1;
    request.along = shape.along;
    request.awayFromObject = shape.extension;
    request.hasOwnPlace = !isUsingDefaultTextPosition();
    request.ownPlace = textInPlane();
    const LineText text = placeLineText(picture, request);
    drawExtensionLine(picture, shape, false);
    drawExtensionLine(picture, shape, true);
    drawLine(picture, shape, text);
    if (text.hasLeader) drawTextLeader(picture, shape.end1 + shape.along * (shape.length / 2.0), text);
    picture.text(text.middle, text.angle);
    textMiddle = text.middle;
    for (const AcGePoint3d& point : {mPoint1, mPoint2, mDefPoint})
        picture.definitionPoint(point);
    return true;
}

void DbLinearDimension::mapPoints(const AcGeMatrix3d& xform)
{
    mPoint1.transformBy(xform);
    mPoint2.transformBy(xform);
}

void DbLinearDimension::mapAngles(const AcGeMatrix3d& map)
{
    const auto mapped = [&](double angle) {
        const AcGeVector3d direction = map * AcGeVector3d(std::cos(angle), std::sin(angle), 0.0);
        return std::atan2(direction.y, direction.x);
    };
    const double before = mRotation;
    mRotation = mapped(before);
    if (mOblique != 0.0) mOblique = mapped(before + mOblique) - mRotation;
    // Aligned dimensions have no rotation of their own.
    if (isA() == AcDbAlignedDimension::desc()) mRotation = 0.0;
}

AcGePoint3dArray DbLinearDimension::definingPoints() const
{
    AcGePoint3dArray points;
    points.append(mPoint1);
    points.append(mPoint2);
    points.append(mDefPoint);
    return points;
}

void DbLinearDimension::setDefiningPoint(int index, const AcGePoint3d& point)
{
    (index == 0 ? mPoint1 : index == 1 ? mPoint2 : mDefPoint) = point;
}
