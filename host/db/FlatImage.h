#pragma once

/// Curves as seen along the normal of a plane.

#include "gecurv3d.h"
#include "geplane.h"

#include <memory>

/// The orthogonal projection of a curve onto a plane. A circle or ellipse seen from its edge is a segment; a
/// line seen from its end, and a point, has no image: null.
std::unique_ptr<AcGeCurve3d> flatImage(const AcGeCurve3d& curve, const AcGePlane& plane);
/// The same along another direction.
std::unique_ptr<AcGeCurve3d> flatImage(const AcGeCurve3d& curve, const AcGePlane& plane,
                                       const AcGeVector3d& direction);
