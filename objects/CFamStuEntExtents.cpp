#include "CFamStuEnt.h"

#include "dbblkref.h"
#include "dbmain.h"
#include "dbobjptr.h"
#include "dbsymtb.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace
{
/// Gathers the extents of blocks within blocks. A block that holds itself, as damaged drawings have it, ends there.
class BlockContents
{
public:
    Acad::ErrorStatus add(const AcDbBlockReference& reference, const AcGeMatrix3d& toWorld)
    {
        const AcDbObjectId id = reference.blockTableRecord();
        if (std::find(m_path.begin(), m_path.end(), id) != m_path.end()) return Acad::eSelfReference;
        const AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForRead);
        if (block.openStatus() != Acad::eOk) return block.openStatus();
        AcDbBlockTableRecordIterator* opened = nullptr;
        if (const Acad::ErrorStatus status = block->newIterator(opened); status != Acad::eOk) return status;
        const std::unique_ptr<AcDbBlockTableRecordIterator> entities(opened);
        m_path.push_back(id);
        for (; !entities->done(); entities->step()) addMember(*entities, toWorld * reference.blockTransform());
        m_path.pop_back();
        return Acad::eOk;
    }

    const AcDbExtents& extents() const { return m_extents; }
    bool isEmpty() const { return m_isEmpty; }

private:
    void addMember(const AcDbBlockTableRecordIterator& entities, const AcGeMatrix3d& toWorld)
    {
        AcDbObjectId id;
        if (entities.getEntityId(id) != Acad::eOk) return;
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk) return;
        AcDbExtents own;
        if (measure(*entity.object(), toWorld, own) == Acad::eOk) {
            m_extents.addExt(own);
            m_isEmpty = false;
        }
        else if (const auto* const nested = AcDbBlockReference::cast(entity.object())) {
            add(*nested, toWorld);
        }
    }

    /// Exact where the entity can be turned; else the box around its turned box.
    static Acad::ErrorStatus measure(const AcDbEntity& entity, const AcGeMatrix3d& toWorld, AcDbExtents& extents)
    {
        AcDbEntity* copy = nullptr;
        if (entity.getTransformedCopy(toWorld, copy) == Acad::eOk) {
            return std::unique_ptr<AcDbEntity>(copy)->getGeomExtents(extents);
        }
        const Acad::ErrorStatus status = entity.getGeomExtents(extents);
        if (status == Acad::eOk) extents.transformBy(toWorld);
        return status;
    }

    AcDbExtents m_extents;
    bool m_isEmpty = true;
    std::vector<AcDbObjectId> m_path; ///< the blocks that are being measured, from the outermost
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
    if (status == Acad::eOk) extents = own;
    return status;
}

int CFamStuEnt::GetEntExtents(AcDbExtents& extents, AcGePoint3dArray points)
{
    for (const AcGePoint3d& point : points) extents.addPoint(point);
    return 1;
}

Acad::ErrorStatus CFamStuEnt::getBlkRefExtByFilerError(AcDbEntity* reference, AcDbExtents& extents)
{
    if (!reference) return Acad::eNullObjectPointer;
    const auto* const insert = AcDbBlockReference::cast(reference);
    if (!insert) return Acad::eNotThatKindOfClass;
    BlockContents contents;
    if (const Acad::ErrorStatus status = contents.add(*insert, AcGeMatrix3d::kIdentity); status != Acad::eOk) return status;
    if (contents.isEmpty()) return Acad::eInvalidExtents;
    extents = contents.extents();
    return Acad::eOk;
}
