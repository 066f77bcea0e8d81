#include "WindingTree.h"

#include <cmath>

namespace kernel
{
using namespace gecore;

WindingTree::WindingTree(const std::vector<Run>& runs, double tol) : mRuns(runs)
{
    std::size_t from = 0;
    for (std::size_t i = 0; i < mRuns.size(); ++i) {
        const bool goesOn = i + 1 < mRuns.size() && mRuns[i].end().distanceTo(mRuns[i + 1].start()) <= tol;
        if (goesOn) continue;
        mChains.push_back(add(from, i + 1));
        from = i + 1;
    }
}

std::size_t WindingTree::add(std::size_t from, std::size_t to)
{
    Node node;
    if (to - from == 1) {
        node.box = flatBoxOf(mRuns[from].form);
        node.start = mRuns[from].start();
        node.end = mRuns[from].end();
        node.run = from;
    } else {
        const std::size_t middle = from + (to - from) / 2;
        node.first = add(from, middle);
        node.second = add(middle, to);
        node.box = mNodes[node.first].box;
        node.box.add(mNodes[node.second].box);
        node.start = mNodes[node.first].start;
        node.end = mNodes[node.second].end;
    }
    mNodes.push_back(node);
    return mNodes.size() - 1;
}

double WindingTree::turnOf(std::size_t at, const AcGePoint2d& p) const
{
    const Node& node = mNodes[at];
    if (!node.box.contains(p)) return turnBetween(node.start, node.end, p);
    if (!node.first) return turnAround(mRuns[node.run], p);
    return turnOf(node.first, p) + turnOf(node.second, p);
}

int WindingTree::numberAt(const AcGePoint2d& p) const
{
    double turn = 0;
    for (const std::size_t chain : mChains)
        if (mNodes[chain].box.contains(p)) turn += turnOf(chain, p);
    return static_cast<int>(std::lround(turn / kTwoPi));
}
} // namespace kernel
