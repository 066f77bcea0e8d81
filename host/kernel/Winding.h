#pragma once

/// How often closed chains of curves of the plane run around a point, and on which side of them it lies.

#include "CurveForm.h"
#include "gepnt2d.h"
#include "Side.h"

#include <vector>

namespace kernel
{
/// A curve with the direction in which it is run through. The form is bounded and no chain; it points into
/// the entity that it came from.
struct Run {
    gecore::CurveForm form;
    bool forward = true;

    AcGePoint3d start() const { return gecore::pointAt(form, forward ? form.lo : form.hi); }
    AcGePoint3d end() const { return gecore::pointAt(form, forward ? form.hi : form.lo); }
};

/// The angle, in radians from -pi to pi and positive counter-clockwise, between the directions from p to two
/// points.
double turnBetween(const AcGePoint3d& from, const AcGePoint3d& to, const AcGePoint2d& p);

/// The angle, in radians and positive counter-clockwise, that the direction from p to a point of the run
/// turns through; exact, whatever the shape. Without meaning for a point that lies on the curve.
double turnAround(const Run& run, const AcGePoint2d& p);

/// How often closed runs go around p, counter-clockwise ones counted positive.
int windingNumber(const std::vector<Run>& runs, const AcGePoint2d& p);

/// True when p is no further than tol from the curve.
bool isNear(const gecore::CurveForm& form, const AcGePoint2d& p, double tol);

/// The side of p for the area where the winding number is not 0; kOn within tol of a run.
Side sideOf(const std::vector<Run>& runs, const AcGePoint2d& p, double tol);
} // namespace kernel
