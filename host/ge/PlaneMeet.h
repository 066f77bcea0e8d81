#pragma once

/// Where flat curves pass through planes.

#include "geplane.h"

namespace gecore
{
struct CurveForm;

/// The first two points of a curve in the plane `own` that lie on another plane, and their number, at most 2.
/// False, and 0, when there are none or the planes are parallel.
bool meetPlane(const CurveForm& form, const AcGePlane& own, const AcGePlanarEnt& plane, const AcGeTol& tol,
               int& count, AcGePoint3d& p1, AcGePoint3d& p2);
} // namespace gecore
