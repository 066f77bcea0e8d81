#include "EntityBoxes.h"

#include "db2dpl.h"
#include "dbattrib.h"
#include "dbblkref.h"
#include "dbblock.h"
#include "dbpl.h"
#include "dbvertex.h"
#include "Stub.h"

namespace
{
double widestOf(const AcDbPolyline& polyline)
{
    double widest = 0.0, from = 0.0, to = 0.0;
    for (unsigned i = 0; polyline.hasWidth() && i < polyline.numVerts(); ++i) {
        if (polyline.getWidthsAt(i, from, to) == Acad::eOk) widest = std::max({widest, from, to});
    }
    return widest;
}

double widestOf(const AcDb2dPolyline& polyline)
{
    double widest = std::max(polyline.defaultStartWidth(), polyline.defaultEndWidth());
    for (const AcDbObjectId id : const_cast<AcDb2dPolyline&>(polyline).subentities()->ids) {
        const auto* vertex = AcDb2dVertex::cast(residentObject(id));
        if (vertex) widest = std::max({widest, vertex->startWidth(), vertex->endWidth()});
    }
    return widest;
}

/// Extents are those of the line in the middle.
double widestOf(const AcDbEntity& entity)
{
    if (const auto* polyline = AcDbPolyline::cast(&entity)) return widestOf(*polyline);
    const auto* old = AcDb2dPolyline::cast(&entity);
    return old ? widestOf(*old) : 0.0;
}
} // namespace

namespace ed
{
bool EntityBoxes::boxOf(const AcDbEntity& entity, PlaneBox& box)
{
    AcDbExtents extents;
    if (!extentsOf(entity, extents)) return false;
    const AcGePoint3d low = extents.minPoint(), high = extents.maxPoint();
    box = PlaneBox();
    for (int corner = 0; corner < 8; ++corner) {
        const AcGePoint3d at = mToPlane * AcGePoint3d(corner & 1 ? high.x : low.x, corner & 2 ? high.y : low.y,
                                                      corner & 4 ? high.z : low.z);
        box.add(AcGePoint2d(at.x, at.y));
    }
    return true;
}

bool EntityBoxes::extentsOf(const AcDbEntity& entity, AcDbExtents& extents)
{
    if (entity.isA() == AcDbBlockReference::desc())
        return extentsOf(static_cast<const AcDbBlockReference&>(entity), extents);
    if (entity.getGeomExtents(extents) != Acad::eOk) return false;
    const double half = entity.isKindOf(AcDbCurve::desc()) ? widestOf(entity) / 2.0 : 0.0;
    if (half > 0.0) {
        const AcGeVector3d aside(half, half, half);
        extents.addPoint(extents.minPoint() - aside);
        extents.addPoint(extents.maxPoint() + aside);
    }
    return true;
}

bool EntityBoxes::extentsOf(const AcDbBlockReference& reference, AcDbExtents& extents)
{
    extents = extentsOfBlock(reference.blockTableRecord());
    if (!extents.isEmpty()) extents.transformBy(reference.blockTransform());
    const DbSubentities* attributes = reference.subentities();
    for (const AcDbObjectId id : attributes ? attributes->ids : std::vector<AcDbObjectId>()) {
        const auto* attribute = id.isErased() ? nullptr : AcDbAttribute::cast(residentObject(id));
        AcDbExtents one;
        if (attribute && attribute->getGeomExtents(one) == Acad::eOk) extents.addExt(one);
    }
    return !extents.isEmpty();
}

const AcDbExtents& EntityBoxes::extentsOfBlock(AcDbObjectId id)
{
    constexpr int deepest = 64; // a damaged drawing may nest without an end
    const auto [known, isNew] = mBlocks.try_emplace(id);
    const auto* block = isNew && mDepth < deepest ? AcDbBlockTableRecord::cast(residentObject(id)) : nullptr;
    if (!block) return known->second;
    ++mDepth;
    AcDbExtents all;
    for (const AcDbObjectId entityId : block->entityIds()) {
        const auto* entity = entityId.isErased() ? nullptr : AcDbEntity::cast(residentObject(entityId));
        AcDbExtents one;
        if (entity && extentsOf(*entity, one)) all.addExt(one);
    }
    --mDepth;
    return mBlocks[id] = all;
}
} // namespace ed
