#include "dbdict.h"

#include "DbObjectAccess.h"
#include "DictionaryEdit.h"
#include "acutads.h"
#include "dbdatabase.h"

#include <algorithm>

namespace
{
CString keyOf(const CString& name)
{
    CString key = name;
    return key.MakeLower();
}

/// Erases an object that an entry loses, unless it belongs to someone else.
Acad::ErrorStatus eraseOwned(AcDbObjectId id, AcDbObjectId owner)
{
    const AcDbObject* object = residentObject(id);
    if (!object || object->ownerId() != owner) return Acad::eOk;
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObject(opened, id, AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    const Acad::ErrorStatus erased = opened->erase();
    opened->close();
    return erased;
}
} // namespace

AcDbObjectId AcDbDictionary::find(const ACHAR* name) const
{
    if (!name) return AcDbObjectId();
    const auto range = mByName.equal_range(keyOf(name));
    const auto found =
        std::find_if(range.first, range.second, [](const auto& entry) { return !entry.second.isErased(); });
    return found == range.second ? AcDbObjectId() : found->second;
}

std::vector<AcDbDictionary::Entry>::iterator AcDbDictionary::entryOf(AcDbObjectId id)
{
    return std::find_if(mEntries.begin(), mEntries.end(), [&](const Entry& entry) { return entry.id == id; });
}

void AcDbDictionary::add(const ACHAR* name, AcDbObjectId id, int code)
{
    mEntries.push_back({name, id, static_cast<std::int16_t>(code)});
    mByName.emplace(keyOf(name), id);
}

/// Takes an entry out, which cancel() and undo put back.
void AcDbDictionary::drop(std::vector<Entry>::iterator entry)
{
    const auto place = static_cast<std::size_t>(entry - mEntries.begin());
    DbObjectAccess::note(*this, [&] { return std::make_unique<RemovedEntry>(*this, *entry, place); });
    forget(entry);
}

void AcDbDictionary::forget(std::vector<Entry>::iterator entry)
{
    const auto range = mByName.equal_range(keyOf(entry->name));
    const auto found =
        std::find_if(range.first, range.second, [&](const auto& named) { return named.second == entry->id; });
    if (found != range.second) mByName.erase(found);
    mEntries.erase(entry);
}

void DictionaryAccess::swapEntries(AcDbDictionary& dictionary, std::vector<Entry>& entries)
{
    dictionary.mEntries.swap(entries);
    dictionary.mByName.clear();
    for (const Entry& entry : dictionary.mEntries)
        dictionary.mByName.emplace(keyOf(entry.name), entry.id);
}

void DictionaryAccess::insert(AcDbDictionary& dictionary, const Entry& entry, std::size_t place)
{
    auto& entries = dictionary.mEntries;
    entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(std::min(place, entries.size())), entry);
    dictionary.mByName.emplace(keyOf(entry.name), entry.id);
}

bool DictionaryAccess::drop(AcDbDictionary& dictionary, const Entry& entry)
{
    const auto found = std::find_if(
        dictionary.mEntries.begin(), dictionary.mEntries.end(),
        [&](const Entry& one) { return one.id == entry.id && one.name.CompareNoCase(entry.name) == 0; });
    if (found == dictionary.mEntries.end()) return false;
    dictionary.forget(found);
    return true;
}

void DictionaryAccess::dropErased(AcDbDictionary& dictionary)
{
    for (std::size_t i = dictionary.mEntries.size(); i-- > 0;) {
        if (dictionary.mEntries[i].id.isErased())
            dictionary.drop(dictionary.mEntries.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObjectId& id) const
{
    id = find(name);
    return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, CString& name) const
{
    const auto entry = const_cast<AcDbDictionary*>(this)->entryOf(id);
    if (id.isErased() || entry == mEntries.end()) return Acad::eKeyNotFound;
    name = entry->name;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, ACHAR*& name) const
{
    CString found;
    name = nullptr;
    const Acad::ErrorStatus status = nameAt(id, found);
    if (status != Acad::eOk) return status;
    return acutNewString(found, name) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

bool AcDbDictionary::has(const ACHAR* name) const { return !find(name).isNull(); }

bool AcDbDictionary::has(AcDbObjectId id) const
{
    return !id.isErased() && const_cast<AcDbDictionary*>(this)->entryOf(id) != mEntries.end();
}

std::uint32_t AcDbDictionary::numEntries() const
{
    return static_cast<std::uint32_t>(
        std::count_if(mEntries.begin(), mEntries.end(), [](const Entry& entry) { return !entry.id.isErased(); }));
}

/// Keeps all entries as they are for cancel() and undo.
void AcDbDictionary::noteEntries()
{
    DbObjectAccess::note(*this, [&] { return std::make_unique<AllEntries>(*this); });
}

/// Makes an object one of the dictionary's: checked in full before anything changes.
Acad::ErrorStatus AcDbDictionary::adopt(AcDbObject& object, AcDbObjectId& id)
{
    if (!object.database()) {
        const Acad::ErrorStatus status = database()->addAcDbObject(id, &object, objectId());
        if (status != Acad::eOk) return status;
    }
    id = object.objectId();
    const Acad::ErrorStatus status = object.setOwnerId(objectId());
    if (status == Acad::eOk) object.addPersistentReactor(objectId());
    return status;
}

namespace
{
/// Entries that are asked for as "*" get a free name of the form "*A1": groups without a name are added so.
CString nameFor(const AcDbDictionary& dictionary, const CString& asked)
{
    CString name = asked;
    for (int number = 1; asked == L"*" && (name == asked || dictionary.has(name)); ++number)
        name.Format(L"*A%d", number);
    return name;
}
} // namespace

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* asked, AcDbObject* object, AcDbObjectId& id)
{
    id.setNull();
    if (!asked || !*asked) return Acad::eInvalidKey;
    const CString name = nameFor(*this, asked);
    if (!object) return Acad::eNullObjectPointer;
    if (!database()) return Acad::eNotInDatabase;
    if (object->database() && object->database() != database()) return Acad::eWrongDatabase;
    if (!object->isWriteEnabled()) return Acad::eNotOpenForWrite;
    Acad::ErrorStatus status = assertWriteEnabled();
    const AcDbObjectId old = find(name);
    const bool isNew = !object->database() || object->isNewObject();
    const bool replaces = !old.isNull() && old != object->objectId();
    if (status == Acad::eOk && replaces) status = eraseOwned(old, objectId());
    if (status == Acad::eOk) status = adopt(*object, id);
    if (status != Acad::eOk || (id == old && !old.isNull())) return status;
    if (!isNew) noteEntries();
    if (!replaces) {
        add(name, id);
        return status;
    }
    // The new object takes the place of the old one; the erased one keeps an entry, so that it may come back.
    const auto entry = entryOf(old);
    mEntries.insert(entry, {name, id, 0});
    mByName.emplace(keyOf(name), id);
    return status;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name)
{
    AcDbObjectId id;
    return remove(name, id);
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name, AcDbObjectId& id)
{
    const Acad::ErrorStatus status = AcDbDictionary::getAt(name, id);
    return status == Acad::eOk ? remove(id) : status;
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id)
{
    const auto entry = entryOf(id);
    if (entry == mEntries.end()) return Acad::eKeyNotFound;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) drop(entry);
    return status;
}

bool AcDbDictionary::setName(const ACHAR* oldName, const ACHAR* newName)
{
    const AcDbObjectId id = find(oldName);
    if (id.isNull() || !newName || !*newName) return false;
    const AcDbObjectId other = find(newName);
    if ((!other.isNull() && other != id) || assertWriteEnabled() != Acad::eOk) return false;
    noteEntries();
    const auto entry = entryOf(id);
    const auto range = mByName.equal_range(keyOf(oldName));
    mByName.erase(std::find_if(range.first, range.second, [&](const auto& named) { return named.second == id; }));
    mByName.emplace(keyOf(newName), id);
    entry->name = newName;
    return true;
}

void AcDbDictionary::setTreatElementsAsHard(bool hard)
{
    if (assertWriteEnabled() != Acad::eOk) return;
    noteEntries();
    mIsHardOwner = hard;
    for (Entry& entry : mEntries) entry.code = 0;
}

void AcDbDictionary::setMergeStyle(AcDb::DuplicateRecordCloning style)
{
    if (assertWriteEnabled() == Acad::eOk) mMergeStyle = static_cast<std::uint8_t>(style);
}

AcDbDictionaryIterator* AcDbDictionary::newIterator(AcDb::DictIterType type) const
{
    auto walk = std::make_unique<AcDbDictionaryIterator>();
    for (const Entry& entry : mEntries) {
        if (!entry.id.isErased()) walk->mEntries.push_back({entry.name, entry.id});
    }
    if (type == AcDb::kDictSorted) {
        std::sort(walk->mEntries.begin(), walk->mEntries.end(),
                  [](const auto& a, const auto& b) { return a.name.CompareNoCase(b.name) < 0; });
    }
    return walk.release();
}

const ACHAR* AcDbDictionaryIterator::name() const
{
    return done() ? nullptr : static_cast<const ACHAR*>(mEntries[mAt].name);
}

AcDbObjectId AcDbDictionaryIterator::objectId() const { return done() ? AcDbObjectId() : mEntries[mAt].id; }

Acad::ErrorStatus AcDbDictionaryIterator::getObject(AcDbObject*& object, AcDb::OpenMode mode) const
{
    object = nullptr;
    return done() ? Acad::eIteratorDone : acdbOpenAcDbObject(object, mEntries[mAt].id, mode);
}

bool AcDbDictionaryIterator::next()
{
    if (!done()) ++mAt;
    return !done();
}

bool AcDbDictionaryIterator::setPosition(AcDbObjectId id)
{
    const auto found =
        std::find_if(mEntries.begin(), mEntries.end(), [&](const Entry& entry) { return entry.id == id; });
    if (found == mEntries.end()) return false;
    mAt = static_cast<std::size_t>(found - mEntries.begin());
    return true;
}
