#pragma once

/// The loops of hatches as geometry.

#include "dbhatchloop.h"
#include "gecurv2d.h"
#include "gemat2d.h"
#include "HatchFill.h"

namespace hatch
{
using Curves = std::vector<std::shared_ptr<const AcGeCurve2d>>;

/// Null for an edge without shape (a radius of 0, a spline without enough points).
std::shared_ptr<const AcGeCurve2d> curveOf(const Edge& edge);
/// False for curves that are no edges: other classes, endless ones, numbers that are not finite.
bool edgeOf(const AcGeCurve2d& curve, Edge& edge);
/// The sides of a loop that have a shape.
Curves curvesOf(const Loop& loop);
/// Brings curves into the order and direction of one closed chain; false when they make none.
bool chain(Curves& curves);
/// The loop as chords that keep within a distance of it.
kernel::Polygon flattened(const Loop& loop, double deviation);
/// The loop after an affine map. Arcs become ellipses when it does not scale evenly.
void mapLoop(Loop& loop, const AcGeMatrix2d& map);
/// Never negative.
double areaOf(const Loop& loop);

/// A deviation far below what can be seen of loops of this size.
double fineDeviation(const std::vector<Loop>& loops);
/// What each loop is to the area of a hatch of a style (0 normal, 1 outer, 2 ignore): 1 adds to it, -1 is taken
/// from it, 0 counts for nothing. The frame of a text (kTextbox) is never added, nor what lies in one.
std::vector<int> signsOf(const std::vector<Loop>& loops, int style, double deviation);
/// The loops that bound what is filled, by the even-odd rule.
kernel::Polygons filledPolygons(const std::vector<Loop>& loops, int style, double deviation);
} // namespace hatch
