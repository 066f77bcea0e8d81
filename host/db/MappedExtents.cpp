#include "MappedExtents.h"

#include "BulgePath.h"
#include "db2dpl.h"
#include "dbblkref.h"
#include "dbcircular.h"
#include "dbdimension.h"
#include "dbmline.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "dbpoint.h"
#include "dbsolid.h"
#include "dbtext.h"
#include "gecurv3d.h"
#include "PlanarCoords.h"

#include <cmath>

namespace
{
/// Boxes stay tight when each axis goes into an axis.
bool keepsBoxes(const AcGeMatrix3d& map)
{
    for (int column = 0; column < 3; ++column) {
        int used = 0;
        for (int row = 0; row < 3; ++row)
            used += std::fabs(map.entry[row][column]) > 1e-12 ? 1 : 0;
        if (used > 1) return false;
    }
    return true;
}

/// Adds the other side of what is extruded along the normal.
void addThickness(double thickness, const AcGeVector3d& normal, const AcGeMatrix3d& map, AcDbExtents& extents)
{
    if (thickness != 0.0) extents.expandBy(map * (thickness * normal));
}

bool addPath(const DbPathCurve& curve, double thickness, const AcGeMatrix3d& map, AcDbExtents& extents)
{
    const BulgePath path = curve.path();
    path.addExtents(extents, map * path.toWorld());
    addThickness(thickness, path.normal, map, extents);
    return true;
}

bool addCircular(const DbCircularCurve& curve, const AcGeMatrix3d& map, AcDbExtents& extents)
{
    AcDbEntity* mapped = nullptr;
    if (curve.getTransformedCopy(map, mapped) != Acad::eOk) return false;
    const std::unique_ptr<AcDbEntity> owned(mapped);
    if (auto* const still = dynamic_cast<DbCircularCurve*>(mapped)) still->setThickness(0.0);
    if (mapped->getGeomExtents(extents) != Acad::eOk) return false;
    addThickness(curve.thickness(), curve.normal(), map, extents);
    return true;
}

template <std::size_t Count>
bool addPoints(const AcGePoint3d (&points)[Count], const AcGeMatrix3d& map, AcDbExtents& extents)
{
    for (const AcGePoint3d& point : points)
        extents.addPoint(map * point);
    return true;
}

bool addPoint(const AcDbPoint& point, const AcGeMatrix3d& map, AcDbExtents& extents)
{
    extents.addPoint(map * point.position());
    addThickness(point.thickness(), point.normal(), map, extents);
    return true;
}

bool addQuad(const AcDbFilledQuad& quad, const AcGeMatrix3d& map, AcDbExtents& extents)
{
    AcGePoint3d corners[4];
    for (std::uint16_t i = 0; i < 4; ++i)
        quad.getPointAt(i, corners[i]);
    addPoints(corners, map, extents);
    addThickness(quad.thickness(), quad.normal(), map, extents);
    return true;
}

bool addText(const AcDbText& text, const AcGeMatrix3d& map, AcDbExtents& extents)
{
    AcGePoint3d corners[4];
    if (!text.boundingPoints(corners)) return false;
    addPoints(corners, map, extents);
    addThickness(text.thickness(), text.normal(), map, extents);
    return true;
}

bool addLines(const AcDbMText& text, const AcGeMatrix3d& map, AcDbExtents& extents)
{
    AcGePoint3dArray corners;
    text.getBoundingPoints(corners);
    for (const AcGePoint3d& corner : corners)
        extents.addPoint(map * corner);
    return true;
}

/// Takes an entity as the sum of what it explodes into.
bool addParts(const AcDbEntity& entity, const AcGeMatrix3d& map, AcDbExtents& extents)
{
    AcDbVoidPtrArray parts;
    entity.explode(parts);
    AcDbExtents one;
    for (int i = 0; i < parts.length(); ++i) {
        const std::unique_ptr<AcDbEntity> part(static_cast<AcDbEntity*>(parts[i]));
        if (mappedExtents(*part, map, one)) extents.addExt(one);
    }
    return !extents.isEmpty();
}

/// Adds what no copy can stand for: shapes that a sheared map takes out of their class, and the thickness of
/// others.
bool addInPlace(const AcDbEntity& entity, const AcGeMatrix3d& map, AcDbExtents& extents)
{
    if (const auto* reference = AcDbBlockReference::cast(&entity))
        return reference->geomExtentsBestFit(extents, map) == Acad::eOk;
    if (const auto* point = AcDbPoint::cast(&entity)) return addPoint(*point, map, extents);
    if (const auto* path = AcDbPolyline::cast(&entity))
        return addPath(*path, path->thickness(), map, extents);
    if (const auto* path = AcDb2dPolyline::cast(&entity))
        return addPath(*path, path->thickness(), map, extents);
    if (const auto* arc = dynamic_cast<const DbCircularCurve*>(&entity))
        return addCircular(*arc, map, extents);
    if (const auto* quad = dynamic_cast<const AcDbFilledQuad*>(&entity)) return addQuad(*quad, map, extents);
    if (const auto* text = AcDbText::cast(&entity)) return addText(*text, map, extents);
    if (const auto* lines = AcDbMText::cast(&entity)) return addLines(*lines, map, extents);
    const bool hasParts = entity.isKindOf(AcDbMline::desc()) || entity.isKindOf(AcDbDimension::desc());
    return hasParts && addParts(entity, map, extents);
}

bool addCopy(const AcDbEntity& entity, const AcGeMatrix3d& map, AcDbExtents& extents)
{
    AcDbEntity* mapped = nullptr;
    if (entity.getTransformedCopy(map, mapped) != Acad::eOk) return false;
    return std::unique_ptr<AcDbEntity>(mapped)->getGeomExtents(extents) == Acad::eOk;
}

bool addBox(const AcDbEntity& entity, const AcGeMatrix3d& map, AcDbExtents& extents)
{
    if (entity.getGeomExtents(extents) != Acad::eOk) return false;
    extents.transformBy(map);
    return true;
}
} // namespace

bool isBox(const AcDbExtents& extents)
{
    const AcGePoint3d low = extents.minPoint(), high = extents.maxPoint();
    return isFinite(low) && isFinite(high) && low.x <= high.x && low.y <= high.y && low.z <= high.z;
}

bool mappedExtents(const AcDbEntity& entity, const AcGeMatrix3d& map, AcDbExtents& extents)
{
    AcDbExtents found;
    const bool isFound = keepsBoxes(map) ? addBox(entity, map, found)
                                         : addInPlace(entity, map, found) || addCopy(entity, map, found) ||
                                               addBox(entity, map, found);
    if (!isFound || !isBox(found)) return false;
    extents = found;
    return true;
}
