#pragma once

/// Curves at a distance from a chain of curves.

#include "gecurv2d.h"

#include <memory>
#include <vector>

namespace kernel
{
enum class OffsetStatus : char {
    kOk,
    kBadCurve,     ///< a curve is null, unbounded, not finite, or a point; or the distance is 0 or not finite
    kNotConnected, ///< a curve does not start where the one before ends
    kNothing       ///< no point on that side has the distance: the chain has shrunk to nothing
};

/// Curves that follow each other end to start.
struct OffsetChain {
    std::vector<std::shared_ptr<const AcGeCurve2d>> curves;
    bool closed = false;
};

struct OffsetResult {
    OffsetStatus status = OffsetStatus::kNothing;
    std::vector<OffsetChain>
        chains; ///< in the direction of the input; several where the chain pinches itself
};

/// The chain moved to the left by `distance` (drawing units; to the right when negative). Lines stay lines
/// and arcs stay arcs about their centres; ellipses and splines become cubic splines that deviate by no more
/// than 1e-6 of the distance. Corners that open are closed by extending their sides until they meet (by their
/// tangents where sides do not meet); what comes nearer to the chain than the distance (by more than 5e-6 of
/// it) is cut away. A chain whose last curve ends at the start of the first, within tol, is closed.
OffsetResult offsetChain(const std::vector<const AcGeCurve2d*>& chain, double distance, double tol = 1e-8);
} // namespace kernel
