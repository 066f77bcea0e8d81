#include "EntityBoxes.h"

#include "dbattrib.h"
#include "dbblkref.h"
#include "dbblock.h"
#include "Stub.h"

namespace
{
/// The range that one row of a matrix makes of a box.
void mappedRange(const double (&row)[4], const AcGePoint3d& low, const AcGePoint3d& high, double& least, double& most)
{
    least = most = row[3];
    for (unsigned axis = 0; axis < 3; ++axis) {
        const double one = row[axis] * low[axis], other = row[axis] * high[axis];
        least += std::min(one, other);
        most += std::max(one, other);
    }
}
} // namespace

namespace ed
{
bool EntityBoxes::boxOf(const AcDbEntity& entity, PlaneBox& box)
{
    AcDbExtents extents;
    if (!extentsOf(entity, extents)) return false;
    const AcGePoint3d low = extents.minPoint(), high = extents.maxPoint();
    mappedRange(mToPlane.entry[0], low, high, box.min.x, box.max.x);
    mappedRange(mToPlane.entry[1], low, high, box.min.y, box.max.y);
    return true;
}

bool EntityBoxes::extentsOf(const AcDbEntity& entity, AcDbExtents& extents)
{
    if (entity.isA() == AcDbBlockReference::desc())
        return extentsOf(static_cast<const AcDbBlockReference&>(entity), extents);
    return entity.getGeomExtents(extents) == Acad::eOk;
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
