#include "LoopNesting.h"

#include "CurveSamples.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "dbtext.h"
#include "gept2dar.h"
#include "OpenReport.h"

#include <algorithm>

namespace entity
{
namespace
{
/// A loop as chords of the plane, in no order.
class Chords
{
public:
    Chords(const AcDbObjectIdArray& ids, const AcGeMatrix3d& worldToPlane) : m_worldToPlane(worldToPlane)
    {
        for (const AcDbObjectId& id : ids) {
            const AcDbEntityPointer entity(id, AcDb::kForRead);
            if (isOpen(entity, L"MakeHatch")) add(*entity.object());
        }
    }

    bool holds(const Chords& other) const
    {
        if (other.m_starts.isEmpty() || !m_box.contains(other.m_box)) return false;
        const AcGePoint2d& point = other.m_starts.first();
        bool isInside = false;
        for (int i = 0; i < m_starts.length(); ++i)
            if (crosses(point, m_starts[i], m_ends[i])) isInside = !isInside;
        return isInside;
    }

private:
    struct Box {
        AcGePoint2d low{1e300, 1e300}, high{-1e300, -1e300};

        void add(const AcGePoint2d& p)
        {
            low = {std::min(low.x, p.x), std::min(low.y, p.y)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y)};
        }
        bool contains(const Box& other) const
        {
            return low.x <= other.low.x && low.y <= other.low.y && high.x >= other.high.x &&
                   high.y >= other.high.y;
        }
    };

    /// A ray from a point to the right meets a chord.
    static bool crosses(const AcGePoint2d& p, const AcGePoint2d& a, const AcGePoint2d& b)
    {
        return (a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x);
    }

    /// What is no curve itself is exploded into curves (a region of several faces into regions first), or
    /// counts as the point where it lies.
    void add(const AcDbEntity& entity)
    {
        AcGePoint3dArray points;
        const AcDbCurve* const curve = AcDbCurve::cast(&entity);
        if (curve && sampleCurve(*curve, points)) return addChords(points);
        AcDbVoidPtrArray parts;
        if (!curve) entity.explode(parts);
        for (void* const part : parts) {
            const std::unique_ptr<AcDbEntity> owned(static_cast<AcDbEntity*>(part));
            add(*owned);
        }
        AcGePoint3d place;
        if (m_starts.isEmpty() && placeOf(entity, place)) {
            points.append(place);
            points.append(place);
            addChords(points);
        }
    }

    static bool placeOf(const AcDbEntity& entity, AcGePoint3d& place)
    {
        const AcDbText* const text = AcDbText::cast(&entity);
        const AcDbMText* const paragraph = AcDbMText::cast(&entity);
        if (text) place = text->position();
        if (paragraph) place = paragraph->location();
        return text || paragraph;
    }

    void addChords(const AcGePoint3dArray& points)
    {
        for (int i = 0; i < points.length(); ++i) {
            const AcGePoint3d flat = m_worldToPlane * points[i];
            const AcGePoint2d point(flat.x, flat.y);
            if (i > 0) m_ends.append(point);
            if (i + 1 < points.length()) m_starts.append(point);
            m_box.add(point);
        }
    }

    AcGeMatrix3d m_worldToPlane;
    AcGePoint2dArray m_starts, m_ends;
    Box m_box;
};
} // namespace

std::vector<int> nestingDepths(const std::vector<AcDbObjectIdArray>& loops, const AcGePlane& plane)
{
    if (loops.size() < 2) return std::vector<int>(loops.size(), 0);
    AcGeMatrix3d worldToPlane;
    worldToPlane.setToWorldToPlane(plane);
    std::vector<Chords> shapes;
    for (const AcDbObjectIdArray& ids : loops)
        shapes.emplace_back(ids, worldToPlane);
    std::vector<int> depths;
    for (const Chords& inner : shapes) {
        const auto around = std::count_if(shapes.begin(), shapes.end(), [&](const Chords& outer) {
            return &outer != &inner && outer.holds(inner);
        });
        depths.push_back(static_cast<int>(around));
    }
    return depths;
}
} // namespace entity
