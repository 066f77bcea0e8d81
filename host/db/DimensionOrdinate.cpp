#include "dbdimordinate.h"

#include "ClassRegistration.h"
#include "DimensionPicture.h"
#include "DxfFields.h"
#include "PlanarCoords.h"

#include <cmath>

ACDB_DXF_CLASS(AcDbOrdinateDimension, AcDbDimension, DIMENSION)

const DxfClass AcDbOrdinateDimension::dxf("AcDbOrdinateDimension", &AcDbDimension::dxf,
                                          {
                                              dxf::point<&AcDbOrdinateDimension::mFeature>(13),
                                              dxf::point<&AcDbOrdinateDimension::mLeaderEnd>(14),
                                          });

AcDbOrdinateDimension::AcDbOrdinateDimension(bool useXAxis, const AcGePoint3d& definingPoint,
                                             const AcGePoint3d& leaderEndPoint, const ACHAR* dimText,
                                             AcDbObjectId dimStyle)
    : AcDbOrdinateDimension(AcGePoint3d::kOrigin, useXAxis, definingPoint, leaderEndPoint, dimText, dimStyle)
{
}

AcDbOrdinateDimension::AcDbOrdinateDimension(const AcGePoint3d& origin, bool useXAxis,
                                             const AcGePoint3d& definingPoint,
                                             const AcGePoint3d& leaderEndPoint, const ACHAR* dimText,
                                             AcDbObjectId dimStyle)
    : AcDbDimension(ordinateType), mFeature(definingPoint), mLeaderEnd(leaderEndPoint)
{
    if (useXAxis) this->useXAxis();
    begin(origin, dimText, dimStyle);
}

Acad::ErrorStatus AcDbOrdinateDimension::useXAxis()
{
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) mFlags = static_cast<std::int16_t>(mFlags | xAxis);
    return status;
}

Acad::ErrorStatus AcDbOrdinateDimension::useYAxis()
{
    const Acad::ErrorStatus status = beginReshape();
    if (status == Acad::eOk) mFlags = static_cast<std::int16_t>(mFlags & ~xAxis);
    return status;
}

AcGeVector2d AcDbOrdinateDimension::across() const
{
    const AcGeVector2d x(std::cos(horizontal()), std::sin(horizontal()));
    return isUsingXAxis() ? x.perpVector() : x;
}

double AcDbOrdinateDimension::measure() const
{
    const AcGeVector3d offset = worldToOcs(normal()) * (mFeature - mDefPoint);
    return std::fabs(AcGeVector2d(offset.x, offset.y).crossProduct(across()));
}

namespace
{
/// The leader of an ordinate: from the feature straight across to the end, with a bend where the end lies
/// aside.
struct OrdinateLeader {
    AcGePoint2d feature, end;
    AcGeVector2d forward; ///< unit, across the measured axis, towards the end
    double reach;         ///< how far the end lies in that direction

    OrdinateLeader(const AcGePoint2d& from, const AcGePoint2d& to, const AcGeVector2d& across)
        : feature(from), end(to), forward(across), reach((to - from).dotProduct(across))
    {
        if (reach >= 0.0) return;
        forward = -across;
        reach = -reach;
    }
    bool isStraight() const
    {
        return std::fabs((end - feature).crossProduct(forward)) <= 1e-9 * (1.0 + reach);
    }
};

/// Draws it, with its last line going on by `tail` behind the end.
void drawLeader(DimensionPicture& picture, const OrdinateLeader& leader, double tail)
{
    const DimVariables& v = picture.variables();
    const double offset = std::fmin(v.scaled(v.dimexo), leader.reach);
    const AcGePoint2d start = leader.feature + leader.forward * offset,
                      last = leader.end + leader.forward * tail;
    if (leader.isStraight()) return picture.extensionLine(start, last, false);
    // A bend leaves a straight leg of two arrow lengths before and behind it, as far as there is room.
    const double leg = std::fmin(2.0 * v.scaled(v.dimasz), leader.reach / 2.0);
    const AcGePoint2d turn = leader.feature + leader.forward * std::fmax(leader.reach - 2.0 * leg, offset);
    const AcGePoint2d bend = leader.end - leader.forward * leg;
    picture.extensionLine(start, turn, false);
    picture.extensionLine(turn, bend, false);
    picture.extensionLine(bend, last, false);
}
} // namespace

bool AcDbOrdinateDimension::layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const
{
    const DimVariables& v = picture.variables();
    const OrdinateLeader leader(picture.toPlane(mFeature), picture.toPlane(mLeaderEnd), across());
    // The text runs along the leader, whatever the style says of texts outside.
    const double rotation =
        horizontal() + readableAngle(leader.forward.angle() - horizontal()) + textRotation();
    const double reach = picture.textReach(leader.forward, rotation);
    const bool isAbove = v.dimtad != 0 && !v.dimtih && picture.hasText() && isUsingDefaultTextPosition();
    const double offset = isAbove ? picture.gap() + picture.textFrameHeight() / 2.0 : 0.0;
    // A text above the leader stands on it; another one behind its end.
    drawLeader(picture, leader, isAbove ? picture.gap() + 2.0 * reach : 0.0);
    const AcGeVector2d up(-std::sin(rotation), std::cos(rotation));
    textMiddle = leader.end + leader.forward * (picture.gap() + reach) + up * offset;
    if (!isUsingDefaultTextPosition()) textMiddle = textInPlane();
    picture.text(textMiddle, rotation);
    for (const AcGePoint3d& point : {mFeature, mLeaderEnd, mDefPoint})
        picture.definitionPoint(point);
    return true;
}

void AcDbOrdinateDimension::mapPoints(const AcGeMatrix3d& xform)
{
    mFeature.transformBy(xform);
    mLeaderEnd.transformBy(xform);
}

AcGePoint3dArray AcDbOrdinateDimension::definingPoints() const
{
    AcGePoint3dArray points;
    points.append(mFeature);
    points.append(mLeaderEnd);
    points.append(mDefPoint);
    return points;
}

void AcDbOrdinateDimension::setDefiningPoint(int index, const AcGePoint3d& point)
{
    (index == 0 ? mFeature : index == 1 ? mLeaderEnd : mDefPoint) = point;
}
