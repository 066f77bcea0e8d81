/// What is copied: an object with what it owns, and what it cannot be without.

#include "BlockAccess.h"
#include "CloneFilers.h"
#include "CopySession.h"
#include "dbblkref.h"
#include "dblayout.h"
#include "DbObjectAccess.h"
#include "DictionaryAccess.h"
#include "DxfKept.h"
#include "ObjectFiling.h"
#include "SymbolTableAccess.h"

namespace
{
bool isLiving(AcDbObjectId id) { return id.isValid() && !id.isErased(); }

bool isSpaceName(const CString& name)
{
    return name.CompareNoCase(ACDB_MODEL_SPACE) == 0 || name.Left(12).CompareNoCase(ACDB_PAPER_SPACE) == 0;
}

/// Whether a block shows another one, itself or by way of blocks in it.
bool shows(AcDbObjectId id, const std::unordered_set<AcDbObjectId>& others, std::unordered_set<AcDbObjectId>& seen)
{
    std::vector<AcDbObjectId> blocks(1, id);
    while (!blocks.empty()) {
        const AcDbObjectId at = blocks.back();
        blocks.pop_back();
        if (others.count(at)) return true;
        const auto* block = AcDbBlockTableRecord::cast(residentObject(at));
        if (!block || !seen.insert(at).second) continue;
        for (const AcDbObjectId entity : block->entityIds()) {
            const auto* reference = isLiving(entity) ? AcDbBlockReference::cast(residentObject(entity)) : nullptr;
            if (reference) blocks.push_back(reference->blockTableRecord());
        }
    }
    return false;
}
} // namespace

CopySession::CopySession(AcDbDatabase& from, AcDbDatabase& to, AcDbIdMapping& map,
                         AcDb::DuplicateRecordCloning duplicates)
    : mFrom(from), mTo(to), mMap(map), mFirstPair(map.mPairs.size()), mDuplicates(duplicates)
{
    map.mOrigin = &from;
    map.mDestination = &to;
    map.mDuplicates = duplicates;
}

AcDbObjectId CopySession::copyOf(AcDbObjectId original) const
{
    const auto at = mMap.mPlaces.find(original);
    return at != mMap.mPlaces.end() && at->second >= mFirstPair ? mMap.mPairs[at->second].value() : AcDbObjectId();
}

AcDbObjectId CopySession::newId(const AcDbObject&) { return DatabaseAccess::of(mTo).stubs.add(); }

void CopySession::note(AcDbObjectId original, AcDbObjectId copy, bool isCloned, bool isPrimary)
{
    mMap.del(original); // of an earlier copy
    mMap.assign(AcDbIdPair(original, copy, isCloned, isPrimary));
    const auto* block = isCloned ? nullptr : AcDbBlockTableRecord::cast(residentObject(copy));
    if (block && !block->isLayout()) mShown.insert(copy);
}

AcDbObjectId CopySession::add(AcDbObject& original, AcDbObjectId owner, Place place, bool isPrimary,
                              const CString& name)
{
    const AcDbObjectId id = newId(original);
    mPlanned.push_back({&original, id, owner, name, {}, place});
    if (!name.IsEmpty()) mNames[id] = name;
    note(original.objectId(), id, true, isPrimary);
    return id;
}

void CopySession::giveUp()
{
    for (std::size_t i = mFirstPair; i < mMap.mPairs.size(); ++i) {
        const AcDbObjectId key = mMap.mPairs[i].key();
        if (!key.isNull()) mMap.del(key);
    }
    mPlanned.clear();
}

void CopySession::fail(Acad::ErrorStatus status)
{
    if (mStatus == Acad::eOk) mStatus = status;
}

/// Opens an object of the destination that will be changed, until the end.
bool CopySession::open(AcDbObjectId id)
{
    if (mOpened.count(id) || mLent.count(id)) return true;
    AcDbObject* object = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObject(object, id, AcDb::kForWrite);
    if (status == Acad::eOk) {
        mOpened.emplace(id, object);
    } else {
        fail(status);
    }
    return status == Acad::eOk;
}

void CopySession::openContents(const AcDbBlockTableRecord& block)
{
    for (const AcDbObjectId id : block.entityIds()) {
        if (!isLiving(id)) continue;
        if (!open(id)) return;
        mReplacedContents.push_back(id);
    }
}

void CopySession::addEntity(AcDbObjectId entity, AcDbObjectId block)
{
    if (!isNoted(entity) && open(block)) add(*residentObject(entity), block, Place::entity, true);
}

void CopySession::suspend()
{
    for (const auto& [id, object] : mOpened)
        mSuspended.push_back(id);
    close();
}

Acad::ErrorStatus CopySession::plan()
{
    for (const AcDbObjectId id : mSuspended)
        open(id);
    for (; mStatus == Acad::eOk && mExpanded < mPlanned.size(); ++mExpanded)
        expand(mExpanded);
    if (mStatus == Acad::eOk && showsItself()) mStatus = Acad::eSelfReference;
    return mStatus;
}

std::vector<CopyReference> CopySession::writeOriginal(Planned& one)
{
    ReferenceSink sink(*one.original, mFrom);
    if (filing::isOfModule(*one.original)) {
        NotingFiler filer(mFrom, mTo);
        dxfWriteAttached(*one.original, sink);
        one.original->dwgOutFields(&filer);
        if (filer.filerStatus() != Acad::eOk) fail(filer.filerStatus());
        one.filed = filer.take();
        sink.references.insert(sink.references.end(), filer.references.begin(), filer.references.end());
    } else {
        dxfWriteRecord(*one.original, sink);
    }
    one.groups = std::move(sink.groups);
    return std::move(sink.references);
}

void CopySession::expand(std::size_t index)
{
    AcDbObject& original = *mPlanned[index].original;
    const std::vector<CopyReference> references = writeOriginal(mPlanned[index]);
    addParts(original, mPlanned[index].copy);
    for (const CopyReference& reference : references)
        follow(reference, index);
    const auto* layout = AcDbLayout::cast(&original);
    auto* space = layout ? AcDbBlockTableRecord::cast(residentObject(layout->getBlockTableRecordId())) : nullptr;
    if (space && !isNoted(space->objectId())) reachRecord(*space);
}

void CopySession::addPart(AcDbObjectId part, AcDbObjectId owner, Place place)
{
    if (isLiving(part)) add(*residentObject(part), owner, place);
}

/// What belongs to an object without being named in its groups.
void CopySession::addParts(AcDbObject& original, AcDbObjectId copy)
{
    if (auto* block = AcDbBlockTableRecord::cast(&original)) {
        const bool keepsMarks = residentObject(copy) != nullptr; // a block with new contents
        if (!keepsMarks) addPart(BlockAccess::begin(*block), copy);
        for (const AcDbObjectId id : block->entityIds())
            addPart(id, copy, Place::entity);
        if (!keepsMarks) addPart(BlockAccess::end(*block), copy);
    }
    auto* entity = AcDbEntity::cast(&original);
    const DbSubentities* list = entity ? entity->subentities() : nullptr;
    if (!list) return;
    for (const AcDbObjectId id : list->ids)
        addPart(id, copy);
    addPart(list->sequenceEnd, copy);
}

void CopySession::follow(const CopyReference& reference, std::size_t from)
{
    AcDbObject* to = residentObject(reference.to);
    if (!to || to->isErased() || isNoted(reference.to)) return;
    AcDbObject& original = *mPlanned[from].original;
    const bool owns = references::isHardOwner(reference.code) ||
                      (followsSoftOwners() && references::isSoftOwner(reference.code));
    if (owns && to->ownerId() == original.objectId()) {
        if (!mPlanned[from].isEmptied) add(*to, mPlanned[from].copy, Place::owned);
        return;
    }
    auto* record = AcDbSymbolTableRecord::cast(to);
    if (&mFrom == &mTo) {
        if (record && reference.to != original.ownerId()) mShown.insert(reference.to);
        return;
    }
    if (!references::isHardPointer(reference.code)) return;
    // A space that becomes a block leaves its layout behind.
    const bool isLeft = AcDbLayout::cast(to) && AcDbBlockTableRecord::cast(&original) &&
                        (mPlanned[from].place == Place::replaced || !isSpaceName(mPlanned[from].name));
    if (record) {
        reachRecord(*record);
    } else if (!isLeft && !AcDbEntity::cast(to)) {
        reachEntry(*to);
    }
}

/// Whether a block that gets new contents would be part of them.
bool CopySession::showsItself() const
{
    std::unordered_set<AcDbObjectId> changed, seen;
    for (const auto* objects : {&mOpened, &mLent}) {
        for (const auto& [id, object] : *objects) {
            const auto* block = AcDbBlockTableRecord::cast(object);
            if (block && !block->isLayout()) changed.insert(id);
        }
    }
    if (changed.empty()) return false;
    for (const AcDbObjectId id : mShown) {
        if (shows(id, changed, seen)) return true;
    }
    return false;
}
