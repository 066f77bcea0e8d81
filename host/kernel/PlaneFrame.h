#pragma once

/// Between planes in space and coordinates in them.

#include "CurvePart.h"
#include "gecurv3d.h"

namespace kernel
{
/// From the coordinates of the plane through `point` to the world: the plane's axes are those that drawing
/// files derive from a normal (the arbitrary axis algorithm), its origin is the foot of the world's.
AcGeMatrix3d frameOf(const AcGePoint3d& point, const AcGeVector3d& normal);

/// The curve in the coordinates of a plane, by its map from the world. Null for a curve whose image is a
/// point, or that is a composite.
CurvePtr toPlane(const AcGeCurve3d& curve, const AcGeMatrix3d& worldToPlane);
/// The curve in the world; never null.
std::unique_ptr<AcGeCurve3d> toWorld(const AcGeCurve2d& curve, const AcGeMatrix3d& planeToWorld);

/// Of the two directions of a normal the one that points up, or else back, or else to the right.
AcGeVector3d upright(const AcGeVector3d& normal);
} // namespace kernel
