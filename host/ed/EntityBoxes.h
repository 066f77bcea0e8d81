#pragma once

/// Boxes around entities in the plane of a view, for leaving out quickly what lies elsewhere.

#include "dbextent.h"
#include "dbid.h"
#include "gemat3d.h"
#include "PlaneShapes.h"

#include <unordered_map>

class AcDbBlockReference;
class AcDbEntity;

namespace ed
{
/// Measures each block once. Boxes may be larger than the entity, never smaller.
class EntityBoxes
{
public:
    explicit EntityBoxes(const AcGeMatrix3d& toPlane) : mToPlane(toPlane) {}
    /// False for an entity without extents.
    bool boxOf(const AcDbEntity& entity, PlaneBox& box);

private:
    bool extentsOf(const AcDbEntity& entity, AcDbExtents& extents);
    bool extentsOf(const AcDbBlockReference& reference, AcDbExtents& extents);
    /// Those of a block's contents, in its own coordinates; empty ones while it is being measured.
    const AcDbExtents& extentsOfBlock(AcDbObjectId block);

    AcGeMatrix3d mToPlane;
    std::unordered_map<AcDbObjectId, AcDbExtents> mBlocks;
    int mDepth = 0;
};
} // namespace ed
