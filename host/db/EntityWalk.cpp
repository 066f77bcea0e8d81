/// Walking the entities of a space by name.

#include "EntityLists.h"
#include "Stub.h"
#include "acdbads.h"
#include "dbblock.h"
#include "dbdatabase.h"

#include <algorithm>

namespace
{
using Ids = std::vector<AcDbObjectId>;

/// The place of an entity among its block's: the place behind the last one asked for is tried first, so that a walk is
/// linear.
std::size_t placeOf(const Ids& ids, AcDbObjectId id)
{
    static std::size_t expected = 0;
    if (expected >= ids.size() || ids[expected] != id)
        expected = static_cast<std::size_t>(std::find(ids.begin(), ids.end(), id) - ids.begin());
    return expected++;
}

AcDbObjectId firstLivingFrom(const Ids& ids, std::size_t at)
{
    const auto from = ids.begin() + static_cast<std::ptrdiff_t>(std::min(at, ids.size()));
    const auto found = std::find_if(from, ids.end(), [](AcDbObjectId id) { return id.isValid() && !id.isErased(); });
    return found == ids.end() ? AcDbObjectId() : *found;
}

const AcDbBlockTableRecord* blockOf(AcDbObjectId id) { return AcDbBlockTableRecord::cast(residentObject(id)); }

/// The next of a list of vertices or attributes, its end mark behind the last one; null when `id` is the end mark.
AcDbObjectId nextOf(const DbSubentities& list, AcDbObjectId id)
{
    if (id == list.sequenceEnd) return AcDbObjectId();
    const AcDbObjectId next = firstLivingFrom(list.ids, placeOf(list.ids, id) + 1);
    return next.isNull() ? list.sequenceEnd : next;
}

AcDbObjectId entityAfter(AcDbObjectId id)
{
    auto* entity = AcDbEntity::cast(residentObject(id));
    if (!entity) return AcDbObjectId();
    const DbSubentities* own = entity->subentities();
    if (own && !firstLivingFrom(own->ids, 0).isNull()) return firstLivingFrom(own->ids, 0);
    auto* owner = AcDbEntity::cast(residentObject(entity->ownerId()));
    if (owner && owner->subentities()) {
        const AcDbObjectId next = nextOf(*owner->subentities(), id);
        if (!next.isNull()) return next;
        id = owner->objectId();
        entity = owner;
    }
    const AcDbBlockTableRecord* block = blockOf(entity->ownerId());
    return block ? firstLivingFrom(block->entityIds(), placeOf(block->entityIds(), id) + 1) : AcDbObjectId();
}
} // namespace

int acdbEntNext(const ads_name name, ads_name result)
{
    if (name && !ads_name_nil(name)) return giveName(entityAfter(idOf(name)), result);
    const AcDbDatabase* database = workingDatabase();
    const AcDbBlockTableRecord* space = database ? blockOf(database->currentSpaceId()) : nullptr;
    return space ? giveName(firstLivingFrom(space->entityIds(), 0), result) : RTERROR;
}

int acdbEntLast(ads_name result)
{
    const AcDbDatabase* database = workingDatabase();
    const AcDbBlockTableRecord* space = database ? blockOf(database->currentSpaceId()) : nullptr;
    if (!space) return RTERROR;
    const Ids& ids = space->entityIds();
    const auto found = std::find_if(ids.rbegin(), ids.rend(),
                                    [](AcDbObjectId id) { return id.isValid() && !id.isErased(); });
    return found == ids.rend() ? RTERROR : giveName(*found, result);
}
