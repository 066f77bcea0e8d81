#pragma once

/// The boundary around a picked point.

#include "gecurv2d.h"

#include <memory>
#include <vector>

namespace kernel
{
/// What of the shapes inside of the boundary is wanted.
enum class IslandMode : char {
    kNone,  ///< the boundary only
    kOuter, ///< also the islands that lie in it directly
    kNested ///< also islands in islands
};

enum class TraceStatus : char {
    kOk,
    kBadCurve, ///< a curve is null, or not finite
    kOnCurve,  ///< the point lies on a curve, so it is in no face
    kOutside,  ///< nothing surrounds the point
    kGap       ///< what surrounds the point has a gap that is wider than allowed
};

/// A curve of the plane and the number by which the caller knows it. Unbounded lines take part as far as the
/// bounded curves and the picked point reach.
struct TraceCurve {
    const AcGeCurve2d* curve = nullptr;
    int index = 0;
};

struct TraceOptions {
    double tolerance = 1e-8; ///< drawing units; ends this close meet
    double gap = 0;          ///< drawing units; ends this close are connected by a segment
    IslandMode islands = IslandMode::kNested;
};

/// A part of a boundary, in the direction in which the boundary is run through.
struct TracePiece {
    int index = 0;           ///< the caller's number; kGapPiece for a segment that closes a gap
    double from = 0, to = 0; ///< parameters of that curve; from > to when it is run through backwards; past
                             ///< a full turn over the start of a closed conic
    std::shared_ptr<const AcGeCurve2d> curve; ///< the part as a curve of its own
};
constexpr int kGapPiece = -1;

/// A closed chain that does not touch itself.
struct TraceLoop {
    std::vector<TracePiece> pieces;
    double area = 0; ///< signed: the boundary runs counter-clockwise (positive), islands run clockwise
    int depth = 0;   ///< 0 for the boundary, 1 for an island in it, 2 for an island in that ...
};

struct TraceResult {
    TraceStatus status = TraceStatus::kOutside;
    std::vector<TraceLoop> loops; ///< the boundary first; empty unless the status is kOk
    AcGePoint2d gapPoint;         ///< kGap: the middle of the widest gap
    double gapWidth = 0;          ///< kGap: its width in drawing units
};

/// The smallest closed boundary around the point that the curves make, wherever they cross, touch or overlap.
/// Ends that lead nowhere do not count. Only the curves along the boundary, and those inside of it when
/// islands are wanted, are intersected.
TraceResult traceBoundary(const std::vector<TraceCurve>& curves, const AcGePoint2d& pick,
                          const TraceOptions& options = {});
} // namespace kernel
