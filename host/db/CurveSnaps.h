#pragma once

/// Object snaps that curves answer by their geometry alone.

#include "acdb.h"
#include "gecurv3d.h"

/// Appends the end of a bounded curve nearer to `pick`, its middle by length, the point nearest to `pick`, every foot of a
/// perpendicular from `last` (kOsModePerp; the nearest point of the curve when there is none), or every point whose tangent
/// runs through `last` (kOsModeTan; of planar curves, seen against their plane), as the mode asks; for other modes
/// nothing.
void appendSnaps(const AcGeCurve3d& curve, AcDb::OsnapMode mode, const AcGePoint3d& pick,
                 const AcGePoint3d& last, AcGePoint3dArray& points);
