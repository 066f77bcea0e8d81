#pragma once

/// Winding numbers of many points about the same curves.

#include "BoxTree.h"
#include "Winding.h"

namespace kernel
{
/// Answers as windingNumber does, in O(log n) for most points: seen from outside of its box, a chain of runs
/// turns through the angle between its ends, whatever it does in between.
class WindingTree
{
public:
    /// Closed chains of runs, one after the other; runs whose ends are no further apart than tol go on in one
    /// chain. What the forms of the runs point into must outlive the tree.
    WindingTree(const std::vector<Run>& runs, double tol);

    int numberAt(const AcGePoint2d& p) const;

private:
    /// Neighbouring runs of a chain.
    struct Node {
        Box2 box;
        AcGePoint3d start, end;
        std::size_t run = 0;               ///< of a leaf
        std::size_t first = 0, second = 0; ///< the nodes of its halves, 0 for a leaf
    };

    std::size_t add(std::size_t from, std::size_t to);
    double turnOf(std::size_t node, const AcGePoint2d& p) const;

    std::vector<Run> mRuns;
    std::vector<Node> mNodes{Node()}; ///< 0 is none
    std::vector<std::size_t> mChains; ///< the nodes that stand for them
};
} // namespace kernel
