#include "CFamStuEnt.h"

#include "dbattdef.h"
#include "dbattrib.h"
#include "dbblkref.h"
#include "dbmain.h"
#include "dbobjiter.h"
#include "dbobjptr.h"
#include "dbsymtb.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <map>
#include <memory>
#include <vector>

namespace
{
bool isFinite(const AcDbExtents& extents)
{
    const AcGePoint3d low = extents.minPoint(), high = extents.maxPoint();
    const auto isRange = [](double least, double most) {
        return std::isfinite(least) && std::isfinite(most) && least <= most;
    };
    return isRange(low.x, high.x) && isRange(low.y, high.y) && isRange(low.z, high.z);
}

/// The box of an entity that is mapped: exact where it can be mapped as such, else that around its mapped
/// box.
Acad::ErrorStatus measure(const AcDbEntity& entity, const AcGeMatrix3d& toWorld, AcDbExtents& extents)
{
    AcDbEntity* copy = nullptr;
    if (entity.getTransformedCopy(toWorld, copy) == Acad::eOk) {
        return std::unique_ptr<AcDbEntity>(copy)->getGeomExtents(extents);
    }
    const Acad::ErrorStatus status = entity.getGeomExtents(extents);
    if (status == Acad::eOk) extents.transformBy(toWorld);
    return status;
}

/// Widens the box of one copy of a block to that of all rows and columns.
void addRowsAndColumns(const AcDbMInsertBlock& reference, const AcGeMatrix3d& toWorld, AcDbExtents& extents)
{
    const AcGeVector3d along =
        toWorld * AcGeMatrix3d::planeToWorld(reference.normal()) * AcGeVector3d::kXAxis;
    const AcGeVector3d across =
        toWorld * AcGeMatrix3d::planeToWorld(reference.normal()) * AcGeVector3d::kYAxis;
    const double cosine = std::cos(reference.rotation()), sine = std::sin(reference.rotation());
    const AcGeVector3d x = along * cosine + across * sine, y = across * cosine - along * sine;
    extents.expandBy(x * (reference.columnSpacing() * (reference.columns() - 1)));
    extents.expandBy(y * (reference.rowSpacing() * (reference.rows() - 1)));
}

/// Measures blocks within blocks. A block that holds itself, as damaged drawings have it, ends there; one
/// that is met again, turned and scaled alike, is measured once: blocks that hold each other twice would take
/// for ever otherwise.
class BlockContents
{
public:
    Acad::ErrorStatus measureReference(const AcDbBlockReference& reference, const AcGeMatrix3d& toWorld,
                                       AcDbExtents& extents)
    {
        const AcDbObjectId id = reference.blockTableRecord();
        if (std::find(m_path.begin(), m_path.end(), id) != m_path.end()) return Acad::eSelfReference;
        const AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForRead);
        if (block.openStatus() != Acad::eOk) return block.openStatus();
        AcDbExtents all;
        const Acad::ErrorStatus status =
            measureBlock(*block.object(), toWorld * reference.blockTransform(), all);
        if (status != Acad::eOk) return status;
        const auto* const grid = AcDbMInsertBlock::cast(&reference);
        if (grid && isFinite(all)) addRowsAndColumns(*grid, toWorld, all);
        addAttributes(reference, toWorld, all);
        if (!isFinite(all)) return Acad::eInvalidExtents;
        extents = all;
        return Acad::eOk;
    }

private:
    /// A block, and the bits of what a map does besides moving.
    using Key = std::pair<AcDbObjectId, std::array<std::uint64_t, 9>>;

    static Key keyOf(AcDbObjectId block, const AcGeMatrix3d& map)
    {
        Key key{block, {}};
        for (std::size_t i = 0; i < key.second.size(); ++i)
            std::memcpy(&key.second[i], &map.entry[i / 3][i % 3], sizeof(double));
        return key;
    }

    Acad::ErrorStatus measureBlock(const AcDbBlockTableRecord& block, const AcGeMatrix3d& toWorld,
                                   AcDbExtents& extents)
    {
        AcGeMatrix3d turned = toWorld;
        turned.setTranslation(AcGeVector3d::kIdentity);
        const auto [known, isNew] = m_known.try_emplace(keyOf(block.objectId(), toWorld));
        if (isNew) {
            m_path.push_back(block.objectId());
            const Acad::ErrorStatus status = addMembers(block, turned, known->second);
            m_path.pop_back();
            if (status != Acad::eOk) return status;
        }
        extents = known->second;
        if (isFinite(extents)) extents.transformBy(AcGeMatrix3d::translation(toWorld.translation()));
        return Acad::eOk;
    }

    Acad::ErrorStatus addMembers(const AcDbBlockTableRecord& block, const AcGeMatrix3d& toWorld,
                                 AcDbExtents& extents)
    {
        AcDbBlockTableRecordIterator* opened = nullptr;
        if (const Acad::ErrorStatus status = block.newIterator(opened); status != Acad::eOk) return status;
        const std::unique_ptr<AcDbBlockTableRecordIterator> members(opened);
        for (; !members->done(); members->step()) {
            AcDbObjectId id;
            if (members->getEntityId(id) == Acad::eOk) addMember(id, toWorld, extents);
        }
        return Acad::eOk;
    }

    void addMember(AcDbObjectId id, const AcGeMatrix3d& toWorld, AcDbExtents& extents)
    {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk) return;
        // A definition is a pattern: the attributes of the reference are seen in its place.
        const auto* const definition = AcDbAttributeDefinition::cast(entity.object());
        if (definition && !definition->isConstant()) return;
        AcDbExtents own;
        const auto* const nested = AcDbBlockReference::cast(entity.object());
        const Acad::ErrorStatus status =
            nested ? measureReference(*nested, toWorld, own) : measure(*entity.object(), toWorld, own);
        if (status == Acad::eOk && isFinite(own)) extents.addExt(own);
    }

    static void addAttributes(const AcDbBlockReference& reference, const AcGeMatrix3d& toWorld,
                              AcDbExtents& extents)
    {
        const std::unique_ptr<AcDbObjectIterator> attributes(reference.attributeIterator());
        for (; attributes && !attributes->done(); attributes->step()) {
            const AcDbObjectPointer<AcDbAttribute> attribute(attributes->objectId(), AcDb::kForRead);
            AcDbExtents own;
            if (attribute.openStatus() != Acad::eOk || attribute->isInvisible()) continue;
            if (measure(*attribute.object(), toWorld, own) == Acad::eOk && isFinite(own)) extents.addExt(own);
        }
    }

    std::vector<AcDbObjectId> m_path; ///< the blocks that are being measured, from the outermost
    std::map<Key, AcDbExtents> m_known; ///< without their places
};
} // namespace

Acad::ErrorStatus CFamStuEnt::GetEntExtents(AcDbExtents& extents, AcDbObjectIdArray ids)
{
    if (ids.isEmpty()) return Acad::eNullObjectId;
    extents = AcDbExtents();
    Acad::ErrorStatus last = Acad::eOk;
    for (const AcDbObjectId& id : ids) {
        AcDbExtents own;
        last = GetEntExtents(own, id);
        if (last == Acad::eOk) extents.addExt(own);
    }
    return last;
}

Acad::ErrorStatus CFamStuEnt::GetEntExtents(AcDbExtents& extents, AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return entity.openStatus();
    AcDbExtents own;
    Acad::ErrorStatus status = entity->getGeomExtents(own);
    if (status != Acad::eOk && getBlkRefExtByFilerError(entity.object(), own) == Acad::eOk) status = Acad::eOk;
    if (status == Acad::eOk && !isFinite(own)) status = Acad::eInvalidExtents;
    if (status == Acad::eOk) extents = own;
    return status;
}

int CFamStuEnt::GetEntExtents(AcDbExtents& extents, AcGePoint3dArray points)
{
    for (const AcGePoint3d& point : points) {
        if (std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z))
            extents.addPoint(point);
    }
    return 1;
}

Acad::ErrorStatus CFamStuEnt::getBlkRefExtByFilerError(AcDbEntity* reference, AcDbExtents& extents)
{
    if (!reference) return Acad::eNullObjectPointer;
    const auto* const insert = AcDbBlockReference::cast(reference);
    if (!insert) return Acad::eNotThatKindOfClass;
    return BlockContents().measureReference(*insert, AcGeMatrix3d::kIdentity, extents);
}
