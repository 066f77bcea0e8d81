#pragma once

#include "genurb3d.h"

#include <memory>

/// The same curve as a spline, exactly: of segments, arcs, ellipses, polylines, splines and chains of them.
/// Null for others and for chains with gaps.
std::unique_ptr<AcGeNurbCurve3d> nurbsOf(const AcGeCurve3d& curve);
