#include "dbindex.h"

#include "Stub.h"
#include "dbblkref.h"
#include "dbblock.h"
#include "dbdatabase.h"
#include "dbdict.h"
#include "dbobjptr.h"

namespace
{
constexpr const wchar_t* indexes = L"ACAD_INDEX";
constexpr const wchar_t* filters = L"ACAD_FILTER";

/// The dictionary of indexes or filters of an object, null when there is none. It is looked at without being opened.
const AcDbDictionary* kept(const AcDbObject* owner, const wchar_t* name)
{
    const auto* extension = owner ? AcDbDictionary::cast(residentObject(owner->extensionDictionary())) : nullptr;
    AcDbObjectId id;
    if (!extension || extension->isErased() || extension->getAt(name, id) != Acad::eOk) return nullptr;
    return AcDbDictionary::cast(residentObject(id));
}

Acad::ErrorStatus openKept(AcDbObject& owner, const wchar_t* name, AcDbObjectPointer<AcDbDictionary>& dictionary)
{
    if (const AcDbDictionary* existing = kept(&owner, name)) return dictionary.open(existing->objectId(), AcDb::kForWrite);
    const Acad::ErrorStatus made = owner.createExtensionDictionary();
    if (made != Acad::eOk && made != Acad::eAlreadyInDb) return made;
    const AcDbObjectPointer<AcDbDictionary> extension(owner.extensionDictionary(), AcDb::kForWrite);
    if (extension.openStatus() != Acad::eOk) return extension.openStatus();
    Acad::ErrorStatus status = dictionary.create();
    AcDbObjectId id;
    if (status == Acad::eOk) status = extension->setAt(name, dictionary, id);
    return status;
}

Acad::ErrorStatus add(AcDbObject* owner, const wchar_t* name, AcDbObject* object)
{
    if (!owner || !object) return Acad::eNullObjectPointer;
    const AcDbDictionary* existing = kept(owner, name);
    if (existing && existing->has(object->isA()->name())) return Acad::eDuplicateKey;
    AcDbObjectPointer<AcDbDictionary> dictionary;
    const Acad::ErrorStatus status = openKept(*owner, name, dictionary);
    AcDbObjectId id;
    return status == Acad::eOk ? dictionary->setAt(object->isA()->name(), object, id) : status;
}

AcDbObjectId of(const AcDbObject* owner, const wchar_t* name, const AcRxClass* key)
{
    const AcDbDictionary* dictionary = kept(owner, name);
    AcDbObjectId id;
    if (dictionary && key) dictionary->getAt(key->name(), id);
    return id;
}

AcDbObjectId of(const AcDbObject* owner, const wchar_t* name, int number)
{
    const AcDbDictionary* dictionary = kept(owner, name);
    if (!dictionary || number < 0) return {};
    const std::unique_ptr<AcDbDictionaryIterator> walk(dictionary->newIterator());
    for (int i = 0; i < number && !walk->done(); ++i) walk->next();
    return walk->objectId();
}

Acad::ErrorStatus remove(AcDbObject* owner, const wchar_t* name, const AcRxClass* key)
{
    if (!owner || !key) return Acad::eNullObjectPointer;
    const AcDbObjectId id = of(owner, name, key);
    if (id.isNull()) return Acad::eKeyNotFound;
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
    return object.openStatus() == Acad::eOk ? object->erase() : object.openStatus();
}

template <class T>
Acad::ErrorStatus get(AcDbObjectId id, AcDb::OpenMode mode, T*& object)
{
    object = nullptr;
    return id.isNull() ? Acad::eKeyNotFound : acdbOpenObject(object, id, mode);
}

int count(const AcDbObject* owner, const wchar_t* name)
{
    const AcDbDictionary* dictionary = kept(owner, name);
    return dictionary ? static_cast<int>(dictionary->numEntries()) : 0;
}

Acad::ErrorStatus rebuildAll(const AcDbBlockTableRecord& block)
{
    Acad::ErrorStatus first = Acad::eOk;
    AcDbIndexUpdateData data(block.objectId());
    for (int i = 0; i < AcDbIndexFilterManager::numIndexes(&block); ++i) {
        const AcDbObjectPointer<AcDbIndex> index(of(&block, indexes, i), AcDb::kForWrite);
        const Acad::ErrorStatus status =
            index.openStatus() == Acad::eOk ? index->rebuildFull(&data) : index.openStatus();
        if (first == Acad::eOk) first = status;
    }
    return first;
}
} // namespace

namespace AcDbIndexFilterManager
{
Acad::ErrorStatus updateIndexes(AcDbDatabase* database)
{
    if (!database) return Acad::eNullObjectPointer;
    const AcDbObjectPointer<AcDbBlockTable> table(database->blockTableId(), AcDb::kForRead);
    AcDbSymbolTableIterator* made = nullptr;
    Acad::ErrorStatus first = table.openStatus();
    if (first == Acad::eOk) first = table->newIterator(made);
    const std::unique_ptr<AcDbSymbolTableIterator> walk(made);
    for (; walk && !walk->done(); walk->step()) {
        AcDbObjectId id;
        walk->getRecordId(id);
        const auto* block = AcDbBlockTableRecord::cast(residentObject(id));
        const Acad::ErrorStatus status = block ? rebuildAll(*block) : Acad::eOk;
        if (first == Acad::eOk) first = status;
    }
    return first;
}

Acad::ErrorStatus addIndex(AcDbBlockTableRecord* block, AcDbIndex* index) { return add(block, indexes, index); }

Acad::ErrorStatus removeIndex(AcDbBlockTableRecord* block, const AcRxClass* key) { return remove(block, indexes, key); }

Acad::ErrorStatus getIndex(const AcDbBlockTableRecord* block, const AcRxClass* key, AcDb::OpenMode mode, AcDbIndex*& index)
{
    return get(of(block, indexes, key), mode, index);
}

Acad::ErrorStatus getIndex(const AcDbBlockTableRecord* block, int number, AcDb::OpenMode mode, AcDbIndex*& index)
{
    return get(of(block, indexes, number), mode, index);
}

int numIndexes(const AcDbBlockTableRecord* block) { return count(block, indexes); }

Acad::ErrorStatus addFilter(AcDbBlockReference* reference, AcDbFilter* filter) { return add(reference, filters, filter); }

Acad::ErrorStatus removeFilter(AcDbBlockReference* reference, const AcRxClass* key)
{
    return remove(reference, filters, key);
}

Acad::ErrorStatus getFilter(const AcDbBlockReference* reference, const AcRxClass* key, AcDb::OpenMode mode,
                            AcDbFilter*& filter)
{
    return get(of(reference, filters, key), mode, filter);
}

Acad::ErrorStatus getFilter(const AcDbBlockReference* reference, int number, AcDb::OpenMode mode, AcDbFilter*& filter)
{
    return get(of(reference, filters, number), mode, filter);
}

int numFilters(const AcDbBlockReference* reference) { return count(reference, filters); }
} // namespace AcDbIndexFilterManager
