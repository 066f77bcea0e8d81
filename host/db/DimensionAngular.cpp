#include "dbdimangular.h"

#include "ClassRegistration.h"
#include "DimensionLineText.h"
#include "DimensionPicture.h"
#include "DimVariables.h"
#include "DxfFields.h"
#include "PlanarCoords.h"

#include <cmath>

ACDB_DXF_CLASS(AcDb2LineAngularDimension, AcDbDimension, DIMENSION)
ACDB_DXF_CLASS(AcDb3PointAngularDimension, AcDbDimension, DIMENSION)
ACDB_DXF_CLASS(AcDbArcDimension, AcDbDimension, ARC_DIMENSION)

const DxfClass AcDb2LineAngularDimension::dxf("AcDb2LineAngularDimension", &AcDbDimension::dxf,
                                              {
                                                  dxf::point<&AcDb2LineAngularDimension::mLine1Start>(13),
                                                  dxf::point<&AcDb2LineAngularDimension::mLine1End>(14),
                                                  dxf::point<&AcDb2LineAngularDimension::mLine2Start>(15),
                                                  dxf::point<&AcDb2LineAngularDimension::mArcPoint>(16),
                                              });
const DxfClass AcDb3PointAngularDimension::dxf("AcDb3PointAngularDimension", &AcDbDimension::dxf,
                                               {
                                                   dxf::point<&AcDb3PointAngularDimension::mPoint1>(13),
                                                   dxf::point<&AcDb3PointAngularDimension::mPoint2>(14),
                                                   dxf::point<&AcDb3PointAngularDimension::mCenter>(15),
                                               });
const DxfClass
    AcDbArcDimension::dxf("AcDbArcDimension", &AcDbDimension::dxf,
                          {
                              dxf::point<&AcDbArcDimension::mPoint1>(13),
                              dxf::point<&AcDbArcDimension::mPoint2>(14),
                              dxf::point<&AcDbArcDimension::mCenter>(15),
                              dxf::integer<&AcDbArcDimension::mIsPartial>(70).from(DxfVersion::r2000),
                              dxf::real<&AcDbArcDimension::mStartParam>(40),
                              dxf::real<&AcDbArcDimension::mEndParam>(41),
                              dxf::integer<&AcDbArcDimension::mHasLeader>(71).from(DxfVersion::r2000),
                              dxf::point<&AcDbArcDimension::mLeader1>(16),
                              dxf::point<&AcDbArcDimension::mLeader2>(17),
                          });

namespace
{
constexpr double twoPi = 6.28318530717958647692;

/// The turn from one direction to another, counter-clockwise, 0 <= turn < 2 pi.
double turnTo(double from, double to)
{
    const double turn = std::fmod(to - from, twoPi);
    return turn < 0.0 ? turn + twoPi : turn;
}

AcGePoint2d pointAt(const DimensionArc& arc, double angle)
{
    return arc.center + AcGeVector2d(std::cos(angle), std::sin(angle)) * arc.radius;
}

/// From two points around a centre: the arc between them that holds a third.
bool arcAround(const AcGePoint2d& center, const AcGePoint2d& first, const AcGePoint2d& second,
               const AcGePoint2d& through, DimensionArc& arc)
{
    arc.center = center;
    arc.radius = (through - center).length();
    if (arc.radius <= 0.0 || first.isEqualTo(center) || second.isEqualTo(center)) return false;
    const double a = (first - center).angle(), b = (second - center).angle(), at = (through - center).angle();
    const bool isForward = turnTo(a, at) <= turnTo(a, b);
    arc.from = isForward ? a : b;
    arc.to = arc.from + (isForward ? turnTo(a, b) : turnTo(b, a));
    arc.point1 = isForward ? first : second;
    arc.point2 = isForward ? second : first;
    return true;
}

/// The extension line from a point to the arc, along the ray from the centre. None where the line that is
/// measured passes the arc itself.
void drawRay(DimensionPicture& picture, const DimensionArc& arc, double angle, const AcGePoint2d& from,
             bool isSecond)
{
    const DimVariables& v = picture.variables();
    if (isSecond ? v.dimse2 : v.dimse1) return;
    const AcGeVector2d ray(std::cos(angle), std::sin(angle));
    const double start = (from - arc.center).dotProduct(ray);
    if (start >= arc.radius) return;
    picture.extensionLine(arc.center + ray * (start + v.scaled(v.dimexo)),
                          arc.center + ray * (arc.radius + v.scaled(v.dimexe)), isSecond);
}

/// The unit vector of an arrow that lies along the arc with its tip at an angle.
AcGeVector2d arrowDirection(const DimensionArc& arc, double tip, double base)
{
    return (pointAt(arc, tip) - pointAt(arc, base)).normal();
}
} // namespace

bool DbArcingDimension::layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const
{
    DimensionArc arc;
    if (!findArc(picture, arc)) return false;
    const DimVariables& v = picture.variables();
    const double middleAngle = (arc.from + arc.to) / 2.0;
    const AcGeVector2d outwards(std::cos(middleAngle), std::sin(middleAngle));
    const double angle = textAngle(v, outwards.perpVector().angle(), true);
    const double offset = textOffset(picture, angle, outwards.perpVector(), outwards);
    const AcGeVector2d up(-std::sin(angle), std::cos(angle));
    textMiddle = isUsingDefaultTextPosition() ? pointAt(arc, middleAngle) + up * offset : textInPlane();

    const double size = picture.arrowSize() / arc.radius, length = arc.to - arc.from;
    const bool arrowsInside = length > 2.0 * size + 2.0 * picture.gap() / arc.radius;
    const double textAt = arc.from + turnTo(arc.from, (textMiddle - arc.center).angle());
    const AcGeVector2d tangent = AcGeVector2d(std::cos(textAt), std::sin(textAt)).perpVector();
    const bool isInLine = picture.hasText() && std::fabs((textMiddle - arc.center).length() - arc.radius) <
                                                   picture.textFrameHeight() / 2.0;
    const double half = isInLine ? (picture.textReach(tangent, angle) + picture.gap()) / arc.radius : 0.0;
    const double first = arc.from + (arrowsInside ? size : 0.0), last = arc.to - (arrowsInside ? size : 0.0);
    drawRay(picture, arc, arc.from, arc.point1, false);
    drawRay(picture, arc, arc.to, arc.point2, true);
    if (!v.dimsd1)
        picture.dimensionArc(arc.center, arc.radius, first, std::fmin(isInLine ? textAt - half : last, last));
    if (!v.dimsd2 && isInLine)
        picture.dimensionArc(arc.center, arc.radius, std::fmax(textAt + half, first), last);
    const double side = arrowsInside ? 1.0 : -1.0;
    picture.arrow(pointAt(arc, arc.from), arrowDirection(arc, arc.from, arc.from + side * size), false);
    picture.arrow(pointAt(arc, arc.to), arrowDirection(arc, arc.to, arc.to - side * size), true);
    picture.text(textMiddle, angle);
    const AcGePoint3dArray points = definingPoints();
    for (int i = 0; i < points.length(); ++i)
        picture.definitionPoint(points[i]);
    return true;
}

void DbArcingDimension::mapPoints(const AcGeMatrix3d& xform)
{
    for (AcGePoint3d* point : ownPoints())
        point->transformBy(xform);
}

AcGePoint3dArray DbArcingDimension::definingPoints() const
{
    AcGePoint3dArray points;
    for (const AcGePoint3d* point : const_cast<DbArcingDimension*>(this)->ownPoints())
        points.append(*point);
    points.append(mDefPoint);
    return points;
}

void DbArcingDimension::setDefiningPoint(int index, const AcGePoint3d& point)
{
    const std::vector<AcGePoint3d*> own = ownPoints();
    const auto at = static_cast<std::size_t>(index);
    (at < own.size() ? *own[at] : mDefPoint) = point;
}

DimensionArc DbArcingDimension::arcOfPoints() const
{
    DimensionArc arc;
    const DimensionPicture plane(DimVariables(), normal(), elevation(), nullptr);
    return findArc(plane, arc) ? arc : DimensionArc();
}

double DbArcingDimension::measure() const
{
    const DimensionArc arc = arcOfPoints();
    return arc.to - arc.from;
}

AcDb2LineAngularDimension::AcDb2LineAngularDimension(
    const AcGePoint3d& xLine1Start, const AcGePoint3d& xLine1End, const AcGePoint3d& xLine2Start,
    const AcGePoint3d& xLine2End, const AcGePoint3d& arcPoint, const ACHAR* dimText, AcDbObjectId dimStyle)
    : DbArcingDimension(angularType), mLine1Start(xLine1Start), mLine1End(xLine1End),
      mLine2Start(xLine2Start), mArcPoint(arcPoint)
{
    begin(xLine2End, dimText, dimStyle);
}

AcGePoint3d AcDb2LineAngularDimension::arcPoint() const
{
    return ocsToWorld(normal()) * mArcPoint;
}

Acad::ErrorStatus AcDb2LineAngularDimension::setArcPoint(const AcGePoint3d& point)
{
    return change(mArcPoint, worldToOcs(normal()) * point);
}

bool AcDb2LineAngularDimension::findArc(const DimensionPicture& picture, DimensionArc& arc) const
{
    const AcGePoint2d a = picture.toPlane(mLine1Start), b = picture.toPlane(mLine1End);
    const AcGePoint2d c = picture.toPlane(mLine2Start), d = picture.toPlane(mDefPoint);
    const AcGeVector2d u = b - a, w = d - c;
    const double cross = u.crossProduct(w);
    if (std::fabs(cross) <= 1e-12 * u.length() * w.length() || cross == 0.0) return false;
    const AcGePoint2d center = a + u * ((c - a).crossProduct(w) / cross);
    const AcGePoint2d through(mArcPoint.x, mArcPoint.y);
    // The sector is bounded by one half of each line: those between which the arc point lies.
    const AcGeVector2d seen = through - center;
    const AcGeVector2d first = u * (seen.crossProduct(w) / cross < 0.0 ? -1.0 : 1.0);
    const AcGeVector2d second = w * (u.crossProduct(seen) / cross < 0.0 ? -1.0 : 1.0);
    const auto farther = [&](const AcGePoint2d& p, const AcGePoint2d& q, const AcGeVector2d& ray) {
        const AcGePoint2d& far = (p - center).dotProduct(ray) > (q - center).dotProduct(ray) ? p : q;
        return (far - center).dotProduct(ray) > 0.0 ? far : center + ray.normal() * 1e-6;
    };
    if (!arcAround(center, center + first, center + second, through, arc)) return false;
    const bool firstLeads =
        std::fabs(turnTo(arc.from, first.angle())) < 1e-9 || turnTo(arc.from, first.angle()) > twoPi - 1e-9;
    const AcGePoint2d onFirst = farther(a, b, first), onSecond = farther(c, d, second);
    arc.point1 = firstLeads ? onFirst : onSecond;
    arc.point2 = firstLeads ? onSecond : onFirst;
    return true;
}

std::vector<AcGePoint3d*> AcDb2LineAngularDimension::ownPoints()
{
    return {&mLine1Start, &mLine1End, &mLine2Start};
}

DbCenteredArcDimension::DbCenteredArcDimension(Type type, const AcGePoint3d& center,
                                               const AcGePoint3d& point1, const AcGePoint3d& point2,
                                               const AcGePoint3d& arcPoint, const ACHAR* dimText,
                                               AcDbObjectId dimStyle)
    : DbArcingDimension(type), mPoint1(point1), mPoint2(point2), mCenter(center)
{
    begin(arcPoint, dimText, dimStyle);
}

bool DbCenteredArcDimension::findArc(const DimensionPicture& picture, DimensionArc& arc) const
{
    return arcAround(picture.toPlane(mCenter), picture.toPlane(mPoint1), picture.toPlane(mPoint2),
                     picture.toPlane(mDefPoint), arc);
}

std::vector<AcGePoint3d*> DbCenteredArcDimension::ownPoints()
{
    return {&mPoint1, &mPoint2, &mCenter};
}

AcDb3PointAngularDimension::AcDb3PointAngularDimension(const AcGePoint3d& centerPoint,
                                                       const AcGePoint3d& xLine1Point,
                                                       const AcGePoint3d& xLine2Point,
                                                       const AcGePoint3d& arcPoint, const ACHAR* dimText,
                                                       AcDbObjectId dimStyle)
    : DbCenteredArcDimension(angular3PointType, centerPoint, xLine1Point, xLine2Point, arcPoint, dimText,
                             dimStyle)
{
}

AcDbArcDimension::AcDbArcDimension(const AcGePoint3d& centerPoint, const AcGePoint3d& xLine1Point,
                                   const AcGePoint3d& xLine2Point, const AcGePoint3d& arcPoint,
                                   const ACHAR* dimText, AcDbObjectId dimStyle)
    : DbCenteredArcDimension(arcType, centerPoint, xLine1Point, xLine2Point, arcPoint, dimText, dimStyle)
{
}

Acad::ErrorStatus AcDbArcDimension::setIsPartial(bool partial)
{
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) mIsPartial = partial;
    return status;
}

Acad::ErrorStatus AcDbArcDimension::setHasLeader(bool leader)
{
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) mHasLeader = leader;
    return status;
}

double AcDbArcDimension::measure() const
{
    const DimensionArc arc = arcOfPoints();
    return (arc.to - arc.from) * mCenter.distanceTo(mPoint1);
}

bool AcDbArcDimension::layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const
{
    if (!DbArcingDimension::layOut(picture, textMiddle)) return false;
    const double height = picture.textHeight();
    const double angle = textAngle(picture.variables(), 0.0, true);
    const AcGeVector2d along(std::cos(angle), std::sin(angle));
    const int symbol = picture.variables().dimarcsym;
    if (symbol == 2 || !picture.hasText()) return true;
    const AcGePoint2d at =
        symbol == 1 ? textMiddle + along.perpVector() * (picture.textFrameHeight() / 2.0 + height / 4.0)
                    : textMiddle - along * (picture.textWidth() / 2.0 + height * 0.6);
    picture.dimensionArc(at, height * 0.4, angle, angle + twoPi / 2.0);
    return true;
}

std::vector<AcGePoint3d*> AcDbArcDimension::ownPoints()
{
    std::vector<AcGePoint3d*> points = DbCenteredArcDimension::ownPoints();
    points.insert(points.end(), {&mLeader1, &mLeader2});
    return points;
}
