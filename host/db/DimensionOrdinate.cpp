#include "dbdimordinate.h"

#include "ClassRegistration.h"
#include "DimensionPicture.h"
#include "DxfFields.h"
#include "Ocs.h"

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
                                             const AcGePoint3d& definingPoint, const AcGePoint3d& leaderEndPoint,
                                             const ACHAR* dimText, AcDbObjectId dimStyle)
    : AcDbDimension(ordinateType), mFeature(definingPoint), mLeaderEnd(leaderEndPoint)
{
    mDefPoint = origin;
    if (useXAxis) this->useXAxis();
    if (dimText) setDimensionText(dimText);
    if (!dimStyle.isNull()) setDimensionStyle(dimStyle);
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
    const AcGeVector3d offset = ocs::fromWorld(normal()) * (mFeature - mDefPoint);
    return std::fabs(AcGeVector2d(offset.x, offset.y).crossProduct(across()));
}

bool AcDbOrdinateDimension::layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const
{
    const AcGePoint2d feature = picture.toPlane(mFeature), end = picture.toPlane(mLeaderEnd);
    const DimVariables& v = picture.variables();
    const AcGeVector2d main = across();
    const double reach = (end - feature).dotProduct(main);
    const AcGeVector2d forward = reach < 0.0 ? -main : main;
    const double sideways = (end - feature).crossProduct(forward);
    // A bend leaves a straight leg of two arrow lengths at each end, as far as there is room.
    const double leg = std::fmin(2.0 * v.scaled(v.dimasz), std::fabs(reach) / 2.0);
    const double exo = std::fmin(v.scaled(v.dimexo), std::fabs(reach));
    const AcGePoint2d start = feature + forward * exo;
    if (std::fabs(sideways) <= 1e-9 * (1.0 + std::fabs(reach))) {
        picture.extensionLine(start, end, false);
    } else {
        const AcGePoint2d bend = end - forward * leg;
        const AcGePoint2d turn = feature + forward * std::fmax(std::fabs(reach) - 2.0 * leg, exo);
        picture.extensionLine(start, turn, false);
        picture.extensionLine(turn, bend, false);
        picture.extensionLine(bend, end, false);
    }
    const double angle = textAngle(v, forward.angle(), false);
    const double along = horizontal() + readableAngle(forward.angle() - horizontal()) + textRotation();
    const bool isAbove = v.dimtad != 0 && !v.dimtih;
    const double rotation = isAbove ? angle : along;
    if (isUsingDefaultTextPosition()) {
        textMiddle = end + forward * (picture.gap() + picture.textReach(forward, rotation));
        if (isAbove && picture.hasText()) {
            const AcGeVector2d up(-std::sin(rotation), std::cos(rotation));
            const AcGePoint2d tail = textMiddle + forward * picture.textReach(forward, rotation);
            picture.extensionLine(end, tail, false);
            textMiddle += up * (picture.gap() + picture.textFrameHeight() / 2.0);
        }
    } else {
        textMiddle = textInPlane();
    }
    picture.text(textMiddle, rotation);
    for (const AcGePoint3d& point : {mFeature, mLeaderEnd, mDefPoint}) picture.definitionPoint(point);
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
