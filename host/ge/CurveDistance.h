#pragma once

/// Closest points of curves in their numeric form.

#include "CurveForm.h"

namespace gecore
{
/// The point of a curve that is closest to another one.
struct Foot {
    double t = 0;
    AcGePoint3d point;
    double distance = kInfinity;
};

/// The closest point: closed for lines and circles; for ellipses and splines by bounds on halved spans, so
/// that it is the closest of all, refined by Newton's method. When several are as close the one found first
/// counts (for the centre of a circle its start).
Foot closestTo(const CurveForm& form, const AcGePoint3d& p);

/// The closest point near a parameter, within lo..hi: Newton's method with bisection for safety.
Foot closestNear(const CurveForm& form, const AcGePoint3d& p, double guess, double lo, double hi);

/// The same for a short stretch that turns little: an end from which the distance grows inwards is taken at
/// once.
Foot closestWithin(const CurveForm& form, const AcGePoint3d& p, double lo, double hi);

/// The parameter of a circle or an ellipse for an angle, moved by full turns into lo..hi when it fits (within
/// `slack`, then clamped). False when it does not.
bool fitTurn(const CurveForm& form, double& angle, double slack);

/// The closest points of two curves.
struct FootPair {
    double s = 0, t = 0;
    AcGePoint3d onFirst, onSecond;
    double distance = kInfinity;
};

/// Closed for two lines; else by bounds on halved spans. For unbounded lines that come closest at infinity
/// only (parallel ones) any pair at the right distance.
FootPair closestBetween(const CurveForm& first, const CurveForm& second);

/// A line without bounds cut to what can matter for the distance from a bounded curve; other forms unchanged.
CurveForm boundedTowards(const CurveForm& line, const CurveForm& other);
} // namespace gecore
