#pragma once

/// The curve at a distance from one smooth curve.

#include "CurvePart.h"

namespace kernel
{
/// The pieces of the offset to the left, in their order; none for an arc that has no radius left. Where the
/// curve bends more than the distance allows its offset turns back: it is cut there, and the piece in between
/// comes nearer to the curve than the distance. Lines and circles are exact, others are within `fit` of the
/// offset.
std::vector<CurvePtr> offsetPieces(const gecore::CurveForm& form, double distance, double fit);

/// The unit tangent at a parameter; a little inside where the speed vanishes.
AcGeVector2d tangentAt(const gecore::CurveForm& form, double t);
} // namespace kernel
