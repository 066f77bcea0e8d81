#include "Ocs.h"

namespace ocs
{
AcGeVector3d mappedNormal(const AcGeMatrix3d& xform, const AcGeVector3d& normal)
{
    const AcGeMatrix3d plane = toWorld(normal);
    const AcGeVector3d perpendicular =
        (xform * (plane * AcGeVector3d::kXAxis)).crossProduct(xform * (plane * AcGeVector3d::kYAxis));
    if (perpendicular.isZeroLength(AcGeTol())) return normal;
    const AcGeVector3d unit = perpendicular.normal();
    return unit.dotProduct(xform * normal) < 0.0 ? -unit : unit;
}

double mappedThickness(const AcGeMatrix3d& xform, const AcGeVector3d& normal, double thickness)
{
    return thickness == 0.0 ? 0.0 : thickness * (xform * normal).length();
}

AcGeMatrix3d mappedCoordinates(const AcGeMatrix3d& xform, const AcGeVector3d& before, const AcGeVector3d& after)
{
    return fromWorld(after) * xform * toWorld(before);
}
} // namespace ocs
