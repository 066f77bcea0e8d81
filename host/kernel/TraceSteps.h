#pragma once

/// The steps of tracing a boundary.

#include "BoundaryTrace.h"
#include "FaceWalk.h"

namespace kernel
{
/// A square around the picked point and the strands that come into it, in their order. What they enclose
/// within the square is what all strands enclose there.
struct TraceWindow {
    Box2 box;
    std::vector<int> strands;
};
/// Windows from a few strands upwards, each with twice as many as the one before or more; without the whole.
std::vector<TraceWindow> windowsAround(const std::vector<Strand>& strands, const AcGePoint2d& pick,
                                       double tol);

/// The outer boundary of the face that holds `pick`; an empty cycle with kOutside or kOnCurve when there is
/// none.
struct Enclosure {
    TraceStatus status = TraceStatus::kOutside;
    Cycle outer;
    std::vector<Cycle> attached; ///< clockwise cycles that share vertices or dangling ends with the outer one
};
Enclosure enclosureOf(Arrangement& plane, const AcGePoint2d& pick);

/// An island as a clockwise cycle, and how deep it lies.
struct Island {
    Cycle cycle;
    int depth = 1;
};
std::vector<Island> islandsIn(Arrangement& plane, const Enclosure& enclosure, IslandMode mode);

/// Segments between ends that meet no other curve and what lies nearest to them, up to `widest` away. Each is
/// owned by the list.
std::vector<std::unique_ptr<AcGeCurve2d>> bridgesOver(const std::vector<Strand>& strands, double tol,
                                                      double widest);
} // namespace kernel
