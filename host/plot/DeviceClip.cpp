#include "DeviceClip.h"

#include <algorithm>

namespace plot
{
namespace
{
/// The part [from, to] of a segment inside the box.
struct Part {
    double from = 0, to = 1;

    /// Keeps where start + t * way >= 0.
    void keep(double start, double way)
    {
        if (way > 0)
            from = std::max(from, -start / way);
        else if (way < 0)
            to = std::min(to, -start / way);
        else if (start < 0)
            to = -1;
    }
    bool isEmpty() const { return from > to; }
};

/// Liang and Barsky, 1984.
Part partInside(const AcGePoint2d& a, const AcGePoint2d& b, const DeviceBox& box)
{
    const AcGeVector2d way = b - a;
    Part part;
    part.keep(a.x - box.left, way.x);
    part.keep(box.right - a.x, -way.x);
    part.keep(a.y - box.bottom, way.y);
    part.keep(box.top - a.y, -way.y);
    return part;
}

/// Cuts off what lies where `depth`, a linear function, is below 0.
template <class Depth>
Points cutSide(const Points& polygon, const Depth& depth)
{
    Points kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const AcGePoint2d &a = polygon[i], &b = polygon[i + 1 < polygon.size() ? i + 1 : 0];
        const double from = depth(a), to = depth(b);
        if (from >= 0) kept.push_back(a);
        if ((from >= 0) != (to >= 0)) kept.push_back(a + (b - a) * (from / (from - to)));
    }
    return kept;
}
} // namespace

std::vector<Points> clipLine(const Points& line, const DeviceBox& box)
{
    const auto inside = [&](const AcGePoint2d& p) { return isInside(p, box); };
    if (std::all_of(line.begin(), line.end(), inside)) return {line};
    std::vector<Points> parts;
    bool continues = false;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const AcGePoint2d &a = line[i - 1], &b = line[i];
        const Part part = partInside(a, b, box);
        if (!part.isEmpty()) {
            if (!continues || part.from > 0) parts.push_back({a + (b - a) * part.from});
            parts.back().push_back(part.to < 1 ? a + (b - a) * part.to : b);
        }
        continues = !part.isEmpty() && part.to >= 1;
    }
    return parts;
}

Points clipPolygon(const Points& polygon, const DeviceBox& box)
{
    const auto inside = [&](const AcGePoint2d& p) { return isInside(p, box); };
    if (std::all_of(polygon.begin(), polygon.end(), inside)) return polygon;
    Points kept = cutSide(polygon, [&](const AcGePoint2d& p) { return p.x - box.left; });
    kept = cutSide(kept, [&](const AcGePoint2d& p) { return box.right - p.x; });
    kept = cutSide(kept, [&](const AcGePoint2d& p) { return p.y - box.bottom; });
    return cutSide(kept, [&](const AcGePoint2d& p) { return box.top - p.y; });
}
} // namespace plot
