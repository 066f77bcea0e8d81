#include "CurveDistance.h"
#include "gelnsg2d.h"
#include "TraceSteps.h"

namespace kernel
{
using namespace gecore;

namespace
{
struct LooseEnd {
    int strand = 0;
    AcGePoint2d point;
};

class Bridges
{
public:
    Bridges(const std::vector<Strand>& strands, double tol) : mStrands(strands), mTol(tol), mTree(boxes()) {}

    std::vector<std::unique_ptr<AcGeCurve2d>> over(double widest)
    {
        std::vector<std::unique_ptr<AcGeCurve2d>> bridges;
        const std::vector<LooseEnd> loose = looseEnds();
        if (loose.empty()) return bridges;
        std::vector<Box2> places(loose.size());
        for (std::size_t i = 0; i < loose.size(); ++i)
            places[i].add(loose[i].point);
        const BoxTree ends(places);
        for (std::size_t i = 0; i < loose.size(); ++i) {
            const AcGePoint2d to = nearest(loose, ends, i, widest);
            if (to.distanceTo(loose[i].point) <= widest)
                bridges.push_back(std::make_unique<AcGeLineSeg2d>(loose[i].point, to));
        }
        return bridges;
    }

private:
    std::vector<Box2> boxes() const
    {
        std::vector<Box2> result;
        for (const Strand& strand : mStrands)
            result.push_back(flatBoxOf(strand.form));
        return result;
    }

    std::vector<LooseEnd> looseEnds() const
    {
        std::vector<LooseEnd> loose;
        for (std::size_t i = 0; i < mStrands.size(); ++i) {
            const CurveForm& form = mStrands[i].form;
            if (isClosed(form, mTol)) continue;
            for (const AcGePoint3d& p : {startOf(form), endOf(form)}) {
                const LooseEnd end{static_cast<int>(i), {p.x, p.y}};
                if (isLoose(end)) loose.push_back(end);
            }
        }
        return loose;
    }

    bool isLoose(const LooseEnd& end) const
    {
        bool loose = true;
        Box2 place;
        place.add(end.point);
        mTree.eachIn(place.grown(4 * mTol), [&](int other) {
            if (other == end.strand) return;
            loose = loose && !isNear(mStrands[static_cast<std::size_t>(other)].form, end.point, 4 * mTol);
        });
        return loose;
    }

    /// The nearest other end; a nearer curve when there is no end within reach.
    AcGePoint2d nearest(const std::vector<LooseEnd>& loose, const BoxTree& ends, std::size_t i,
                        double widest) const
    {
        const AcGePoint2d from = loose[i].point;
        AcGePoint2d best(kInfinity, kInfinity);
        double least = widest;
        Box2 place;
        place.add(from);
        // Both boxes shrink as better places are found.
        ends.each([&](const Box2& b) { return b.meets(place.grown(least)); },
                  [&](int other) {
                      const AcGePoint2d to = loose[static_cast<std::size_t>(other)].point;
                      if (static_cast<std::size_t>(other) == i || to.distanceTo(from) > least) return;
                      least = to.distanceTo(from);
                      best = to;
                  });
        if (best.x < kInfinity) return best;
        mTree.each([&](const Box2& b) { return b.meets(place.grown(least)); },
                   [&](int other) {
                       if (other == loose[i].strand) return;
                       const Foot foot =
                           closestTo(mStrands[static_cast<std::size_t>(other)].form, {from.x, from.y, 0});
                       if (foot.distance > least) return;
                       least = foot.distance;
                       best = {foot.point.x, foot.point.y};
                   });
        return best;
    }

    const std::vector<Strand>& mStrands;
    double mTol;
    BoxTree mTree;
};
} // namespace

std::vector<std::unique_ptr<AcGeCurve2d>> bridgesOver(const std::vector<Strand>& strands, double tol,
                                                      double widest)
{
    return Bridges(strands, tol).over(widest);
}
} // namespace kernel
