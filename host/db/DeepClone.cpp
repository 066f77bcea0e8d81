#include "BlockCopy.h"
#include "dbdatabase.h"
#include "dbidmap.h"
#include "Stub.h"

#include <algorithm>

namespace
{
/// The entities to copy, each once: nulls and erased ones are passed over.
Acad::ErrorStatus collect(const AcDbDatabase& database, const AcDbObjectIdArray& ids,
                          std::vector<AcDbObjectId>& entities)
{
    for (int i = 0; i < ids.length(); ++i) {
        const AcDbObjectId id = ids[i];
        if (!id.isValid() || id.isErased()) continue;
        if (id.database() != &database) return Acad::eWrongDatabase;
        if (!AcDbEntity::cast(residentObject(id))) return Acad::eNotAnEntity;
        if (std::find(entities.begin(), entities.end(), id) == entities.end()) entities.push_back(id);
    }
    return Acad::eOk;
}

Acad::ErrorStatus openOwner(AcDbBlockTableRecord*& block, const AcDbDatabase& database, AcDbObjectId owner)
{
    if (owner.isValid() && owner.database() != &database) return Acad::eWrongDatabase;
    const Acad::ErrorStatus status = acdbOpenObject(block, owner, AcDb::kForWrite);
    return status == Acad::eNotThatKindOfClass ? Acad::eInvalidOwnerObject : status;
}
} // namespace

Acad::ErrorStatus AcDbDatabase::deepCloneObjects(const AcDbObjectIdArray& ids, AcDbObjectId& owner,
                                                 AcDbIdMapping& map, bool deferXlation)
{
    if (deferXlation) return Acad::eNotImplementedYet;
    std::vector<AcDbObjectId> entities;
    const Acad::ErrorStatus collected = collect(*this, ids, entities);
    if (collected != Acad::eOk) return collected;
    AcDbBlockTableRecord* block = nullptr;
    const Acad::ErrorStatus opened = openOwner(block, *this, owner);
    if (opened != Acad::eOk) return opened;
    block->assertWriteEnabled();
    CopiedIds copies = copyEntities(entities, *block);
    block->close();

    map.mOrigin = map.mDestination = this;
    map.mContext = AcDb::kDcCopy;
    for (const AcDbObjectId id : entities) {
        map.assign(AcDbIdPair(id, copies[id], true, true));
        copies.erase(id);
    }
    for (const auto& [original, copy] : copies)
        map.assign(AcDbIdPair(original, copy, true));
    return Acad::eOk;
}
