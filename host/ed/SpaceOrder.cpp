#include "SpaceOrder.h"

#include "dbblock.h"
#include "dbdatabase.h"
#include "dbsortentstbl.h"
#include "DrawOrder.h"
#include "Stub.h"

#include <algorithm>
#include <memory>

namespace
{
using Entities = std::vector<const AcDbEntity*>;

const AcDbEntity* livingEntity(AcDbObjectId id)
{
    return id.isErased() ? nullptr : AcDbEntity::cast(residentObject(id));
}

Entities reversed(const std::vector<AcDbObjectId>& ids)
{
    Entities entities;
    entities.reserve(ids.size());
    for (auto id = ids.rbegin(); id != ids.rend(); ++id) {
        if (const AcDbEntity* entity = livingEntity(*id)) entities.push_back(entity);
    }
    return entities;
}

std::vector<const AcDbBlockTableRecord*> spacesOf(const AcDbDatabase& database)
{
    std::vector<const AcDbBlockTableRecord*> spaces;
    const auto* table = AcDbBlockTable::cast(residentObject(database.blockTableId()));
    AcDbSymbolTableIterator* made = nullptr;
    if (!table || table->newIterator(made) != Acad::eOk) return spaces;
    for (const std::unique_ptr<AcDbSymbolTableIterator> at(made); !at->done(); at->step()) {
        AcDbObjectId id;
        at->getRecordId(id);
        const auto* block = AcDbBlockTableRecord::cast(residentObject(id));
        if (block && block->isLayout()) spaces.push_back(block);
    }
    return spaces;
}

/// Takes from both lists in turn what has the higher handle.
Entities merged(const Entities& one, const Entities& other)
{
    Entities all;
    all.reserve(one.size() + other.size());
    std::merge(one.begin(), one.end(), other.begin(), other.end(), std::back_inserter(all),
               [](const AcDbEntity* a, const AcDbEntity* b) { return a->handle() > b->handle(); });
    return all;
}
} // namespace

std::vector<const AcDbEntity*> ed::uppermostFirst(AcDbObjectId blockId)
{
    const auto* block = AcDbBlockTableRecord::cast(residentObject(blockId));
    if (!block) return {};
    AcDbObjectIdArray order;
    const AcDbSortentsTable* table = drawOrderOf(*block);
    if (!table || table->getFullDrawOrder(order) != Acad::eOk) return reversed(block->entityIds());
    return reversed({order.begin(), order.end()});
}

std::vector<const AcDbEntity*> ed::newestFirst(const AcDbDatabase& database)
{
    Entities all;
    for (const AcDbBlockTableRecord* space : spacesOf(database)) {
        Entities ofSpace = reversed(space->entityIds());
        all = all.empty() ? std::move(ofSpace) : merged(all, ofSpace);
    }
    return all;
}
