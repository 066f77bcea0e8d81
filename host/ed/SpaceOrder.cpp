#include "SpaceOrder.h"

#include "dbblock.h"
#include "dbdatabase.h"
#include "dbsortentstbl.h"
#include "DrawOrder.h"
#include "Stub.h"

#include <algorithm>
#include <iterator>
#include <memory>

namespace
{
using Entities = std::vector<const AcDbEntity*>;

const AcDbEntity* livingEntity(AcDbObjectId id)
{
    return id.isErased() ? nullptr : AcDbEntity::cast(residentObject(id));
}

Entities living(const std::vector<AcDbObjectId>& ids)
{
    Entities entities;
    entities.reserve(ids.size());
    for (const AcDbObjectId id : ids) {
        if (const AcDbEntity* entity = livingEntity(id)) entities.push_back(entity);
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

std::vector<AcDbObjectId> ed::idsUppermostFirst(AcDbObjectId blockId)
{
    const auto* block = AcDbBlockTableRecord::cast(residentObject(blockId));
    if (!block) return {};
    AcDbObjectIdArray order;
    const AcDbSortentsTable* table = drawOrderOf(*block);
    if (table && table->getFullDrawOrder(order) == Acad::eOk)
        return {std::make_reverse_iterator(order.end()), std::make_reverse_iterator(order.begin())};
    return {block->entityIds().rbegin(), block->entityIds().rend()};
}

std::vector<const AcDbEntity*> ed::uppermostFirst(AcDbObjectId block) { return living(idsUppermostFirst(block)); }

std::vector<const AcDbEntity*> ed::newestFirst(const AcDbDatabase& database)
{
    Entities all;
    for (const AcDbBlockTableRecord* space : spacesOf(database)) {
        Entities ofSpace = living({space->entityIds().rbegin(), space->entityIds().rend()});
        all = all.empty() ? std::move(ofSpace) : merged(all, ofSpace);
    }
    return all;
}
