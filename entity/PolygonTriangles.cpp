#include "PolygonTriangles.h"

#include <algorithm>
#include <cmath>

namespace entity
{
namespace
{
/// Twice the signed area of a triangle.
double turn(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

double areaOf(const AcGePoint2dArray& polygon)
{
    double twice = 0.0;
    for (int i = 0, last = polygon.length() - 1; i < polygon.length(); last = i++)
        twice += turn(polygon[0], polygon[last], polygon[i]);
    return twice / 2.0;
}

class Clipper
{
public:
    explicit Clipper(const AcGePoint2dArray& polygon) : m_polygon(polygon)
    {
        for (int i = 0; i < polygon.length(); ++i)
            m_left.push_back(i);
        if (areaOf(polygon) < 0.0) std::reverse(m_left.begin(), m_left.end());
    }

    std::vector<std::array<int, 3>> run()
    {
        while (m_left.size() > 3)
            if (!clipOne()) return {};
        if (m_left.size() == 3 && turnAt(1) > 0.0) m_triangles.push_back({m_left[0], m_left[1], m_left[2]});
        return std::move(m_triangles);
    }

private:
    const AcGePoint2d& at(std::size_t i) const { return m_polygon[m_left[i % m_left.size()]]; }
    std::size_t before(std::size_t i) const { return (i + m_left.size() - 1) % m_left.size(); }
    double turnAt(std::size_t i) const { return turn(at(before(i)), at(i), at(i + 1)); }

    /// No other corner lies in the triangle at a corner.
    bool isEar(std::size_t i) const
    {
        const AcGePoint2d &a = at(before(i)), &b = at(i), &c = at(i + 1);
        for (std::size_t k = 2; k + 1 < m_left.size(); ++k) {
            const AcGePoint2d& p = at(i + k);
            if (turn(a, b, p) >= 0.0 && turn(b, c, p) >= 0.0 && turn(c, a, p) >= 0.0) return false;
        }
        return true;
    }

    /// Goes on from where the last ear was, so that the triangles do not all meet in one corner.
    bool clipOne()
    {
        for (std::size_t tried = 0; tried < m_left.size(); ++tried, ++m_next) {
            m_next %= m_left.size();
            const double area = turnAt(m_next);
            if (area < 0.0 || (area > 0.0 && !isEar(m_next))) continue;
            if (area > 0.0)
                m_triangles.push_back(
                    {m_left[before(m_next)], m_left[m_next], m_left[(m_next + 1) % m_left.size()]});
            m_left.erase(m_left.begin() + static_cast<std::ptrdiff_t>(m_next));
            return true;
        }
        return false;
    }

    const AcGePoint2dArray& m_polygon;
    std::vector<int> m_left; ///< the corners that are not cut off yet, counter-clockwise
    std::vector<std::array<int, 3>> m_triangles;
    std::size_t m_next = 0;
};
} // namespace

std::vector<std::array<int, 3>> trianglesOf(const AcGePoint2dArray& polygon)
{
    const double area = areaOf(polygon);
    if (polygon.length() < 3 || !(std::fabs(area) > 0.0) || !std::isfinite(area)) return {};
    auto triangles = Clipper(polygon).run();
    // Triangles that cover more than the polygon has are those of one that crosses itself.
    double covered = 0.0;
    for (const auto& [a, b, c] : triangles)
        covered += turn(polygon[a], polygon[b], polygon[c]) / 2.0;
    if (std::fabs(covered - std::fabs(area)) > 1e-9 * std::fabs(area)) triangles.clear();
    return triangles;
}
} // namespace entity
