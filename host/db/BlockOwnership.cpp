/// Entities that change from one block to another.

#include "BlockAccess.h"
#include "DbObjectAccess.h"

#include <algorithm>
#include <unordered_set>

namespace
{
/// Blocks open for write, those of them closed at the end that were not open before.
class OpenBlocks
{
public:
    OpenBlocks() = default;
    OpenBlocks(const OpenBlocks&) = delete;
    OpenBlocks& operator=(const OpenBlocks&) = delete;
    ~OpenBlocks()
    {
        for (AcDbBlockTableRecord* block : mOpened) block->close();
    }

    Acad::ErrorStatus add(AcDbObjectId id)
    {
        auto* block = AcDbBlockTableRecord::cast(residentObject(id));
        if (!block) return Acad::eIllegalReplacement;
        if (std::find(mBlocks.begin(), mBlocks.end(), block) != mBlocks.end()) return Acad::eOk;
        if (!block->isWriteEnabled()) {
            const Acad::ErrorStatus status = acdbOpenObject(block, id, AcDb::kForWrite);
            if (status != Acad::eOk) return status;
            mOpened.push_back(block);
        }
        mBlocks.push_back(block);
        return Acad::eOk;
    }

    const std::vector<AcDbBlockTableRecord*>& all() const { return mBlocks; }

private:
    std::vector<AcDbBlockTableRecord*> mBlocks, mOpened;
};

Acad::ErrorStatus checkMoved(AcDbObjectId id, const AcDbDatabase* database)
{
    if (id.isNull()) return Acad::eNullObjectId;
    if (id.database() != database) return Acad::eWrongDatabase;
    if (id.isErased()) return Acad::eWasErased;
    const auto* entity = AcDbEntity::cast(residentObject(id));
    if (!entity) return Acad::eNotAnEntity;
    const bool isInUse = DbObjectAccess::isOpen(*entity) && !entity->isWriteEnabled();
    return isInUse ? Acad::eWasOpenForRead : Acad::eOk;
}
} // namespace

Acad::ErrorStatus AcDbBlockTableRecord::assumeOwnershipOf(const AcDbObjectIdArray& entitiesToMove)
{
    if (!database()) return Acad::eNotInDatabase;
    OpenBlocks owners;
    std::unordered_set<AcDbObjectId> moved;
    std::vector<AcDbObjectId> inOrder;
    for (const AcDbObjectId& id : entitiesToMove) {
        Acad::ErrorStatus status = checkMoved(id, database());
        if (status == Acad::eOk) status = owners.add(residentObject(id)->ownerId());
        if (status != Acad::eOk) return status;
        if (residentObject(id)->ownerId() != objectId() && moved.insert(id).second) inOrder.push_back(id);
    }
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    for (AcDbBlockTableRecord* owner : owners.all()) {
        owner->assertWriteEnabled();
        auto& ids = BlockAccess::entities(*owner);
        ids.erase(std::remove_if(ids.begin(), ids.end(), [&](AcDbObjectId id) { return moved.count(id) != 0; }),
                  ids.end());
    }
    for (const AcDbObjectId id : inOrder) {
        DbObjectAccess::setOwner(*residentObject(id), objectId());
        mEntities.push_back(id);
    }
    return status;
}
