#pragma once

/// What a region consists of.

#include "FaceLoops.h"
#include "PlaneFrame.h"
#include "Region.h"

namespace kernel
{
struct Region::Body {
    AcGeMatrix3d frame; ///< from the plane to the world
    std::vector<Face> faces;
    std::vector<Run> runs; ///< of all loops: the winding number is 1 inside and 0 outside
    Box2 box;

    Body(const AcGeMatrix3d& planeToWorld, std::vector<Face> content);
};

/// The loops of a result, oriented with the inside to their left.
std::vector<Loop> combinedLoops(BooleanKind kind, const std::vector<Run>& first,
                                const std::vector<Run>& second, double tol);
} // namespace kernel
