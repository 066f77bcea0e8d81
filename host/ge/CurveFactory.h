#pragma once

/// Curve entities made from their numeric form, and from other curves.

#include "CurveForm.h"

class AcGeCurve2d;
class AcGeCurve3d;

namespace gecore
{
/// A new entity of the class that suits the form: segment, ray or line, arc, elliptic arc, spline.
AcGeCurve3d* curve3dOf(const CurveForm& form);
AcGeCurve2d* curve2dOf(const CurveForm& form);

/// The image under an affine map, a new entity: an arc may become an ellipse. Null when the image is a point,
/// a conic seen from its edge, or a chain.
AcGeCurve3d* imageOf(const AcGeCurve3d& curve, const AcGeMatrix3d& map, const AcGeTol& tol);

/// The curve at a distance to the left, a new entity, of lines and circular arcs; else null.
AcGeCurve3d* offsetOf(const AcGeCurve3d& curve, double distance, const AcGeVector3d& planeNormal,
                      const AcGeTol& tol);
AcGeCurve2d* offsetOf(const AcGeCurve2d& curve, double distance, const AcGeTol& tol);

bool isPeriodicSpline(const CurveForm& form);
} // namespace gecore
