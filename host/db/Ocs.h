#pragma once

/// Entities in a plane of their own: the object coordinate system of a normal, by the arbitrary axis algorithm of the
/// DXF reference.

#include "gemat3d.h"

namespace ocs
{
inline AcGeMatrix3d toWorld(const AcGeVector3d& normal) { return AcGeMatrix3d::planeToWorld(normal); }
inline AcGeMatrix3d fromWorld(const AcGeVector3d& normal) { return AcGeMatrix3d::worldToPlane(normal); }

/// The unit normal of the planes that a map makes of those with `normal`: on the side that the mapped normal points to,
/// so that mirroring inside a plane keeps it.
AcGeVector3d mappedNormal(const AcGeMatrix3d& xform, const AcGeVector3d& normal);
/// The thickness that a map makes of one along `normal`.
double mappedThickness(const AcGeMatrix3d& xform, const AcGeVector3d& normal, double thickness);
/// The map from the object coordinates before to those after: points of entities follow it.
AcGeMatrix3d mappedCoordinates(const AcGeMatrix3d& xform, const AcGeVector3d& before, const AcGeVector3d& after);
} // namespace ocs
