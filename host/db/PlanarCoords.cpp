#include "PlanarCoords.h"

#include <algorithm>

AcGeMatrix3d ocsToWorld(const AcGeVector3d& normal)
{
    if (isWorldZ(normal) || !isDirection(normal)) return AcGeMatrix3d::kIdentity;
    return AcGeMatrix3d::planeToWorld(normal.normal());
}

AcGeMatrix3d worldToOcs(const AcGeVector3d& normal)
{
    if (isWorldZ(normal) || !isDirection(normal)) return AcGeMatrix3d::kIdentity;
    return AcGeMatrix3d::worldToPlane(normal.normal());
}

AcGeVector3d mappedNormal(const AcGeMatrix3d& xform, const AcGeVector3d& normal)
{
    const AcGeMatrix3d plane = ocsToWorld(normal);
    const AcGeVector3d perpendicular =
        (xform * (plane * AcGeVector3d::kXAxis)).crossProduct(xform * (plane * AcGeVector3d::kYAxis));
    if (perpendicular.isZeroLength(AcGeTol())) return normal;
    const AcGeVector3d unit = perpendicular.normal();
    return unit.dotProduct(xform * normal) < 0.0 ? -unit : unit;
}

AcGeMatrix3d mappedCoordinates(const AcGeMatrix3d& xform, const AcGeVector3d& before, const AcGeVector3d& after)
{
    return worldToOcs(after) * xform * ocsToWorld(before);
}

double mappedThickness(const AcGeMatrix3d& xform, const AcGeVector3d& normal, double thickness)
{
    return thickness == 0.0 ? thickness : thickness * (xform * normal).length();
}

double withinTurn(double angle)
{
    if (angle >= 0.0 && angle <= kTwoPi) return angle;
    const double turned = std::fmod(angle, kTwoPi);
    return turned < 0.0 ? turned + kTwoPi : turned;
}

double onCurveTolerance(const AcGePoint3d& point)
{
    const double size = std::max({std::fabs(point.x), std::fabs(point.y), std::fabs(point.z)});
    return std::max(AcGeContext::gTol.equalPoint(), 4e-15 * size);
}
