#include "DbObjectAccess.h"
#include "dbdatabase.h"
#include "dbdict.h"

AcDbObjectId AcDbObject::extensionDictionary() const { return mExtras ? mExtras->extensionDictionary : AcDbObjectId(); }

Acad::ErrorStatus AcDbObject::createExtensionDictionary()
{
    if (!database()) return Acad::eNotInDatabase;
    const AcDbObjectId existing = extensionDictionary();
    if (existing.isValid() && !existing.isErased()) return Acad::eAlreadyInDb;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    auto* dictionary = new AcDbDictionary;
    dictionary->setTreatElementsAsHard();
    AcDbObjectId& id = DbObjectAccess::needExtras(*this).extensionDictionary;
    database()->addAcDbObject(id, dictionary, objectId());
    dictionary->close();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::releaseExtensionDictionary()
{
    const AcDbObjectId id = extensionDictionary();
    if (!id.isValid() || id.isErased()) return Acad::eKeyNotFound;
    const Acad::ErrorStatus writable = assertWriteEnabled();
    if (writable != Acad::eOk) return writable;
    AcDbDictionary* dictionary = nullptr;
    const Acad::ErrorStatus status = acdbOpenObject(dictionary, id, AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    const bool isEmpty = dictionary->numEntries() == 0;
    if (isEmpty) {
        dictionary->erase();
        mExtras->extensionDictionary.setNull();
    }
    dictionary->close();
    return isEmpty ? Acad::eOk : Acad::eContainerNotEmpty;
}
