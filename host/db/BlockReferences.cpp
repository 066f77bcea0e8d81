/// Who refers to a block.

#include "Stub.h"
#include "dbblkref.h"
#include "dbblock.h"
#include "dbdatabase.h"

#include <unordered_set>

namespace
{
using Ids = std::unordered_set<AcDbObjectId>;

/// Calls `visit(id, reference, block that holds it)` for every living reference of a drawing.
template <class Visit>
void forEachReference(const AcDbDatabase& database, Visit visit)
{
    const auto* blocks = AcDbBlockTable::cast(residentObject(database.blockTableId()));
    for (const AcDbObjectId blockId : blocks->recordIds()) {
        if (blockId.isErased()) continue;
        for (const AcDbObjectId id : static_cast<AcDbBlockTableRecord*>(residentObject(blockId))->entityIds()) {
            const auto* reference = id.isErased() ? nullptr : AcDbBlockReference::cast(residentObject(id));
            if (reference) visit(id, *reference, blockId);
        }
    }
}
} // namespace

Acad::ErrorStatus AcDbBlockTableRecord::getBlockReferenceIds(AcDbObjectIdArray& ids, bool directOnly, bool) const
{
    if (!database()) return Acad::eNotInDatabase;
    Ids wanted{objectId()};
    Ids found;
    // Blocks that hold a reference count as the block itself, until no more are found.
    for (std::size_t before = 0; before != wanted.size();) {
        before = wanted.size();
        forEachReference(*database(), [&](AcDbObjectId id, const AcDbBlockReference& reference, AcDbObjectId holder) {
            if (!wanted.count(reference.blockTableRecord())) return;
            if (found.insert(id).second) ids.append(id);
            if (!directOnly) wanted.insert(holder);
        });
    }
    return Acad::eOk;
}
