#include "EndChains.h"

#include <algorithm>
#include <numeric>

namespace entity
{
namespace
{
constexpr std::size_t none = static_cast<std::size_t>(-1);
} // namespace

/// Goes from curve to curve and cuts a chain off wherever it comes back to a place that it has left.
class EndChains::Walk
{
public:
    explicit Walk(const EndChains& owner)
        : m_owner(owner), m_byX(owner.m_ends.size()), m_stepOf(owner.m_ends.size(), none),
          m_isUsed(owner.m_curves.size(), false)
    {
        std::iota(m_byX.begin(), m_byX.end(), std::size_t{0});
        std::sort(m_byX.begin(), m_byX.end(),
                  [this](std::size_t a, std::size_t b) { return at(a).x < at(b).x; });
    }

    bool run(std::vector<AcDbObjectIdArray>& chains)
    {
        for (std::size_t curve = 0; curve < m_isUsed.size(); ++curve)
            if (!m_isUsed[curve] && !follow(2 * curve, chains)) return false;
        return true;
    }

private:
    const AcGePoint3d& at(std::size_t end) const { return m_owner.m_ends[end]; }

    /// From one end of a curve on until everything that was walked is cut off; false at a loose end.
    bool follow(std::size_t from, std::vector<AcDbObjectIdArray>& chains)
    {
        while (from != none) {
            m_isUsed[from / 2] = true;
            m_stepOf[from] = m_steps.size();
            m_steps.push_back(from);
            const std::size_t reached = from ^ 1;
            const std::size_t step = leftBefore(reached);
            if (step != none) cutOff(step, chains.emplace_back());
            if (m_steps.empty()) return true;
            from = unusedAt(reached);
        }
        return false;
    }

    void cutOff(std::size_t step, AcDbObjectIdArray& chain)
    {
        for (std::size_t i = step; i < m_steps.size(); ++i) {
            chain.append(m_owner.m_curves[m_steps[i] / 2]);
            m_stepOf[m_steps[i]] = none;
        }
        m_steps.resize(step);
    }

    /// The first step that started at the place of an end.
    std::size_t leftBefore(std::size_t end) const
    {
        std::size_t first = none;
        eachMeeting(end, [&](std::size_t other) { first = std::min(first, m_stepOf[other]); });
        return first;
    }

    std::size_t unusedAt(std::size_t end) const
    {
        std::size_t found = none;
        eachMeeting(end, [&](std::size_t other) {
            if (found == none && !m_isUsed[other / 2]) found = other;
        });
        return found;
    }

    /// The ends by their x, where those that meet are neighbours but for a few.
    template <class Visit>
    void eachMeeting(std::size_t end, Visit visit) const
    {
        const AcGePoint3d& point = at(end);
        auto it = std::lower_bound(m_byX.begin(), m_byX.end(), point.x - reach,
                                   [this](std::size_t i, double x) { return at(i).x < x; });
        for (; it != m_byX.end() && at(*it).x <= point.x + reach; ++it)
            if (at(*it).distanceTo(point) <= reach) visit(*it);
    }

    const EndChains& m_owner;
    std::vector<std::size_t> m_byX;
    std::vector<std::size_t> m_steps;  ///< the ends that the curves of the path were entered by
    std::vector<std::size_t> m_stepOf; ///< of each end on the path
    std::vector<bool> m_isUsed;
};

void EndChains::add(AcDbObjectId curve, const AcGePoint3d& start, const AcGePoint3d& end)
{
    m_ends.push_back(start);
    m_ends.push_back(end);
    m_curves.push_back(curve);
}

bool EndChains::take(std::vector<AcDbObjectIdArray>& chains) const
{
    return Walk(*this).run(chains);
}
} // namespace entity
