#include "BoxTree.h"

#include <cmath>

namespace kernel
{
void Box2::add(const Box2& b)
{
    minX = std::min(minX, b.minX);
    minY = std::min(minY, b.minY);
    maxX = std::max(maxX, b.maxX);
    maxY = std::max(maxY, b.maxY);
}

double Box2::diagonal() const
{
    return isEmpty() ? 0 : std::hypot(maxX - minX, maxY - minY);
}

double Box2::magnitude() const
{
    if (isEmpty()) return 0;
    return std::max(std::max(std::fabs(minX), std::fabs(maxX)), std::max(std::fabs(minY), std::fabs(maxY)));
}

bool Box2::meetsSegment(const AcGePoint2d& a, const AcGePoint2d& b) const
{
    double from = 0, to = 1;
    const auto clip = [&](double start, double step, double lo, double hi) {
        if (step == 0) return start >= lo && start <= hi;
        const double first = (lo - start) / step, second = (hi - start) / step;
        from = std::max(from, std::min(first, second));
        to = std::min(to, std::max(first, second));
        return from <= to;
    };
    return clip(a.x, b.x - a.x, minX, maxX) && clip(a.y, b.y - a.y, minY, maxY);
}

Box2 flatBoxOf(const gecore::CurveForm& form)
{
    const gecore::Box box = gecore::boxOf(form);
    return {box.min.x, box.min.y, box.max.x, box.max.y};
}

BoxTree::BoxTree(const std::vector<Box2>& boxes)
{
    sortTiles(boxes);
    mLevels.emplace_back();
    mLevels[0].reserve(boxes.size());
    for (const int i : mOrder) {
        mLevels[0].push_back(boxes[static_cast<std::size_t>(i)]);
        mTotal.add(mLevels[0].back());
    }
    while (mLevels.back().size() > kFan) {
        const std::vector<Box2>& below = mLevels.back();
        std::vector<Box2> level((below.size() + kFan - 1) / kFan);
        for (std::size_t i = 0; i < below.size(); ++i)
            level[i / kFan].add(below[i]);
        mLevels.push_back(std::move(level));
    }
}

void BoxTree::sortTiles(const std::vector<Box2>& boxes)
{
    std::vector<std::pair<double, int>> keys;
    keys.reserve(boxes.size());
    for (const Box2& b : boxes)
        keys.emplace_back(b.minX + b.maxX, static_cast<int>(keys.size()));
    std::sort(keys.begin(), keys.end());
    for (auto& [key, index] : keys) {
        const Box2& b = boxes[static_cast<std::size_t>(index)];
        key = b.minY + b.maxY;
    }
    const double leaves = std::ceil(static_cast<double>(boxes.size()) / static_cast<double>(kFan));
    const std::size_t strip = kFan * static_cast<std::size_t>(std::max(1.0, std::ceil(std::sqrt(leaves))));
    for (std::size_t from = 0; from < keys.size(); from += strip)
        std::sort(keys.begin() + static_cast<std::ptrdiff_t>(from),
                  keys.begin() + static_cast<std::ptrdiff_t>(std::min(from + strip, keys.size())));
    mOrder.reserve(keys.size());
    for (const auto& [key, index] : keys)
        mOrder.push_back(index);
}
} // namespace kernel
