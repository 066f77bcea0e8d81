#include "AreaMoments.h"
#include "CurveMeet.h"
#include "TraceSteps.h"
#include "WindingTree.h"

#include <cmath>
#include <unordered_set>

namespace kernel
{
using namespace gecore;

namespace
{
class Islands
{
public:
    Islands(Arrangement& plane, const Enclosure& enclosure)
        : mPlane(plane), mOuter(runsOf(plane, enclosure.outer), 4 * plane.tolerance()),
          mReach(flatBoxOf(plane, enclosure.outer))
    {
        addBoundary(enclosure.outer);
        for (const Cycle& cycle : enclosure.attached) {
            addBoundary(cycle);
            mFound.push_back({cycle, 1});
        }
    }

    std::vector<Island> run()
    {
        for (const int strand : strandsInside())
            if (mSeen.insert(strand).second) addComponent(strand);
        findDepths();
        return std::move(mFound);
    }

private:
    void addBoundary(const Cycle& cycle)
    {
        for (const HalfEdge& h : cycle)
            mBoundary.insert(h.strand);
    }

    std::vector<int> strandsInside() const
    {
        std::vector<int> inside;
        mPlane.tree().eachIn(mReach, [&](int i) {
            if (mBoundary.count(i) || !mReach.contains(mPlane.box(i))) return;
            const CurveForm& form = mPlane.strand(i).form;
            const AcGePoint3d p = pointAt(form, (form.lo + form.hi) / 2);
            if (mOuter.numberAt({p.x, p.y}) > 0) inside.push_back(i);
        });
        return inside;
    }

    /// The strands that hang together with one; what hangs on the boundary is no island.
    void addComponent(int first)
    {
        std::vector<int> component{first};
        bool free = true;
        for (std::size_t k = 0; k < component.size(); ++k) {
            for (const int other : neighboursOf(component[k])) {
                free = free && !mBoundary.count(other);
                if (mSeen.insert(other).second) component.push_back(other);
            }
        }
        if (free) addOutline(component);
    }

    std::vector<int> neighboursOf(int strand)
    {
        std::vector<int> result;
        const std::vector<Arrangement::Event> events = mPlane.events(strand);
        for (const Arrangement::Event& event : events)
            for (const HalfEdge& h : mPlane.fan(event.vertex))
                result.push_back(h.strand);
        return result;
    }

    /// On one side of the edge furthest to the left is the outside of the component.
    void addOutline(const std::vector<int>& component)
    {
        HalfEdge leftmost;
        double least = kInfinity;
        for (const int strand : component)
            for (int i = 0; i < mPlane.edgeCount(strand); ++i) {
                const HalfEdge h{strand, i, true};
                const double x =
                    mPlane.isRepeated(strand, i) ? kInfinity : flatBoxOf(mPlane.run(h).form).minX;
                if (x >= least) continue;
                least = x;
                leftmost = h;
            }
        if (leftmost.strand < 0) return;
        for (const HalfEdge& side : {leftmost, leftmost.twin()}) {
            const Cycle walk = walkFace(mPlane, side);
            // The faces within the component run counter-clockwise.
            if (areaOf(runsOf(mPlane, walk)) <= 0) return addCycles(walk);
        }
    }

    void addCycles(const Cycle& walk)
    {
        for (Cycle& cycle : simpleCycles(mPlane, walk))
            mFound.push_back({std::move(cycle), 1});
    }

    /// An island lies as deep as there are islands around a point of it.
    void findDepths()
    {
        std::vector<Box2> boxes;
        for (const Island& island : mFound)
            boxes.push_back(flatBoxOf(mPlane, island.cycle));
        const BoxTree tree(boxes);
        for (Island& island : mFound) {
            const AcGePoint2d p = mPlane.middlePoint(island.cycle.front());
            Box2 place;
            place.add(p);
            tree.eachIn(place, [&](int other) {
                const Island& around = mFound[static_cast<std::size_t>(other)];
                if (&around != &island && windingNumber(runsOf(mPlane, around.cycle), p) != 0) ++island.depth;
            });
        }
    }

    Arrangement& mPlane;
    WindingTree mOuter;
    Box2 mReach;
    std::unordered_set<int> mBoundary, mSeen;
    std::vector<Island> mFound;
};
} // namespace

std::vector<Island> islandsIn(Arrangement& plane, const Enclosure& enclosure, IslandMode mode)
{
    if (mode == IslandMode::kNone) return {};
    std::vector<Island> islands = Islands(plane, enclosure).run();
    if (mode == IslandMode::kOuter)
        islands.erase(
            std::remove_if(islands.begin(), islands.end(), [](const Island& i) { return i.depth > 1; }),
            islands.end());
    return islands;
}
} // namespace kernel
