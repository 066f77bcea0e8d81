#include "dbhatch.h"

#include "ClassRegistration.h"
#include "HatchEdges.h"
#include "PlanarCoords.h"

ACDB_DXF_CLASS(AcDbHatch, AcDbEntity, HATCH)

namespace
{
/// The part of a map between object coordinate systems that acts inside the plane at an elevation.
AcGeMatrix2d inPlane(const AcGeMatrix3d& map, double elevation)
{
    AcGeMatrix2d plane;
    for (int row = 0; row < 2; ++row) {
        plane.entry[row][0] = map.entry[row][0];
        plane.entry[row][1] = map.entry[row][1];
        plane.entry[row][2] = map.entry[row][2] * elevation + map.entry[row][3];
    }
    return plane;
}
} // namespace

AcCmColor AcDbHatch::noColor()
{
    AcCmColor color;
    color.setColorMethod(AcCmEntityColor::kNone);
    return color;
}

Acad::ErrorStatus AcDbHatch::setNormal(const AcGeVector3d& normal)
{
    if (!isDirection(normal)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mNormal = normal.normal();
    return status;
}

Acad::ErrorStatus AcDbHatch::setElevation(double elevation)
{
    if (!isFinite(elevation)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mElevation.z = elevation;
    return status;
}

Acad::ErrorStatus AcDbHatch::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    const AcGeMatrix3d world = planeToWorld();
    plane.set(world * AcGePoint3d::kOrigin, world * AcGeVector3d::kXAxis, world * AcGeVector3d::kYAxis);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

void AcDbHatch::getEcs(AcGeMatrix3d& matrix) const
{
    matrix = ocsToWorld(mNormal);
}

AcGeMatrix3d hatch::Plane::toWorld() const
{
    return ocsToWorld(normal) * AcGeMatrix3d::translation({0.0, 0.0, elevation});
}

Acad::ErrorStatus AcDbHatch::setHatchStyle(HatchStyle style)
{
    if (style < kNormal || style > kIgnore) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginPatternChange();
    if (status == Acad::eOk) mStyle = static_cast<std::int16_t>(style);
    return status;
}

Acad::ErrorStatus AcDbHatch::subTransformBy(const AcGeMatrix3d& xform)
{
    const AcGeVector3d normal = mappedNormal(xform, mNormal);
    const AcGeMatrix3d map = mappedCoordinates(xform, mNormal, normal);
    const AcGeMatrix2d plane = inPlane(map, mElevation.z);
    if (plane.isSingular()) return Acad::eCannotScaleNonUniformly;
    for (hatch::Loop& loop : mLoops)
        hatch::mapLoop(loop, plane);
    for (AcGePoint2d& seed : mSeeds)
        seed.transformBy(plane);
    mapPattern(plane);
    mElevation.z = (map * AcGePoint3d(0.0, 0.0, mElevation.z)).z;
    mNormal = normal;
    mEvaluated.reset();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getArea(double& area) const
{
    if (mLoops.empty()) return Acad::eInvalidInput;
    const std::vector<int> signs = hatch::signsOf(mLoops, mStyle, hatch::fineDeviation(mLoops));
    area = 0.0;
    for (std::size_t i = 0; i < mLoops.size(); ++i)
        if (signs[i] != 0) area += signs[i] * hatch::areaOf(mLoops[i]);
    return Acad::eOk;
}
