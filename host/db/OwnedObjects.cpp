#include "OwnedObjects.h"

#include "DictionaryAccess.h"
#include "Stub.h"
#include "UndoRecording.h"
#include "dbentity.h"

namespace
{
void eraseOwned(AcDbObjectId id, bool erasing)
{
    AcDbObject* object = nullptr;
    if (id.isErased() == erasing || acdbOpenAcDbObject(object, id, AcDb::kForWrite, true) != Acad::eOk) return;
    object->erase(erasing);
    object->close();
}

std::vector<AcDbObjectId> hardEntries(AcDbObject& owner, bool erasing)
{
    std::vector<AcDbObjectId> ids;
    AcDbDictionary* dictionary = AcDbDictionary::cast(&owner);
    if (!dictionary || !dictionary->isTreatElementsAsHard()) return ids;
    // What was erased before its owner must not come back with it.
    if (erasing) DictionaryAccess::dropErased(*dictionary);
    DictionaryAccess::forEach(*dictionary, [&](const CString&, AcDbObjectId id, int) { ids.push_back(id); });
    return ids;
}
void eraseUnopened(AcDbObjectId id, bool erasing)
{
    AcDbStub* stub = id;
    if (!stub || stub->undone || stub->erased == erasing) return;
    undo::willErase(id);
    stub->erased = erasing;
}

void eraseSubentities(AcDbEntity& owner, bool erasing)
{
    const DbSubentities* list = owner.subentities();
    if (!list) return;
    for (const AcDbObjectId id : list->ids)
        eraseUnopened(id, erasing);
    eraseUnopened(list->sequenceEnd, erasing);
}
} // namespace

void owned::followErase(AcDbObject& owner, bool erasing)
{
    for (const AcDbObjectId id : hardEntries(owner, erasing)) eraseOwned(id, erasing);
    if (AcDbEntity* entity = AcDbEntity::cast(&owner)) eraseSubentities(*entity, erasing);
    if (!owner.extensionDictionary().isNull()) eraseOwned(owner.extensionDictionary(), erasing);
}
