/// Hatches and their outlines.

#include "CMakeEnt.h"

#include "dbcurve.h"
#include "dbhatch.h"
#include "dbobjptr.h"
#include "EndChains.h"
#include "HatchOutlines.h"
#include "NewEntity.h"

#include <cmath>

namespace
{
/// Entities that bound a hatch.
struct Boundary {
    std::vector<AcDbObjectIdArray> loops;
    std::vector<AcDbExtents> boxes;
    AcGePlane plane;
};

/// The upper of the two sides of a plane.
AcGeVector3d upright(const AcGeVector3d& normal)
{
    return normal.z < -AcGeContext::gTol.equalVector() ? -normal : normal;
}

/// The plane that the entities span together.
class SpannedPlane
{
public:
    void add(const AcDbEntity& entity)
    {
        AcGePlane plane;
        AcDb::Planarity planarity = AcDb::kNonPlanar;
        if (m_isKnown || entity.getPlane(plane, planarity) != Acad::eOk) return;
        if (planarity == AcDb::kPlanar) setNormal(plane.pointOnPlane(), plane.normal());
        const AcDbCurve* const curve = AcDbCurve::cast(&entity);
        AcGePoint3d start, end;
        if (planarity != AcDb::kLinear || !curve || curve->getStartPoint(start) != Acad::eOk ||
            curve->getEndPoint(end) != Acad::eOk)
            return;
        const AcGeVector3d direction = end - start;
        if (!m_direction.isZeroLength() && !m_direction.isParallelTo(direction))
            setNormal(start, m_direction.crossProduct(direction));
        if (m_direction.isZeroLength()) m_direction = direction;
    }
    bool get(AcGePlane& plane) const
    {
        if (m_isKnown) plane = m_plane;
        return m_isKnown;
    }

private:
    void setNormal(const AcGePoint3d& point, const AcGeVector3d& normal)
    {
        m_plane.set(point, upright(normal));
        m_isKnown = true;
    }

    AcGeVector3d m_direction; ///< of the first line
    AcGePlane m_plane;
    bool m_isKnown = false;
};

AcDbExtents boxOf(const AcDbObjectIdArray& ids)
{
    AcDbExtents box, part;
    for (const AcDbObjectId& id : ids) {
        const AcDbEntityPointer entity(id, AcDb::kForRead);
        if (entity.openStatus() == Acad::eOk && entity->getGeomExtents(part) == Acad::eOk) box.addExt(part);
    }
    return box;
}

bool boundaryOf(const AcDbObjectIdArray& ids, Boundary& boundary)
{
    entity::EndChains chains;
    SpannedPlane plane;
    for (const AcDbObjectId& id : ids) {
        const AcDbEntityPointer entity(id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk) return false;
        plane.add(*entity.object());
        const AcDbCurve* const curve = AcDbCurve::cast(entity.object());
        AcGePoint3d start, end;
        const bool isOpen = curve && !curve->isClosed() && curve->getStartPoint(start) == Acad::eOk &&
                            curve->getEndPoint(end) == Acad::eOk && !start.isEqualTo(end);
        if (isOpen) {
            chains.add(id, start, end);
        } else {
            boundary.loops.emplace_back().append(id);
        }
    }
    if (!plane.get(boundary.plane) || !chains.take(boundary.loops)) return false;
    for (const AcDbObjectIdArray& loop : boundary.loops)
        boundary.boxes.push_back(boxOf(loop));
    return true;
}

/// Loops whose boxes lie in another's are inner ones.
Adesk::Int32 loopType(const Boundary& boundary, std::size_t index)
{
    const AcDbExtents& box = boundary.boxes[index];
    const auto holds = [&](const AcDbExtents& other) {
        return other.minPoint().x < box.minPoint().x && other.minPoint().y < box.minPoint().y &&
               other.maxPoint().x > box.maxPoint().x && other.maxPoint().y > box.maxPoint().y;
    };
    const bool isInner = std::any_of(boundary.boxes.begin(), boundary.boxes.end(), holds);
    return isInner ? AcDbHatch::kDefault : AcDbHatch::kExternal;
}

bool setPlane(AcDbHatch& hatch, const AcGePlane& plane)
{
    return hatch.setNormal(plane.normal()) == Acad::eOk &&
           hatch.setElevation(plane.normal().dotProduct(plane.pointOnPlane().asVector())) == Acad::eOk;
}

bool setPattern(AcDbHatch& hatch, const CString& pattern, double scale, double angle)
{
    return hatch.setPatternScale(scale) == Acad::eOk && hatch.setPatternAngle(angle) == Acad::eOk &&
           hatch.setPattern(AcDbHatch::kPreDefined, pattern) == Acad::eOk;
}

/// The angle of the X axis of the user coordinate system in the plane of the hatch; 0 when it stands upright on it.
double turnOfUcs(const AcDbHatch& hatch)
{
    AcGeMatrix3d ecs;
    hatch.getEcs(ecs);
    const AcGeVector3d axis = ecs.inverse() * (entity::ucsToWorld() * AcGeVector3d::kXAxis);
    return std::atan2(axis.y, axis.x);
}

bool appendLoops(AcDbHatch& hatch, const Boundary& boundary)
{
    for (std::size_t i = 0; i < boundary.loops.size(); ++i)
        if (hatch.appendLoop(loopType(boundary, i), boundary.loops[i]) != Acad::eOk) return false;
    return true;
}

std::unique_ptr<AcDbHatch> hatchOver(const AcDbObjectIdArray& ids, const CString& pattern, double scale,
                                     double angle)
{
    Boundary boundary;
    auto hatch = entity::begin<AcDbHatch>();
    if (ids.isEmpty() || !boundaryOf(ids, boundary) || !setPlane(*hatch, boundary.plane)) return nullptr;
    if (hatch->setHatchStyle(AcDbHatch::kNormal) != Acad::eOk || hatch->setAssociative(true) != Acad::eOk)
        return nullptr;
    if (!setPattern(*hatch, pattern, scale, angle + turnOfUcs(*hatch)) || !appendLoops(*hatch, boundary)) return nullptr;
    return hatch->evaluateHatch() == Acad::eOk ? std::move(hatch) : nullptr;
}
} // namespace

int CArxEntity::CMakeEnt::MakeHatch(const AcDbObjectIdArray& ids, AcDbObjectId& id, CGTStringW pattern,
                                    double scale, double angle)
{
    return entity::addInWorld(hatchOver(ids, pattern, scale, angle), id);
}

int CArxEntity::CMakeEnt::MakeHatch(AcDbObjectId boundary, CGTStringW pattern, double scale, double angle,
                                    const AcCmColor& color, AcDbObjectId& id)
{
    AcDbObjectIdArray ids;
    ids.append(boundary);
    auto hatch = hatchOver(ids, pattern, scale, angle);
    if (!hatch || hatch->setColor(color) != Acad::eOk) return 0;
    return entity::addInWorld(std::move(hatch), id);
}

int CArxEntity::CMakeEnt::MakeHatchBoundary(AcDbObjectId hatchId, AcDbObjectIdArray& ids, int asRegions)
{
    const AcDbObjectPointer<AcDbHatch> hatch(hatchId, AcDb::kForRead);
    if (hatch.openStatus() != Acad::eOk) return 0;
    std::vector<std::unique_ptr<AcDbEntity>> outlines;
    for (int i = 0; i < hatch->numLoops(); ++i)
        if (!entity::appendOutlines(*hatch.object(), i, asRegions != 0, outlines)) return 0;
    entity::Batch batch;
    for (auto& outline : outlines) {
        outline->setDatabaseDefaults();
        if (!batch.addInWorld(std::move(outline))) return 0;
    }
    return outlines.empty() ? 0 : batch.keep(ids);
}
