#include "DrawOrder.h"

#include "Stub.h"
#include "dbblock.h"
#include "dbdict.h"
#include "dbsortentstbl.h"

const AcDbSortentsTable* drawOrderOf(const AcDbBlockTableRecord& block)
{
    const auto* extension = AcDbDictionary::cast(residentObject(block.extensionDictionary()));
    AcDbObjectId id;
    if (!extension || extension->getAt(L"ACAD_SORTENTS", id) != Acad::eOk) return nullptr;
    const auto* table = AcDbSortentsTable::cast(residentObject(id));
    return table && table->isRelativeDrawOrderUsed() ? table : nullptr;
}
