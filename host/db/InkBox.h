#pragma once

#include "gepnt2d.h"

#include <algorithm>
#include <limits>

namespace lettering
{
/// A box along the axes; empty until a point or another box is added.
struct InkBox {
    AcGePoint2d min{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    AcGePoint2d max{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

    bool isEmpty() const { return min.x > max.x || min.y > max.y; }
    double width() const { return isEmpty() ? 0 : max.x - min.x; }
    double height() const { return isEmpty() ? 0 : max.y - min.y; }
    void add(const AcGePoint2d& point)
    {
        min.set(std::min(min.x, point.x), std::min(min.y, point.y));
        max.set(std::max(max.x, point.x), std::max(max.y, point.y));
    }
    void add(const InkBox& box)
    {
        if (box.isEmpty()) return;
        add(box.min);
        add(box.max);
    }
};
} // namespace lettering
