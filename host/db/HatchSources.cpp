#include "HatchSources.h"

#include "BulgePath.h"
#include "CurveMeasure.h"
#include "dbhatch.h"
#include "dbobjptr.h"
#include "dbpl.h"
#include "PlaneFrame.h"
#include "RegionAccess.h"

#include <cmath>

namespace hatch
{
namespace
{
using Points = std::vector<AcGePoint3d>;

/// How far curves may leave a plane: what rounding makes of coordinates of a size.
double slackAt(const Points& points)
{
    double size = 1.0;
    for (const AcGePoint3d& p : points)
        size = std::max(size, p.asVector().length());
    return 1e-6 + 1e-12 * size;
}

/// Points whose plane is that of the curve.
void addPoints(const AcGeCurve3d& curve, Points& points)
{
    for (const AcGePoint3d& p : gecore::shapePoints(curve.form()))
        points.push_back(p);
}

bool areLevel(const Points& points, const AcGeMatrix3d& worldToPlane)
{
    const double slack = slackAt(points);
    for (const AcGePoint3d& p : points)
        if (!(std::fabs((worldToPlane * p).z) <= slack)) return false;
    return true;
}

bool isLevel(const AcGeCurve3d& curve, const AcGeMatrix3d& worldToPlane)
{
    Points points;
    addPoints(curve, points);
    return areLevel(points, worldToPlane);
}

/// Parts without length add nothing. False for a curve that leaves the plane.
bool addFlat(const AcGeCurve3d& curve, const AcGeMatrix3d& worldToPlane, Curves& curves)
{
    if (!isLevel(curve, worldToPlane)) return false;
    if (auto flat = kernel::toPlane(curve, worldToPlane)) curves.push_back(std::move(flat));
    return true;
}

bool addCurves(const AcDbEntity& entity, const AcGeMatrix3d& worldToPlane, Curves& curves)
{
    AcDbEntity::Curves parts;
    entity.intersectionCurves(parts, false);
    for (const auto& part : parts)
        if (!addFlat(*part, worldToPlane, curves)) return false;
    return !parts.empty();
}

/// A closed polyline in the plane keeps its vertices.
bool takeVertices(const AcDbEntity& entity, const Plane& plane, Loop& loop)
{
    const AcDbPolyline* polyline = AcDbPolyline::cast(&entity);
    if (!polyline || !polyline->isClosed() || !polyline->normal().isEqualTo(plane.normal)) return false;
    if (std::fabs(polyline->elevation() - plane.elevation) > 1e-6 + 1e-12 * std::fabs(plane.elevation))
        return false;
    const BulgePath path = polyline->path();
    loop.points.assign(path.points, path.points + path.count);
    if (path.hasArcs()) loop.bulges.assign(path.bulges, path.bulges + path.count);
    dropRepeatedEnd(loop);
    loop.type |= AcDbHatch::kPolyline;
    return loop.points.size() > 1;
}

bool addLoops(const kernel::FaceCurves& face, const AcGeMatrix3d& worldToPlane, std::int32_t type,
              std::vector<Loop>& loops)
{
    for (std::size_t i = 0; i < face.size(); ++i) {
        Curves curves;
        for (const auto& curve : face[i])
            if (!addFlat(*curve, worldToPlane, curves)) return false;
        const std::int32_t own = i == 0 ? type : type & ~AcDbHatch::kExternal;
        if (!loopOfCurves(std::move(curves), own, loops.emplace_back())) return false;
    }
    return true;
}

bool takeRegion(const AcDbRegion& region, const AcGeMatrix3d& worldToPlane, std::int32_t type,
                std::vector<Loop>& loops)
{
    kernel::Region shape;
    if (RegionAccess::shape(region, shape) != Acad::eOk) return false;
    for (const kernel::FaceCurves& face : shape.faces())
        if (!addLoops(face, worldToPlane, type, loops)) return false;
    return !loops.empty();
}

/// One entity that makes loops of its own.
bool takeWhole(const AcDbEntity& entity, const Plane& plane, std::int32_t type, std::vector<Loop>& loops)
{
    if (const auto* region = AcDbRegion::cast(&entity))
        return takeRegion(*region, plane.toWorld().inverse(), type, loops);
    Loop loop;
    loop.type = type;
    if (!takeVertices(entity, plane, loop)) return false;
    loops.push_back(std::move(loop));
    return true;
}

/// Shows entities to a visitor until it gives false, which is eInvalidInput.
template <class Visit>
Acad::ErrorStatus visit(const std::vector<AcDbObjectId>& ids, const AcDbEntity* open, Visit visitor)
{
    for (const AcDbObjectId& id : ids) {
        const bool isOpen = open && open->objectId() == id;
        const AcDbObjectPointer<AcDbEntity> entity(isOpen ? AcDbObjectId() : id, AcDb::kForRead);
        if (!isOpen && entity.openStatus() != Acad::eOk)
            return entity.openStatus() == Acad::eNotThatKindOfClass ? Acad::eInvalidInput
                                                                    : entity.openStatus();
        if (!visitor(isOpen ? *open : *entity.object())) return Acad::eInvalidInput;
    }
    return Acad::eOk;
}
} // namespace

bool loopOfCurves(Curves curves, std::int32_t type, Loop& loop)
{
    loop.type = type & ~AcDbHatch::kPolyline;
    if (!chain(curves)) return false;
    for (const auto& curve : curves) {
        Edge edge;
        if (!edgeOf(*curve, edge)) return false;
        loop.edges.push_back(std::move(edge));
    }
    return true;
}

void dropRepeatedEnd(Loop& loop)
{
    if (loop.points.size() < 2 || !loop.points.back().isEqualTo(loop.points.front())) return;
    loop.points.pop_back();
    if (!loop.bulges.empty()) loop.bulges.pop_back();
}

Acad::ErrorStatus loopsOf(const std::vector<AcDbObjectId>& ids, const AcDbEntity* open, const Plane& plane,
                          std::int32_t type, std::vector<Loop>& loops)
{
    type &= ~AcDbHatch::kPolyline;
    const AcGeMatrix3d worldToPlane = plane.toWorld().inverse();
    std::vector<Loop> whole;
    Curves curves;
    const Acad::ErrorStatus status = visit(ids, open, [&](const AcDbEntity& entity) {
        return (ids.size() == 1 && takeWhole(entity, plane, type, whole)) ||
               addCurves(entity, worldToPlane, curves);
    });
    if (status != Acad::eOk) return status;
    if (whole.empty() && !loopOfCurves(std::move(curves), type, whole.emplace_back()))
        return Acad::eInvalidInput;
    loops = std::move(whole);
    return Acad::eOk;
}

bool isIn(const AcDbEntity& entity, const Plane& plane)
{
    AcDbEntity::Curves parts;
    entity.intersectionCurves(parts, false);
    Points points;
    for (const auto& part : parts)
        addPoints(*part, points);
    return areLevel(points, plane.toWorld().inverse());
}

bool commonPlane(const std::vector<AcDbObjectId>& ids, const AcDbEntity* open, Plane& plane)
{
    Points points;
    AcDbEntity::Curves parts;
    const Acad::ErrorStatus status = visit(ids, open, [&](const AcDbEntity& entity) {
        entity.intersectionCurves(parts, false);
        return true;
    });
    for (const auto& part : parts)
        addPoints(*part, points);
    if (status != Acad::eOk || points.empty()) return false;
    const gecore::FlatFit fit = gecore::fitFlat(points, slackAt(points));
    if (fit.kind != gecore::Flatness::kPlanar) return false;
    // A plane that is only moved keeps its normal to the last digit, and a turned one its upper side.
    if (!fit.normal.isParallelTo(plane.normal))
        plane.normal = fit.normal.dotProduct(plane.normal) < 0.0 ? -fit.normal : fit.normal;
    plane.elevation = plane.normal.dotProduct(fit.point.asVector());
    return true;
}
} // namespace hatch
