#include "LoopChains.h"

#include "CurveForm.h"

#include <algorithm>
#include <numeric>

namespace kernel
{
using namespace gecore;

namespace
{
/// End 2 i is the start of curve i, end 2 i + 1 its end.
class EndMatcher
{
public:
    explicit EndMatcher(const std::vector<std::shared_ptr<const AcGeCurve3d>>& curves)
        : mPartner(2 * curves.size(), kNone)
    {
        for (const auto& curve : curves) {
            mPlaces.push_back(startOf(curve->form()));
            mPlaces.push_back(endOf(curve->form()));
        }
    }

    ChainStatus match(double tol)
    {
        std::vector<std::size_t> order(mPlaces.size());
        std::iota(order.begin(), order.end(), 0u);
        std::sort(order.begin(), order.end(),
                  [&](std::size_t a, std::size_t b) { return mPlaces[a].x < mPlaces[b].x; });
        for (std::size_t i = 0; i < order.size(); ++i)
            for (std::size_t k = i + 1; k < order.size(); ++k) {
                if (mPlaces[order[k]].x > mPlaces[order[i]].x + tol) break;
                if (mPlaces[order[i]].distanceTo(mPlaces[order[k]]) > tol) continue;
                if (!join(order[i], order[k])) return ChainStatus::kBranching;
            }
        const bool open = std::find(mPartner.begin(), mPartner.end(), kNone) != mPartner.end();
        return open ? ChainStatus::kOpen : ChainStatus::kOk;
    }

    std::size_t partner(std::size_t end) const { return mPartner[end]; }

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    bool join(std::size_t a, std::size_t b)
    {
        if (mPartner[a] != kNone || mPartner[b] != kNone) return isClosedBy(a) && isClosedBy(b);
        mPartner[a] = b;
        mPartner[b] = a;
        return true;
    }
    /// A closed curve may touch others at its start.
    bool isClosedBy(std::size_t end) const { return mPartner[end] == (end ^ 1u); }

    std::vector<AcGePoint3d> mPlaces;
    std::vector<std::size_t> mPartner;
};

std::shared_ptr<const AcGeCurve3d> turned(const AcGeCurve3d& curve)
{
    std::unique_ptr<AcGeCurve3d> copy(static_cast<AcGeCurve3d*>(curve.copy()));
    copy->reverseParam();
    return copy;
}
} // namespace

ChainStatus closedChains(const std::vector<std::shared_ptr<const AcGeCurve3d>>& curves, double tol,
                         std::vector<Chain3d>& chains)
{
    chains.clear();
    EndMatcher ends(curves);
    const ChainStatus status = ends.match(tol);
    if (status != ChainStatus::kOk) return status;
    std::vector<bool> used(curves.size(), false);
    for (std::size_t i = 0; i < curves.size(); ++i) {
        if (used[i]) continue;
        Chain3d chain;
        std::size_t end = 2 * i;
        while (!used[end / 2]) {
            used[end / 2] = true;
            chain.push_back(end % 2 == 0 ? curves[end / 2] : turned(*curves[end / 2]));
            end = ends.partner(end ^ 1u);
        }
        chains.push_back(std::move(chain));
    }
    return ChainStatus::kOk;
}
} // namespace kernel
