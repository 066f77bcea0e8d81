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

/// Works on a ring of the corners that are not cut off yet, counter-clockwise.
class Clipper
{
public:
    explicit Clipper(const AcGePoint2dArray& polygon)
        : m_polygon(polygon), m_before(count()), m_after(count()), m_isEar(count()), m_left(count())
    {
        const bool isClockwise = areaOf(polygon) < 0.0;
        for (std::size_t i = 0; i < m_left; ++i) {
            const std::size_t before = (i + m_left - 1) % m_left, after = (i + 1) % m_left;
            m_before[i] = isClockwise ? after : before;
            m_after[i] = isClockwise ? before : after;
        }
        lookAtAll();
    }

    std::vector<std::array<int, 3>> run()
    {
        while (m_left > 3)
            if (!clipOne()) return {};
        addTriangle();
        return std::move(m_triangles);
    }

private:
    std::size_t count() const { return static_cast<std::size_t>(m_polygon.length()); }
    const AcGePoint2d& at(std::size_t corner) const { return m_polygon[static_cast<int>(corner)]; }
    double turnAt(std::size_t corner) const
    {
        return turn(at(m_before[corner]), at(corner), at(m_after[corner]));
    }

    /// In line with its neighbours, or with no other corner in the triangle of the three.
    bool isEar(std::size_t corner) const
    {
        const double area = turnAt(corner);
        if (!(area > 0.0)) return area == 0.0;
        const AcGePoint2d &a = at(m_before[corner]), &b = at(corner), &c = at(m_after[corner]);
        for (std::size_t i = m_after[m_after[corner]]; i != m_before[corner]; i = m_after[i]) {
            const AcGePoint2d& p = at(i);
            if (turn(a, b, p) >= 0.0 && turn(b, c, p) >= 0.0 && turn(c, a, p) >= 0.0) return false;
        }
        return true;
    }

    void lookAtAll()
    {
        std::size_t corner = m_next;
        for (std::size_t i = 0; i < m_left; ++i, corner = m_after[corner])
            m_isEar[corner] = isEar(corner);
    }

    /// Goes on from where the last ear was, so that the triangles do not all meet in one corner.
    bool findEar()
    {
        for (std::size_t tried = 0; tried < m_left; ++tried, m_next = m_after[m_next])
            if (m_isEar[m_next]) return true;
        return false;
    }

    bool clipOne()
    {
        if (!findEar()) {
            lookAtAll(); // corners in line that were dropped may have been in the way
            if (!findEar()) return false;
        }
        addTriangle();
        const std::size_t before = m_before[m_next], after = m_after[m_next];
        m_after[before] = after;
        m_before[after] = before;
        --m_left;
        m_isEar[before] = isEar(before);
        m_isEar[after] = isEar(after);
        m_next = m_after[after];
        return true;
    }

    void addTriangle()
    {
        if (turnAt(m_next) > 0.0)
            m_triangles.push_back({static_cast<int>(m_before[m_next]), static_cast<int>(m_next),
                                   static_cast<int>(m_after[m_next])});
    }

    const AcGePoint2dArray& m_polygon;
    std::vector<std::size_t> m_before, m_after;
    std::vector<char> m_isEar;
    std::size_t m_left, m_next = 0;
    std::vector<std::array<int, 3>> m_triangles;
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
