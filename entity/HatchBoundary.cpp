#include "HatchBoundary.h"

#include "CurveSamples.h"
#include "dbapserv.h"
#include "dbcurve.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "dbtext.h"
#include "EndChains.h"
#include "LoopNesting.h"
#include "OpenReport.h"

#include <algorithm>
#include <set>

namespace entity
{
namespace
{
/// The upper of the two sides of a plane.
AcGeVector3d upright(const AcGeVector3d& normal)
{
    return normal.z < -AcGeContext::gTol.equalVector() ? -normal : normal;
}

/// The plane that entities span together: that of the first planar one, or else that of lines.
class SpannedPlane
{
public:
    void add(const AcDbEntity& entity)
    {
        AcGePlane plane;
        AcDb::Planarity planarity = AcDb::kNonPlanar;
        if (m_isKnown || entity.getPlane(plane, planarity) != Acad::eOk) return;
        if (planarity == AcDb::kPlanar) setPlane(plane.pointOnPlane(), plane.normal());
        AcGePoint3d start, end;
        const AcDbCurve* const curve = AcDbCurve::cast(&entity);
        if (planarity != AcDb::kLinear || !curve || curve->getStartPoint(start) != Acad::eOk ||
            curve->getEndPoint(end) != Acad::eOk)
            return;
        m_ends.append(start);
        m_ends.append(end);
    }

    bool get(AcGePlane& plane)
    {
        if (!m_isKnown) spanByEnds();
        if (m_isKnown) plane = m_plane;
        return m_isKnown;
    }

private:
    void setPlane(const AcGePoint3d& point, const AcGeVector3d& normal)
    {
        m_plane.set(point, upright(normal));
        m_isKnown = true;
    }

    /// By the longest line and the end furthest from it: short or nearly parallel ones say little.
    void spanByEnds()
    {
        AcGePoint3d origin;
        AcGeVector3d along, across;
        for (int i = 0; i + 1 < m_ends.length(); i += 2) {
            const AcGeVector3d line = m_ends[i + 1] - m_ends[i];
            if (line.length() <= along.length()) continue;
            along = line;
            origin = m_ends[i];
        }
        for (const AcGePoint3d& end : m_ends) {
            const AcGeVector3d normal = along.crossProduct(end - origin);
            if (normal.length() > across.length()) across = normal;
        }
        const double least = AcGeContext::gTol.equalPoint() * along.length();
        if (across.length() > least) setPlane(origin, across.normal());
    }

    AcGePoint3dArray m_ends; ///< of lines, two by two
    AcGePlane m_plane;
    bool m_isKnown = false;
};

/// Whether a curve of a length runs there and back on one line. Bends that its chords pass over make it longer.
bool isStraight(const AcDbCurve& curve, double length)
{
    AcGePoint3dArray points;
    if (!sampleCurve(curve, points) || points.isEmpty()) return false;
    AcGeVector3d along;
    double ofChords = 0.0;
    for (int i = 1; i < points.length(); ++i) {
        ofChords += points[i].distanceTo(points[i - 1]);
        if ((points[i] - points[0]).length() > along.length()) along = points[i] - points[0];
    }
    if (length > (1.0 + 1e-9) * ofChords) return false;
    const double least = EndChains::reach * along.length();
    return std::all_of(points.begin(), points.end(), [&](const AcGePoint3d& point) {
        return along.crossProduct(point - points[0]).length() <= least;
    });
}

enum class Ends { none, meet, apart, tooNear };

/// What the ends of an entity do: those of curves that are as good as points or lines are too near to bound
/// anything.
Ends endsOf(const AcDbEntity& entity, AcGePoint3d& start, AcGePoint3d& end)
{
    const AcDbCurve* const curve = AcDbCurve::cast(&entity);
    if (!curve) return Ends::none;
    if (!curve->isClosed()) {
        if (curve->getStartPoint(start) != Acad::eOk || curve->getEndPoint(end) != Acad::eOk) return Ends::none;
        if (start.distanceTo(end) > EndChains::reach) return Ends::apart;
    }
    double param = 0.0, length = 0.0;
    const bool isMeasured =
        curve->getEndParam(param) == Acad::eOk && curve->getDistAtParam(param, length) == Acad::eOk;
    return isMeasured && length > 2.0 * EndChains::reach && !isStraight(*curve, length) ? Ends::meet : Ends::tooNear;
}

bool isText(AcDbObjectId id)
{
    const AcRxClass* const kind = id.objectClass();
    return kind->isDerivedFrom(AcDbText::desc()) || kind->isDerivedFrom(AcDbMText::desc());
}

class Sorter
{
public:
    explicit Sorter(AcDbObjectId space) : m_space(space) {}

    bool add(AcDbObjectId id)
    {
        if (!m_seen.insert(id).second) return true;
        const AcDbEntityPointer entity(id, AcDb::kForRead);
        if (!isOpen(entity, L"MakeHatch") || entity->blockId() != m_space) return false;
        if (!isText(id)) m_plane.add(*entity.object());
        AcGePoint3d start, end;
        const Ends ends = endsOf(*entity.object(), start, end);
        if (ends == Ends::apart) m_chains.add(id, start, end);
        if (ends == Ends::none || ends == Ends::meet) m_loops.emplace_back().append(id);
        return true;
    }

    bool take(HatchBoundary& boundary)
    {
        if (!m_plane.get(boundary.plane) || !m_chains.take(m_loops)) return false;
        const std::vector<int> depths = nestingDepths(m_loops, boundary.plane);
        for (std::size_t i = 0; i < m_loops.size(); ++i) {
            const bool isFrame = isText(m_loops[i][0]), isInArea = depths[i] % 2 == 1;
            if (isFrame && !isInArea) continue;
            const int place = depths[i] == 0 ? AcDbHatch::kExternal : AcDbHatch::kDefault;
            const int kind = isFrame ? AcDbHatch::kTextbox : AcDbHatch::kDefault;
            boundary.loops.push_back({m_loops[i], place | kind});
        }
        return !boundary.loops.empty();
    }

private:
    AcDbObjectId m_space;
    std::set<AcDbObjectId> m_seen;
    std::vector<AcDbObjectIdArray> m_loops;
    EndChains m_chains;
    SpannedPlane m_plane;
};
} // namespace

bool boundaryOf(const AcDbObjectIdArray& ids, HatchBoundary& boundary)
{
    const AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database) return false;
    Sorter sorter(database->currentSpaceId());
    for (const AcDbObjectId& id : ids)
        if (!sorter.add(id)) return false;
    return sorter.take(boundary);
}
} // namespace entity
