#include "EndChains.h"

#include <algorithm>
#include <numeric>

namespace entity
{
namespace
{
constexpr double reach = 1e-6;
constexpr std::size_t none = static_cast<std::size_t>(-1);
} // namespace

void EndChains::add(AcDbObjectId curve, const AcGePoint3d& start, const AcGePoint3d& end)
{
    m_ends.push_back({start, m_curves.size()});
    m_ends.push_back({end, m_curves.size()});
    m_curves.push_back(curve);
}

bool EndChains::take(std::vector<AcDbObjectIdArray>& chains) const
{
    // The ends by their x, where those that meet are neighbours but for a few.
    std::vector<std::size_t> byX(m_ends.size());
    std::iota(byX.begin(), byX.end(), std::size_t{0});
    std::sort(byX.begin(), byX.end(),
              [this](std::size_t a, std::size_t b) { return m_ends[a].point.x < m_ends[b].point.x; });
    std::vector<bool> isUsed(m_curves.size(), false);

    const auto meeting = [&](std::size_t end) {
        const AcGePoint3d& point = m_ends[end].point;
        auto at = std::lower_bound(byX.begin(), byX.end(), point.x - reach,
                                   [this](std::size_t i, double x) { return m_ends[i].point.x < x; });
        for (; at != byX.end() && m_ends[*at].point.x <= point.x + reach; ++at)
            if (!isUsed[m_ends[*at].curve] && m_ends[*at].point.distanceTo(point) <= reach) return *at;
        return none;
    };
    for (std::size_t first = 0; first < m_curves.size(); ++first) {
        if (isUsed[first]) continue;
        AcDbObjectIdArray& chain = chains.emplace_back();
        const AcGePoint3d& origin = m_ends[2 * first].point;
        for (std::size_t end = 2 * first + 1; end != none;) {
            isUsed[m_ends[end].curve] = true;
            chain.append(m_curves[m_ends[end].curve]);
            if (chain.length() > 1 && m_ends[end].point.distanceTo(origin) <= reach) break;
            end = meeting(end);
            if (end == none) return false;
            end ^= 1; // the other end of that curve
        }
    }
    return true;
}
} // namespace entity
