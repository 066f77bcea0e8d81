#include "SpaceIndex.h"

#include "dbblock.h"
#include "dbdict.h"
#include "dbgroup.h"
#include "dblayout.h"
#include "dbsortentstbl.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"
#include "DrawOrder.h"
#include "SpaceOrder.h"
#include "Stub.h"

#include <algorithm>

namespace
{
using Indexes = std::unordered_map<const AcDbDatabase*, std::unique_ptr<ed::SpaceIndex>>;

/// Not destroyed: drawings may go later.
Indexes& indexes()
{
    static auto* const all = new Indexes;
    return *all;
}

const AcDbBlockTableRecord* blockOf(AcDbObjectId id)
{
    return AcDbBlockTableRecord::cast(residentObject(id));
}

/// The entity in a block that a vertex or an attribute is part of, or the entity itself.
const AcDbEntity* wholeOf(const AcDbEntity& entity)
{
    const AcDbEntity* whole = &entity;
    while (const auto* owner = AcDbEntity::cast(residentObject(whole->ownerId())))
        whole = owner;
    return whole;
}

/// What changes no place of any entity.
bool isPlaceless(const AcDbObject& object)
{
    static const AcRxClass* const kinds[] = {AcDbLayerTableRecord::desc(),
                                             AcDbViewportTableRecord::desc(),
                                             AcDbViewTableRecord::desc(),
                                             AcDbUCSTableRecord::desc(),
                                             AcDbRegAppTableRecord::desc(),
                                             AcDbSymbolTable::desc(),
                                             AcDbDictionary::desc(),
                                             AcDbXrecord::desc(),
                                             AcDbLayout::desc(),
                                             AcDbGroup::desc()};
    return std::any_of(std::begin(kinds), std::end(kinds),
                       [&](const AcRxClass* kind) { return object.isKindOf(kind); });
}

kernel::Box2 flat(const ed::PlaneBox& box)
{
    return {box.min.x, box.min.y, box.max.x, box.max.y};
}
} // namespace

namespace ed
{
SpaceIndex* SpaceIndex::of(AcDbDatabase& database, const AcGeMatrix3d& toPlane)
{
    const AcDbBlockTableRecord* space = blockOf(database.currentSpaceId());
    if (!space || space->entityIds().size() < kSmallest) return nullptr;
    std::unique_ptr<SpaceIndex>& index = indexes()[&database];
    if (!index) {
        index = std::make_unique<SpaceIndex>(database);
        database.addReactor(index.get());
    }
    return index->isReady(toPlane) ? index.get() : nullptr;
}

bool SpaceIndex::isReady(const AcGeMatrix3d& toPlane)
{
    const AcGeTol exact = AcGeTol().setEqualVector(0.0).setEqualPoint(0.0);
    if (mSpace != mDatabase.currentSpaceId() || !mToPlane.isEqualTo(toPlane, exact)) drop();
    mSpace = mDatabase.currentSpaceId();
    mToPlane = toPlane;
    if (mTree && isCurrent()) return true;
    const bool isAskedAgain = mWasAsked;
    mWasAsked = true;
    if (isAskedAgain) build();
    return isAskedAgain;
}

/// Whether the tree can still be used; else it is gone.
bool SpaceIndex::isCurrent()
{
    const std::size_t most = 1000 + mIds.size() / 16;
    const AcDbBlockTableRecord& space = *blockOf(mSpace);
    const AcDbSortentsTable* order = drawOrderOf(space);
    // A table that is open for write may change without telling once more.
    const bool isOrdered = order == mOrder && !(order && order->isWriteEnabled());
    if (!isOrdered || space.entityIds().size() < mListed || !placeChanged()) {
        drop();
        return false;
    }
    if (mChanged.size() + newest() <= most) return true;
    drop();
    mWasAsked = true;
    return false;
}

void SpaceIndex::drop()
{
    mTree.reset();
    mIds = {};
    mBoxed = mBeside = {};
    mMarked = {};
    mChanged = mUnplaced = mNewBlocks = {};
    mWasAsked = false;
}

void SpaceIndex::build()
{
    mIds = idsUppermostFirst(mSpace);
    mListed = blockOf(mSpace)->entityIds().size();
    mOrder = drawOrderOf(*blockOf(mSpace));
    mMarked.resize(mIds.size());
    EntityBoxes measure(mToPlane);
    std::vector<kernel::Box2> boxes;
    boxes.reserve(mIds.size());
    mBoxed.reserve(mIds.size());
    for (std::size_t rank = 0; rank < mIds.size(); ++rank) {
        const auto* entity = AcDbEntity::cast(residentObject(mIds[rank]));
        PlaneBox box;
        // One that is open for write may change without telling once more.
        const bool isSettled = entity && !entity->isWriteEnabled();
        const bool isBoxed = isSettled && measure.boxOf(*entity, box) && flat(box).diagonal() < HUGE_VAL;
        (isBoxed ? mBoxed : mBeside).push_back(static_cast<std::uint32_t>(rank));
        if (isBoxed) boxes.push_back(flat(box));
    }
    mTree = std::make_unique<kernel::BoxTree>(boxes);
}

/// How many entities were added since.
std::size_t SpaceIndex::newest() const
{
    return blockOf(mSpace)->entityIds().size() - mListed;
}

const std::vector<const AcDbEntity*>& SpaceIndex::near(const PlaneBox& box)
{
    mNear.clear();
    const std::vector<AcDbObjectId>& listed = blockOf(mSpace)->entityIds();
    for (std::size_t i = listed.size(); i-- > mListed;)
        take(listed[i]);
    for (const std::uint32_t rank : mBeside)
        mMarked.mark(rank);
    mTree->eachIn(flat(box), [&](int i) { mMarked.mark(mBoxed[static_cast<std::size_t>(i)]); });
    mMarked.takeAll([&](std::size_t rank) { take(mIds[rank]); });
    return mNear;
}

void SpaceIndex::take(AcDbObjectId id)
{
    const auto* entity = id.isErased() ? nullptr : AcDbEntity::cast(residentObject(id));
    if (entity) mNear.push_back(entity);
}

void SpaceIndex::objectAppended(const AcDbDatabase*, const AcDbObject* object)
{
    if (mTree && object->isKindOf(AcDbBlockTableRecord::desc())) mNewBlocks.insert(object->objectId());
}

void SpaceIndex::noteChange(const AcDbObject& object)
{
    if (!mTree) {
        if (!object.isKindOf(AcDbEntity::desc()) && !isPlaceless(object)) mWasAsked = false;
    } else if (const auto* entity = AcDbEntity::cast(&object)) {
        noteEntity(*wholeOf(*entity));
    } else if (object.objectId() != mSpace && !mNewBlocks.count(object.objectId()) && !isPlaceless(object)) {
        drop();
    }
}

void SpaceIndex::noteEntity(const AcDbEntity& entity)
{
    if (entity.ownerId() == mSpace) {
        if (mChanged.insert(entity.objectId()).second) mUnplaced.insert(entity.objectId());
    } else if (!mNewBlocks.count(entity.ownerId())) {
        drop();
    }
}

/// Finds the ranks of what has changed. False when something has none: it was not there when the tree was
/// made.
bool SpaceIndex::placeChanged()
{
    const std::vector<AcDbObjectId>& listed = blockOf(mSpace)->entityIds();
    for (std::size_t i = mListed; !mUnplaced.empty() && i < listed.size(); ++i)
        mUnplaced.erase(listed[i]);
    for (std::size_t rank = 0; !mUnplaced.empty() && rank < mIds.size(); ++rank) {
        if (mUnplaced.erase(mIds[rank])) mBeside.push_back(static_cast<std::uint32_t>(rank));
    }
    return mUnplaced.empty();
}

void SpaceIndex::goodbye(const AcDbDatabase* database)
{
    // This deletes the index.
    indexes().erase(database);
}
} // namespace ed
