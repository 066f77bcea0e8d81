#include "RegionBody.h"
#include "WindingTree.h"

#include <unordered_map>
#include <unordered_set>

namespace kernel
{
using namespace gecore;

namespace
{
/// The winding numbers of both operands on one side of an edge.
struct Inside {
    bool first = false, second = false;

    bool in(BooleanKind kind) const
    {
        switch (kind) {
        case BooleanKind::kUnion:
            return first || second;
        case BooleanKind::kIntersect:
            return first && second;
        default:
            return first && !second;
        }
    }
};

/// Strands of both operands in one subdivision; an edge belongs to the result when the result is on one side
/// of it only.
class Combination
{
public:
    Combination(const std::vector<Run>& first, const std::vector<Run>& second, double tol)
        : mOperands{first, second}, mSides{{first, tol}, {second, tol}}, mPlane(strands(tol), tol)
    {
    }

    std::vector<Loop> loops(BooleanKind kind)
    {
        for (int i = 0; i < static_cast<int>(mPlane.strands().size()); ++i)
            for (int k = 0; k < mPlane.edgeCount(i); ++k)
                if (!mPlane.isRepeated(i, k)) keep({i, k, true}, kind);
        std::vector<Loop> result;
        for (const HalfEdge& h : mKept)
            if (!mWalked.count(h.key()))
                for (const Cycle& cycle : simpleCycles(mPlane, walk(h)))
                    result.push_back(merged(loopOf(mPlane, cycle), mPlane.tolerance()));
        return result;
    }

private:
    std::vector<Strand> strands(double tol)
    {
        std::vector<Strand> all;
        int source = 0;
        for (int operand = 0; operand < 2; ++operand) {
            for (const Run& run : mOperands[operand])
                addStrands(run.form, source++, tol, all);
            mOwner.resize(all.size(), operand);
        }
        return all;
    }

    /// The runs of an operand have its inside to their left: an edge of one tells its sides, others are asked
    /// by their winding number.
    void sidesFor(int operand, const HalfEdge& h, bool& left, bool& right)
    {
        int onto = mOwner[static_cast<std::size_t>(h.strand)] == operand ? 1 : 0, against = 0;
        for (const Arrangement::Shared& shared : mPlane.sharedWith(h.strand, h.index)) {
            if (mOwner[static_cast<std::size_t>(shared.other)] != operand) continue;
            ++(shared.sameDirection ? onto : against);
        }
        if (onto == 0 && against == 0) {
            left = right = mSides[operand].numberAt(mPlane.middlePoint(h)) > 0;
        } else {
            left = onto > 0;
            right = against > 0;
        }
    }

    void keep(const HalfEdge& h, BooleanKind kind)
    {
        Inside left, right;
        sidesFor(0, h, left.first, right.first);
        sidesFor(1, h, left.second, right.second);
        if (left.in(kind) == right.in(kind)) return;
        mKept.push_back(left.in(kind) ? h : h.twin());
        mIsKept.insert(mKept.back().key());
    }

    /// The next kept half-edge along the inside of the result.
    HalfEdge next(const HalfEdge& h)
    {
        const std::vector<HalfEdge>& around = mPlane.fan(mPlane.endOf(h));
        const auto back = std::find(around.begin(), around.end(), h.twin());
        auto at = static_cast<std::size_t>(back - around.begin());
        for (std::size_t k = 0; k < around.size(); ++k) {
            at = (at + around.size() - 1) % around.size();
            if (mIsKept.count(around[at].key())) return around[at];
        }
        return h;
    }

    /// Ends early where rounding left a boundary open; such a walk makes no cycle.
    Cycle walk(const HalfEdge& h)
    {
        Cycle cycle;
        for (HalfEdge at = h; mWalked.insert(at.key()).second; at = next(at))
            cycle.push_back(at);
        return cycle;
    }

    const std::vector<Run> mOperands[2];
    const WindingTree mSides[2];
    std::vector<int> mOwner;
    Arrangement mPlane;
    std::vector<HalfEdge> mKept;
    std::unordered_set<std::uint64_t> mIsKept, mWalked;
};
} // namespace

std::vector<Loop> combinedLoops(BooleanKind kind, const std::vector<Run>& first,
                                const std::vector<Run>& second, double tol)
{
    return Combination(first, second, tol).loops(kind);
}
} // namespace kernel
