#pragma once

/// Lengths, areas and bounds of curves in their numeric form.

#include "CurveForm.h"

namespace gecore
{
/// An axis-parallel box; empty while no point was added.
struct Box {
    AcGePoint3d min{kInfinity, kInfinity, kInfinity}, max{-kInfinity, -kInfinity, -kInfinity};

    void add(const AcGePoint3d& p);
    void add(const Box& box);
    bool isEmpty() const { return !(min.x <= max.x); }
    double diagonal() const { return isEmpty() ? 0 : (max - min).length(); }
};

/// The length from a to b, positive when a < b: closed for lines and circles, else by adaptive Gauss-Legendre
/// quadrature of |C'| to 1e-13 relative.
double lengthBetween(const CurveForm& form, double a, double b);

/// The parameter at a signed length from `from`, within the bounds of the curve or at the one it runs into.
double paramAtLength(const CurveForm& form, double from, double length);

/// The area, signed about the unit vector n, between the arc from a to b and the chord back.
double areaBetween(const CurveForm& form, double a, double b, const AcGeVector3d& n);

/// The smallest axis-parallel box of lines, conics and their chains; of splines the box of sharp extremes,
/// found by Newton's method. A line without bounds has an infinite one.
Box boxOf(const CurveForm& form);

/// Points whose plane, line or place is that of the curve: ends of lines, axes of conics, control points.
std::vector<AcGePoint3d> shapePoints(const CurveForm& form);

enum class Flatness { kPoint, kLinear, kPlanar, kSpatial };

/// A fit through points: how flat they are within tol, with a point, a direction (kLinear) and a unit normal
/// (kPlanar; also one that suits a line).
struct FlatFit {
    Flatness kind = Flatness::kPoint;
    AcGePoint3d point;
    AcGeVector3d direction, normal;
};
FlatFit fitFlat(const std::vector<AcGePoint3d>& points, double tol);
} // namespace gecore
