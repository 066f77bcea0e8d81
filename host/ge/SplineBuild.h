#pragma once

/// Splines made of other things than their control points.

#include "CurveForm.h"
#include "gegbl.h"
#include "Spline.h"

namespace gecore
{
/// The points that differ from their predecessor by more than tol.
std::vector<AcGePoint3d> distinctPoints(const std::vector<AcGePoint3d>& points, double tol);

/// A rising parameter from 0 for each of some distinct points.
std::vector<double> fitParams(const std::vector<AcGePoint3d>& points, AcGe::KnotParameterization rule);

/// A direction scaled to the speed that the fit has between two of its points.
AcGeVector3d scaledTangent(const AcGeVector3d& direction, const AcGePoint3d& a, const AcGePoint3d& b,
                           double width);

/// A conic as a rational quadratic (The NURBS Book, A7.1), with the angle as parameter at the knots.
Spline splineOfConic(const CurveForm& conic);

/// Control points and the knots of one period (points + 1), wrapped to a full knot vector.
Spline wrappedPeriod(int degree, const std::vector<double>& knots, const std::vector<AcGePoint3d>& points,
                     const std::vector<double>& weights);

/// The second after the first, moved in parameter; both of any degree. The ends must be the same point.
Spline joined(Spline first, Spline second);
} // namespace gecore
