#pragma once

/// Closed chains among curves in space.

#include "gecurv3d.h"

#include <memory>
#include <vector>

namespace kernel
{
using Chain3d = std::vector<std::shared_ptr<const AcGeCurve3d>>;

enum class ChainStatus : char {
    kOk,
    kOpen,     ///< an end meets no other
    kBranching ///< more than two ends meet
};

/// The curves in closed chains, in the order and direction in which they follow each other; a curve that ends
/// where it starts is a chain of its own. Each curve is used once. On failure the list is empty.
ChainStatus closedChains(const std::vector<std::shared_ptr<const AcGeCurve3d>>& curves, double tol,
                         std::vector<Chain3d>& chains);
} // namespace kernel
