#include "TraceSteps.h"

#include <algorithm>
#include <numeric>

namespace kernel
{
using namespace gecore;

namespace
{
/// Among so few strands there is nothing to gain.
constexpr std::size_t kFewStrands = 64;
/// Many strands through one place stay as many in every window around it.
constexpr int kHalvings = 48;

bool comesInto(const Strand& strand, const Box2& strandBox, const Box2& window)
{
    if (!strandBox.meets(window)) return false;
    // The boxes of long slanted lines lie around everything.
    if (strand.form.kind != FormKind::kLine) return true;
    const AcGePoint3d a = startOf(strand.form), b = endOf(strand.form);
    return window.meetsSegment({a.x, a.y}, {b.x, b.y});
}

/// The strands in ever smaller squares around a point.
class Windows
{
public:
    Windows(const std::vector<Strand>& strands, const AcGePoint2d& middle, double tol)
        : mStrands(strands), mMiddle(middle), mTol(tol), mInside(strands.size())
    {
        mBoxes.reserve(strands.size());
        for (const Strand& strand : strands)
            mBoxes.push_back(flatBoxOf(strand.form));
        std::iota(mInside.begin(), mInside.end(), 0);
    }

    std::vector<TraceWindow> run()
    {
        std::vector<TraceWindow> windows;
        double reach = wholeReach();
        std::size_t last = mInside.size();
        for (int i = 0; i < kHalvings && mInside.size() > kFewStrands; ++i) {
            reach /= 2;
            const Box2 box{mMiddle.x - reach, mMiddle.y - reach, mMiddle.x + reach, mMiddle.y + reach};
            keepThoseIn(box.grown(mTol));
            // A window that is hardly smaller would only repeat the work of the one around it.
            if (mInside.empty() || mInside.size() > last / 2) continue;
            windows.push_back({box, mInside});
            last = mInside.size();
        }
        std::reverse(windows.begin(), windows.end());
        return windows;
    }

private:
    double wholeReach() const
    {
        Box2 all;
        all.add(mMiddle);
        for (const Box2& box : mBoxes)
            all.add(box);
        return all.diagonal();
    }

    void keepThoseIn(const Box2& window)
    {
        const auto isOut = [&](int i) {
            const auto at = static_cast<std::size_t>(i);
            return !comesInto(mStrands[at], mBoxes[at], window);
        };
        mInside.erase(std::remove_if(mInside.begin(), mInside.end(), isOut), mInside.end());
    }

    const std::vector<Strand>& mStrands;
    AcGePoint2d mMiddle;
    double mTol;
    std::vector<Box2> mBoxes;
    std::vector<int> mInside;
};
} // namespace

std::vector<TraceWindow> windowsAround(const std::vector<Strand>& strands, const AcGePoint2d& pick,
                                       double tol)
{
    return Windows(strands, pick, tol).run();
}
} // namespace kernel
