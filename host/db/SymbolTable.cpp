#include "dbsymtb.h"

#include "ClassRegistration.h"
#include "DbObjectAccess.h"
#include "DxfFields.h"
#include "SymbolName.h"
#include "acutads.h"
#include "dbdatabase.h"

#include <algorithm>

ACDB_ABSTRACT_CLASS(AcDbSymbolTableRecord, AcDbObject)
ACDB_ABSTRACT_CLASS(AcDbSymbolTable, AcDbObject)

namespace
{
CString keyOf(const ACHAR* name)
{
    CString key(name);
    key.MakeLower();
    return key;
}

/// The table that a record stands in, which need not be open; null for a new record.
AcDbSymbolTable* tableOf(const AcDbSymbolTableRecord& record)
{
    return AcDbSymbolTable::cast(residentObject(record.ownerId()));
}

/// The living record under a key; `erasedToo`: an erased one when there is no other.
template <class Map>
AcDbObjectId recordIn(const Map& map, const CString& key, bool erasedToo)
{
    const auto range = map.equal_range(key);
    AcDbObjectId erased;
    for (auto at = range.first; at != range.second; ++at) {
        if (!at->second.isErased()) return at->second;
        erased = at->second;
    }
    return erasedToo ? erased : AcDbObjectId();
}

template <class Map>
auto entryOf(Map& map, const CString& key, AcDbObjectId id)
{
    const auto range = map.equal_range(key);
    for (auto at = range.first; at != range.second; ++at) {
        if (at->second == id) return at;
    }
    return map.end();
}
} // namespace

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const
{
    return acutNewString(mName, name) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& name) const
{
    name = mName;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(AcString& name) const
{
    name = AcString(mName);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name)
{
    const bool mayBeNameless = sharesName() && name && !*name;
    if (!isSymbolName(name) && !mayBeNameless) return Acad::eInvalidSymbolTableName;
    AcDbSymbolTable* table = tableOf(*this);
    if (table && isPermanent() && mName.CompareNoCase(name) != 0) return Acad::eIllegalReplacement;
    const AcDbObjectId other = table && !sharesName() ? table->find(name, false) : AcDbObjectId();
    if (!other.isNull() && other != objectId()) return Acad::eDuplicateRecordName;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    if (table) table->rename(objectId(), mName, name);
    mName = name;
    return Acad::eOk;
}

void AcDbSymbolTableRecord::subCancel(const AcDbObject& before)
{
    const CString& name = static_cast<const AcDbSymbolTableRecord&>(before).mName;
    if (AcDbSymbolTable* table = tableOf(*this)) table->rename(objectId(), mName, name);
}

Acad::ErrorStatus AcDbSymbolTableRecord::subErase(bool erasing)
{
    return erasing && isPermanent() ? Acad::eCannotBeErasedByCaller : Acad::eOk;
}

AcDbObjectId AcDbSymbolTable::find(const CString& name, bool erasedToo) const
{
    return recordIn(mByName, keyOf(name), erasedToo);
}

void AcDbSymbolTable::rename(AcDbObjectId id, const CString& from, const CString& to)
{
    const auto at = entryOf(mByName, keyOf(from), id);
    if (at != mByName.end()) mByName.erase(at);
    mByName.emplace(keyOf(to), id);
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& id, bool getErased) const
{
    id = name && *name ? recordIn(mByName, keyOf(name), getErased) : AcDbObjectId();
    return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                         bool openErased) const
{
    record = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getAt(name, id, openErased);
    return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
}

bool AcDbSymbolTable::has(const ACHAR* name) const
{
    AcDbObjectId id;
    return getAt(name, id) == Acad::eOk;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const
{
    return id.isValid() && !id.isErased() && static_cast<AcDbStub*>(id)->object->ownerId() == objectId();
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record)
{
    id.setNull();
    if (!record) return Acad::eNullObjectPointer;
    if (!record->isKindOf(recordClass())) return Acad::eWrongObjectType;
    if (record->database()) return Acad::eAlreadyInDb;
    const CString name = record->nameIn(*this);
    const bool isNameless = record->sharesName() && name.IsEmpty();
    if (!isSymbolName(name) && !isNameless) return Acad::eInvalidSymbolTableName;
    if (!record->sharesName() && has(name)) return Acad::eDuplicateRecordName;
    const Acad::ErrorStatus writable = assertWriteEnabled(false);
    if (writable != Acad::eOk) return writable;
    const Acad::ErrorStatus status = database()->addAcDbObject(id, record, objectId());
    if (status != Acad::eOk) return status;
    record->mName = name;
    list(id, name);
    record->addedToTable();
    return Acad::eOk;
}

void AcDbSymbolTable::list(AcDbObjectId id, const CString& name)
{
    mIds.push_back(id);
    mByName.emplace(keyOf(name), id);
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record)
{
    AcDbObjectId id;
    return add(id, record);
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning,
                                               bool skipDeleted) const
{
    iterator = new AcDbSymbolTableIterator(mIds, atBeginning, skipDeleted);
    return Acad::eOk;
}

void AcDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted)
{
    mAt = atBeginning ? 0 : mIds->size() - 1;
    if (!done() && skipDeleted && (*mIds)[mAt].isErased()) step(atBeginning, skipDeleted);
}

void AcDbSymbolTableIterator::step(bool forward, bool skipDeleted)
{
    do {
        mAt = forward ? mAt + 1 : mAt - 1;
    } while (!done() && skipDeleted && (*mIds)[mAt].isErased());
}

Acad::ErrorStatus AcDbSymbolTableIterator::seek(AcDbObjectId id)
{
    for (std::size_t i = 0; i < mIds->size(); ++i) {
        if ((*mIds)[i] != id) continue;
        mAt = i;
        return Acad::eOk;
    }
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const
{
    if (done()) return Acad::eIteratorDone;
    id = (*mIds)[mAt];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                                     bool openErased) const
{
    record = nullptr;
    return done() ? Acad::eIteratorDone : acdbOpenObject(record, (*mIds)[mAt], mode, openErased);
}

namespace
{
void skipCount(AcDbObject&, const DxfField&, DxfSource& source) { source.take(); }

void writeCount(const AcDbObject& object, const DxfField&, DxfSink& sink)
{
    const std::vector<AcDbObjectId>& ids = static_cast<const AcDbSymbolTable&>(object).recordIds();
    sink.integer(70, std::count_if(ids.begin(), ids.end(), [](AcDbObjectId id) { return !id.isErased(); }));
}
} // namespace

const DxfClass AcDbSymbolTable::dxf("AcDbSymbolTable", nullptr, {dxf::custom(70, skipCount, writeCount)});
const DxfClass AcDbSymbolTableRecord::dxf("AcDbSymbolTableRecord", nullptr, {});
