#pragma once

/// Cycles of a subdivision as curves.

#include "FaceWalk.h"
#include "gecurv2d.h"

#include <memory>

namespace kernel
{
using CurvePtr = std::shared_ptr<const AcGeCurve2d>;

/// The part of one strand that a cycle runs along without leaving it.
struct CyclePart {
    const Strand* strand = nullptr;
    Run run;

    /// The parameter on the input curve.
    double source(double t) const { return strand->sourceParam(t); }
};

/// The parts of a cycle in their order; neighbours on one input curve are one part. The parameters of a
/// part over the start of a closed conic run past a full turn.
std::vector<CyclePart> partsOf(Arrangement& plane, const Cycle& cycle);

/// The run as a curve of its own, in the direction of the run.
CurvePtr curveOf(const Run& run);
} // namespace kernel
