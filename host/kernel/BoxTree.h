#pragma once

/// Boxes of the plane and a tree that finds those near a place.

#include "CurveMeasure.h"
#include "gepnt2d.h"

#include <algorithm>
#include <vector>

namespace kernel
{
/// An axis-parallel box; empty while nothing was added.
struct Box2 {
    double minX = gecore::kInfinity, minY = gecore::kInfinity;
    double maxX = -gecore::kInfinity, maxY = -gecore::kInfinity;

    void add(const Box2& b);
    void add(const AcGePoint2d& p) { add(Box2{p.x, p.y, p.x, p.y}); }
    Box2 grown(double by) const { return {minX - by, minY - by, maxX + by, maxY + by}; }
    bool isEmpty() const { return !(minX <= maxX); }
    double diagonal() const;
    /// The largest absolute coordinate.
    double magnitude() const;
    bool meets(const Box2& b) const
    {
        return minX <= b.maxX && b.minX <= maxX && minY <= b.maxY && b.minY <= maxY;
    }
    bool contains(const AcGePoint2d& p) const
    {
        return p.x >= minX && p.x <= maxX && p.y >= minY && p.y <= maxY;
    }
    bool contains(const Box2& b) const
    {
        return b.minX >= minX && b.maxX <= maxX && b.minY >= minY && b.maxY <= maxY;
    }
    /// True when the segment from a to b comes into the box.
    bool meetsSegment(const AcGePoint2d& a, const AcGePoint2d& b) const;
};

Box2 flatBoxOf(const gecore::CurveForm& form);

/// A packed R-tree over a fixed list of boxes (S. Leutenegger et al., STR: A Simple and Efficient Algorithm
/// for R-Tree Packing, 1997): made in O(n log n), asked in O(log n + found).
class BoxTree
{
public:
    explicit BoxTree(const std::vector<Box2>& boxes);

    const Box2& total() const { return mTotal; }
    /// Calls visit(index) for each box for which test(box) holds; test must also hold for every box around
    /// such a box.
    template <class Test, class Visit>
    void each(const Test& test, const Visit& visit) const
    {
        if (!mLevels.empty()) eachBelow(mLevels.size() - 1, 0, mLevels.back().size(), test, visit);
    }
    template <class Visit>
    void eachIn(const Box2& box, const Visit& visit) const
    {
        each([&](const Box2& b) { return b.meets(box); }, visit);
    }

private:
    static constexpr std::size_t kFan = 8;

    template <class Test, class Visit>
    void eachBelow(std::size_t level, std::size_t from, std::size_t to, const Test& test,
                   const Visit& visit) const
    {
        const std::vector<Box2>& boxes = mLevels[level];
        for (std::size_t i = from; i < std::min(to, boxes.size()); ++i) {
            if (!test(boxes[i])) continue;
            if (level == 0) {
                visit(mOrder[i]);
            } else {
                eachBelow(level - 1, i * kFan, (i + 1) * kFan, test, visit);
            }
        }
    }
    void sortTiles(const std::vector<Box2>& boxes);

    std::vector<int> mOrder;                ///< the indices of the boxes of the lowest level
    std::vector<std::vector<Box2>> mLevels; ///< from the boxes themselves upwards
    Box2 mTotal;
};
} // namespace kernel
