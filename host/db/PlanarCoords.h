#pragma once

/// Object coordinate systems: those of planar entities, which follow from their normal by the arbitrary axis
/// rule of the DXF reference.

#include "gemat3d.h"
#include "gept3dar.h"

#include <cmath>

constexpr double kTwoPi = 6.28318530717958647692;

inline bool isFinite(double value)
{
    return std::isfinite(value);
}
inline bool isFinite(const AcGePoint2d& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y);
}
inline bool isFinite(const AcGePoint3d& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

/// A direction that can be a normal: finite and not zero.
inline bool isDirection(const AcGeVector3d& v)
{
    return std::isfinite(v.lengthSqrd()) && !v.isZeroLength();
}

inline bool isWorldZ(const AcGeVector3d& v)
{
    return v.x == 0.0 && v.y == 0.0 && v.z == 1.0;
}

/// The map from the coordinates of entities with this normal to the world. A zero normal, which damaged files
/// hold, counts as the Z axis.
AcGeMatrix3d ocsToWorld(const AcGeVector3d& normal);
AcGeMatrix3d worldToOcs(const AcGeVector3d& normal);

/// The unit normal of the planes that a map makes of those with `normal`: on the side that the mapped normal points
/// to, so that mirroring inside a plane keeps it.
AcGeVector3d mappedNormal(const AcGeMatrix3d& xform, const AcGeVector3d& normal);
/// The map from the object coordinates before to those after: points of entities follow it.
AcGeMatrix3d mappedCoordinates(const AcGeMatrix3d& xform, const AcGeVector3d& before,
                               const AcGeVector3d& after);
/// The thickness of an entity after a map; its sign stays.
double mappedThickness(const AcGeMatrix3d& xform, const AcGeVector3d& normal, double thickness);

/// An angle brought into 0 <= angle <= 2 pi; 2 pi itself is kept, since it ends full turns.
double withinTurn(double angle);

/// How far a point may be from a curve that it counts as being on: the tolerance, or what doubles of its size
/// can tell.
double onCurveTolerance(const AcGePoint3d& point);
