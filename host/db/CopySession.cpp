#include "CopySession.h"

#include "BlockAccess.h"
#include "CloneFilers.h"
#include "dbdatabase.h"
#include "dblayout.h"
#include "dbproxy.h"
#include "DbObjectAccess.h"
#include "dbsortentstbl.h"
#include "DictionaryAccess.h"
#include "LayoutAccess.h"
#include "ObjectFiling.h"
#include "ObjectNotices.h"
#include "SymbolTableAccess.h"
#include "UndoRecording.h"

#include <algorithm>
#include <set>
#include <utility>

namespace
{
std::unique_ptr<AcDbObject> makeLike(const AcDbObject& original)
{
    if (AcDbProxyEntity::cast(&original)) return std::make_unique<AcDbProxyEntity>(original.dxfRecordName());
    if (AcDbProxyObject::cast(&original)) return std::make_unique<AcDbProxyObject>(original.dxfRecordName());
    return std::unique_ptr<AcDbObject>(static_cast<AcDbObject*>(original.isA()->create()));
}

void eraseStub(AcDbObjectId id)
{
    AcDbStub* stub = id;
    if (!stub || stub->erased) return;
    undo::willErase(id);
    stub->erased = true;
}

/// What is left of a dictionary or extension dictionary whose place another one takes.
void eraseEntries(AcDbObjectId id)
{
    const auto* dictionary = AcDbDictionary::cast(residentObject(id));
    if (!dictionary) return;
    DictionaryAccess::forEach(*dictionary, [&](const CString&, AcDbObjectId entry, int) {
        const AcDbObject* object = residentObject(entry);
        if (object && object->ownerId() == id) eraseStub(entry);
    });
}

bool isListed(const std::vector<PackedGroups>& classes, std::string_view record)
{
    DxfGroup group;
    for (const PackedGroups& entry : classes) {
        for (std::size_t at = 0; entry.read(at, group);) {
            if (group.is(1) && group.text == record) return true;
        }
    }
    return false;
}

/// The draw order of the copies is that of their originals.
void orderLike(AcDbSortentsTable& copy, const AcDbSortentsTable& original, const CopySession& session)
{
    AcDbObjectIdArray originals, copies;
    if (original.getFullDrawOrder(originals) != Acad::eOk) return;
    for (int i = 0; i < originals.length(); ++i) {
        const AcDbObjectId id = session.copyOf(originals[i]);
        if (id.isValid()) copies.append(id);
    }
    if (!copies.isEmpty()) copy.setRelativeDrawOrder(copies);
}
} // namespace

CopySession::~CopySession() { close(); }

AcDbStub* CopySession::translate(AcDbStub* original) const
{
    const AcDbObjectId copy = copyOf(original);
    if (!copy.isNull()) return copy;
    if (&mFrom == &mTo) return original;
    AcDbIdPair earlier(original, AcDbObjectId(), false);
    if (mMap.compute(earlier) && earlier.value().database() == &mTo) return earlier.value();
    const DatabaseState& from = DatabaseAccess::of(mFrom);
    const DatabaseState& to = DatabaseAccess::of(mTo);
    if (AcDbObjectId(original) == from.modelSpace) return to.modelSpace;
    return AcDbObjectId(original) == from.namedObjects ? static_cast<AcDbStub*>(to.namedObjects) : nullptr;
}

CString CopySession::nameOf(AcDbStub* translated) const
{
    const auto given = mNames.find(translated);
    if (given != mNames.end()) return given->second;
    const auto* record = AcDbSymbolTableRecord::cast(residentObject(translated));
    return record ? record->name() : CString();
}

void CopySession::carryOut()
{
    copyClasses();
    eraseReplaced();
    mMap.mRunning = this;
    for (Planned& one : mPlanned)
        make(one);
    mMap.mRunning = nullptr;
    for (const Planned& one : mPlanned)
        finish(one);
    close();
}

void CopySession::eraseReplaced()
{
    for (const AcDbObjectId id : mReplacedContents)
        mOpened[id]->erase();
}

/// Objects of modules are asked, since their class may do more than the filing says.
void CopySession::make(Planned& one)
{
    if (one.place == Place::replaced || !filing::isOfModule(*one.original)) return read(one);
    AcDbIdPair pair(one.original->objectId(), AcDbObjectId(), false);
    mMap.compute(pair);
    AcDbObject* const owner = residentObject(one.owner);
    AcDbObject* copy = nullptr;
    mAsked = &one;
    if (&mFrom == &mTo) {
        one.original->subDeepClone(owner, copy, mMap, pair.isPrimary());
    } else {
        one.original->subWblockClone(owner, copy, mMap, pair.isPrimary());
    }
    mAsked = nullptr;
    if (!residentObject(one.copy)) mMap.del(one.original->objectId());
}

Acad::ErrorStatus CopySession::makeCopy(const AcDbObject& original, AcDbObject*& copy, AcDbIdMapping& map)
{
    copy = nullptr;
    Planned* const asked = map.mRunning ? std::exchange(map.mRunning->mAsked, nullptr) : nullptr;
    if (!asked || asked->original != &original) return Acad::eInvalidContext;
    map.mRunning->read(*asked);
    copy = residentObject(asked->copy);
    return Acad::eOk;
}

void CopySession::read(Planned& one)
{
    std::unique_ptr<AcDbObject> copy = makeLike(*one.original);
    readContents(one, *copy);
    if (auto* layout = AcDbLayout::cast(copy.get())) layout->setLayoutName(one.name);
    auto* record = AcDbSymbolTableRecord::cast(copy.get());
    if (record) SymbolTableAccess::setName(*record, one.name);
    if (one.place == Place::replaced) return takeState(*mOpened[one.copy], *copy);
    AcDbObject* made = copy.release();
    DbObjectAccess::makeResident(*made, *static_cast<AcDbStub*>(one.copy), one.owner);
    settle(one, made);
}

void CopySession::readContents(Planned& one, AcDbObject& copy)
{
    CopySource source(one.groups, *one.original, mFrom, mTo, *this);
    if (filing::isOfModule(copy)) {
        dxfReadSections(copy, source);
        TranslatingFiler filer(std::move(one.filed), mFrom, mTo, *this);
        copy.dwgInFields(&filer);
    } else {
        dxfRead(copy, source);
    }
    one.groups = PackedGroups();
}

/// Lists a copy where it goes.
void CopySession::settle(const Planned& one, AcDbObject* made)
{
    AcDbObject* owner = residentObject(one.owner);
    if (one.place == Place::owned || !owner) return;
    owner->assertWriteEnabled();
    if (one.place == Place::entity) {
        BlockAccess::list(static_cast<AcDbBlockTableRecord&>(*owner), one.copy);
    } else if (one.place == Place::record) {
        SymbolTableAccess::list(static_cast<AcDbSymbolTable&>(*owner), one.copy, one.name);
    } else {
        DictionaryAccess::list(static_cast<AcDbDictionary&>(*owner), one.name, one.copy);
        const bool isKnown = made->hasPersistentReactor(one.owner);
        if (!isKnown) DbObjectAccess::needExtras(*made).persistentReactors.push_back(one.owner);
    }
}

/// What a copy was read into becomes the contents of an object that keeps its id.
void CopySession::takeState(AcDbObject& existing, AcDbObject& fresh)
{
    existing.assertWriteEnabled();
    eraseEntries(existing.objectId());
    eraseEntries(existing.extensionDictionary());
    eraseStub(existing.extensionDictionary());
    if (auto* block = AcDbBlockTableRecord::cast(&existing)) {
        BlockAccess::takeRecord(*block, static_cast<const AcDbBlockTableRecord&>(fresh));
    } else {
        filing::assign(existing, fresh);
    }
    DbObjectExtras& to = DbObjectAccess::needExtras(existing);
    DbObjectExtras& from = DbObjectAccess::needExtras(fresh);
    to.xdata = std::move(from.xdata);
    to.keptGroups = std::move(from.keptGroups);
    to.extensionDictionary = from.extensionDictionary;
}

void CopySession::finish(const Planned& one)
{
    if (!residentObject(one.copy)) return; // its class made none
    AcDbObject& copy = *residentObject(one.copy);
    if (auto* entity = AcDbEntity::cast(&copy)) finishEntity(*entity, static_cast<AcDbEntity&>(*one.original));
    if (auto* block = AcDbBlockTableRecord::cast(&copy)) finishBlock(*block, one);
    if (auto* order = keepsHandles() ? nullptr : AcDbSortentsTable::cast(&copy))
        orderLike(*order, static_cast<AcDbSortentsTable&>(*one.original), *this);
    if (auto* layout = AcDbLayout::cast(&copy); layout && one.place == Place::entry) finishLayout(*layout);
    notices::copied(*one.original, copy);
    if (one.place == Place::replaced) return; // it is told of when it is closed
    notices::appended(copy);
    DbObjectAccess::settle(copy);
}

void CopySession::finishEntity(AcDbEntity& copy, const AcDbEntity& original)
{
    const DbSubentities* from = const_cast<AcDbEntity&>(original).subentities();
    if (from) {
        DbSubentities& list = *copy.subentities();
        list.fileNamesBlockAsOwner = from->fileNamesBlockAsOwner;
        for (const AcDbObjectId id : from->ids) {
            const AcDbObjectId part = id.isErased() ? AcDbObjectId() : copyOf(id);
            if (!part.isNull()) list.ids.push_back(part);
        }
        list.sequenceEnd = copyOf(from->sequenceEnd);
    }
    copy.completeRead();
}

/// A new layout stands behind the others.
void CopySession::finishLayout(AcDbLayout& copy)
{
    int last = 0;
    for (const AcDbLayout* other : LayoutAccess::all(mTo)) {
        if (other != &copy) last = std::max(last, other->getTabOrder());
    }
    LayoutAccess::tabOrder(copy) = last + 1;
}

void CopySession::finishBlock(AcDbBlockTableRecord& copy, const Planned& one)
{
    constexpr int anonymous = 1;
    auto& original = static_cast<AcDbBlockTableRecord&>(*one.original);
    if (one.place != Place::replaced) {
        BlockAccess::begin(copy) = copyOf(BlockAccess::begin(original));
        BlockAccess::end(copy) = copyOf(BlockAccess::end(original));
    }
    if (!copy.isLayout()) copy.setOrigin(original.origin());
    copy.setComments(BlockAccess::comments(original));
    copy.setPathName(BlockAccess::pathName(original));
    const bool isAnonymous = one.name[0] == L'*' && !copy.isLayout();
    int& flags = SymbolTableAccess::flags(copy);
    flags = (SymbolTableAccess::flags(original) & ~anonymous) | (isAnonymous ? anonymous : 0);
}

/// Records of unknown classes need the classes' entries in the drawing's list.
void CopySession::copyClasses()
{
    if (&mFrom == &mTo) return;
    std::set<std::string, std::less<>> records;
    for (const Planned& one : mPlanned) {
        const bool isProxy = AcDbProxyEntity::cast(one.original) || AcDbProxyObject::cast(one.original);
        if (isProxy) records.emplace(one.original->dxfRecordName());
    }
    std::vector<PackedGroups>& to = DatabaseAccess::of(mTo).classes;
    for (const PackedGroups& entry : DatabaseAccess::of(mFrom).classes) {
        const bool isUsed = std::any_of(records.begin(), records.end(), [&](const std::string& record) {
            return isListed({entry}, record) && !isListed(to, record);
        });
        if (isUsed) to.push_back(entry);
    }
}

void CopySession::close()
{
    for (const auto& [id, object] : mOpened)
        object->close();
    mOpened.clear();
}

std::vector<AcDbObjectId> CopySession::copiedEntities(AcDbObjectId block) const
{
    std::vector<AcDbObjectId> copies;
    for (const Planned& one : mPlanned) {
        if (one.place == Place::entity && one.owner == block) copies.push_back(one.copy);
    }
    return copies;
}
