#include "CopyObjects.h"

#include "dbattrib.h"
#include "dbblock.h"
#include "dbdict.h"
#include "dbsymtb.h"
#include "dbvertex.h"
#include "Stub.h"
#include "SymbolTableAccess.h"

#include <unordered_set>

namespace
{
/// Whether an entity stands in blocks by itself.
bool isWholeEntity(const AcDbObject& object)
{
    if (!AcDbEntity::cast(&object)) return false;
    return !object.isKindOf(AcDbBlockBegin::desc()) && !object.isKindOf(AcDbBlockEnd::desc()) &&
           !object.isKindOf(AcDbSequenceEnd::desc()) && !object.isKindOf(AcDbVertex::desc()) &&
           !object.isKindOf(AcDbAttribute::desc());
}
} // namespace

Acad::ErrorStatus collectLiving(const AcDbDatabase& database, const AcDbObjectIdArray& ids,
                                std::vector<AcDbObjectId>& living)
{
    std::unordered_set<AcDbObjectId> seen;
    for (int i = 0; i < ids.length(); ++i) {
        const AcDbObjectId id = ids[i];
        if (!id.isValid() || id.isErased()) continue;
        if (id.database() != &database) return Acad::eWrongDatabase;
        if (seen.insert(id).second) living.push_back(id);
    }
    return Acad::eOk;
}

Acad::ErrorStatus checkOwner(const AcDbObject& object, AcDbObjectId ownerId)
{
    const AcDbObject* owner = residentObject(ownerId);
    if (!owner) return Acad::eInvalidOwnerObject;
    if (AcDbBlockTableRecord::cast(owner)) return isWholeEntity(object) ? Acad::eOk : Acad::eNotAnEntity;
    if (const auto* record = AcDbSymbolTableRecord::cast(&object)) {
        const AcDbObject* table = residentObject(record->ownerId());
        return table && table->isA() == owner->isA() ? Acad::eOk : Acad::eInvalidOwnerObject;
    }
    const bool isEntry = AcDbDictionary::cast(owner) && !AcDbEntity::cast(&object) && !AcDbSymbolTable::cast(&object);
    return isEntry ? Acad::eOk : Acad::eInvalidOwnerObject;
}
