/// Copies of objects that a caller names: deepCloneObjects and wblockCloneObjects, and the same of one object.

#include "CopyObjects.h"
#include "CopyRun.h"
#include "dbdatabase.h"
#include "dbdict.h"
#include "DrawingEvents.h"
#include "Stub.h"

namespace
{
void addTo(CopySession& session, AcDbObjectId id, AcDbObjectId owner)
{
    if (AcDbSymbolTableRecord::cast(residentObject(id))) {
        session.addRecord(id);
    } else if (AcDbEntity::cast(residentObject(id))) {
        session.addEntity(id, owner);
    } else {
        session.addEntry(id, owner);
    }
}

Acad::ErrorStatus checkAll(const std::vector<AcDbObjectId>& objects, AcDbObjectId owner)
{
    for (const AcDbObjectId id : objects) {
        const Acad::ErrorStatus status = checkOwner(*residentObject(id), owner);
        if (status != Acad::eOk) return status;
    }
    return Acad::eOk;
}

Acad::ErrorStatus run(std::unique_ptr<CopySession> session, const std::vector<AcDbObjectId>& objects,
                      AcDbObjectId owner, AcDbIdMapping& map, bool isPutOff)
{
    if (!session) return Acad::eInvalidIdMap;
    for (const AcDbObjectId id : objects)
        addTo(*session, id, owner);
    return isPutOff ? CopyRun::putOff(std::move(session), map) : CopyRun::finish(*session, map);
}

/// The drawing of an owner that objects can be copied to; the status why there is none.
Acad::ErrorStatus checkContainer(AcDbObjectId owner)
{
    if (owner.isNull()) return Acad::eNullObjectId;
    if (!owner.isValid()) return Acad::eUnknownHandle;
    if (owner.isErased()) return Acad::eWasErased;
    const AcDbObject* object = residentObject(owner);
    const bool isContainer =
        AcDbBlockTableRecord::cast(object) || AcDbSymbolTable::cast(object) || AcDbDictionary::cast(object);
    return isContainer ? Acad::eOk : Acad::eInvalidOwnerObject;
}
} // namespace

Acad::ErrorStatus AcDbDatabase::deepCloneObjects(const AcDbObjectIdArray& ids, AcDbObjectId& owner,
                                                 AcDbIdMapping& map, bool deferXlation)
{
    Acad::ErrorStatus status = checkContainer(owner);
    if (status == Acad::eOk && owner.database() != this) status = Acad::eWrongDatabase;
    // Two records of one table cannot have one name.
    if (status == Acad::eOk && AcDbSymbolTable::cast(residentObject(owner))) status = Acad::eInvalidOwnerObject;
    std::vector<AcDbObjectId> objects;
    if (status == Acad::eOk) status = collectLiving(*this, ids, objects);
    if (status == Acad::eOk) status = checkAll(objects, owner);
    if (status != Acad::eOk) return status;
    return run(CopyRun::begin(*this, *this, map, AcDb::kDcObjects, AcDb::kDrcNotApplicable), objects, owner, map,
               deferXlation);
}

Acad::ErrorStatus AcDbDatabase::wblockCloneObjects(const AcDbObjectIdArray& ids, AcDbObjectId& owner,
                                                   AcDbIdMapping& map, AcDb::DuplicateRecordCloning drc,
                                                   bool deferXlation)
{
    if (drc < AcDb::kDrcIgnore || drc > AcDb::kDrcUnmangleName) return Acad::eInvalidInput;
    Acad::ErrorStatus status = checkContainer(owner);
    if (status == Acad::eOk && owner.database() == this) status = Acad::eWrongDatabase;
    std::vector<AcDbObjectId> objects;
    if (status == Acad::eOk) status = collectLiving(*this, ids, objects);
    if (status == Acad::eOk) status = checkAll(objects, owner);
    if (status != Acad::eOk) return status;
    const bool isFirst = !map.mPending;
    auto session = CopyRun::begin(*this, *owner.database(), map, AcDb::kDcWblkObjects, drc);
    if (isFirst) events::tell([&](AcRxEventReactor& reactor) { reactor.beginWblockObjects(this, map); });
    return run(std::move(session), objects, owner, map, deferXlation);
}

/// What deepClone and wblockClone of one object share: the owner is open for write, and so is the copy.
struct OneCopy {
    static Acad::ErrorStatus make(const AcDbObject& original, AcDbObject* owner, AcDbObject*& copy, AcDbIdMapping& map,
                                  AcDb::DeepCloneType context, AcDb::DuplicateRecordCloning duplicates)
    {
        copy = nullptr;
        if (!owner) return Acad::eNullObjectPointer;
        if (!original.database() || !owner->database()) return Acad::eNotInDatabase;
        if (!owner->isWriteEnabled()) return Acad::eNotOpenForWrite;
        const Acad::ErrorStatus status = checkOwner(original, owner->objectId());
        if (status != Acad::eOk) return status;
        auto session = CopyRun::begin(*original.database(), *owner->database(), map, context, duplicates);
        if (!session) return Acad::eInvalidIdMap;
        session->lend(*owner);
        addTo(*session, original.objectId(), owner->objectId());
        const Acad::ErrorStatus finished = CopyRun::finish(*session, map);
        if (finished != Acad::eOk) return finished;
        AcDbIdPair pair(original.objectId(), AcDbObjectId(), false);
        const bool isCloned = map.compute(pair) && pair.isCloned();
        return isCloned ? acdbOpenAcDbObject(copy, pair.value(), AcDb::kForWrite) : Acad::eOk;
    }
};

Acad::ErrorStatus AcDbObject::subDeepClone(AcDbObject*, AcDbObject*& copy, AcDbIdMapping& map, bool) const
{
    return CopySession::makeCopy(*this, copy, map);
}

Acad::ErrorStatus AcDbObject::subWblockClone(AcRxObject*, AcDbObject*& copy, AcDbIdMapping& map, bool) const
{
    return CopySession::makeCopy(*this, copy, map);
}

Acad::ErrorStatus AcDbObject::deepClone(AcDbObject* owner, AcDbObject*& copy, AcDbIdMapping& map, bool) const
{
    copy = nullptr;
    if (owner && owner->database() != database()) return Acad::eWrongDatabase;
    if (owner && AcDbSymbolTable::cast(owner)) return Acad::eInvalidOwnerObject;
    return OneCopy::make(*this, owner, copy, map, AcDb::kDcObjects, AcDb::kDrcNotApplicable);
}

Acad::ErrorStatus AcDbObject::wblockClone(AcRxObject* owner, AcDbObject*& copy, AcDbIdMapping& map, bool) const
{
    copy = nullptr;
    AcDbObject* object = AcDbObject::cast(owner);
    if (object && object->database() == database()) return Acad::eWrongDatabase;
    const AcDb::DuplicateRecordCloning asked = map.duplicateRecordCloning();
    return OneCopy::make(*this, object, copy, map, AcDb::kDcWblkObjects,
                         asked == AcDb::kDrcNotApplicable ? AcDb::kDrcIgnore : asked);
}
