#include "DrawOrder.h"

#include "Stub.h"
#include "dbblock.h"
#include "dbdict.h"
#include "dbsortentstbl.h"

namespace
{
constexpr const wchar_t* entryName = L"ACAD_SORTENTS";

AcDbObjectId tableIdOf(const AcDbBlockTableRecord& block)
{
    const auto* extension = AcDbDictionary::cast(residentObject(block.extensionDictionary()));
    AcDbObjectId id;
    if (extension) extension->getAt(entryName, id);
    return id;
}

/// A new table, open for write.
Acad::ErrorStatus addTable(AcDbBlockTableRecord& block, AcDbSortentsTable*& table)
{
    AcDbDictionary* extension = nullptr;
    Acad::ErrorStatus status = block.assertWriteEnabled();
    if (status == Acad::eOk && block.extensionDictionary().isNull()) status = block.createExtensionDictionary();
    if (status == Acad::eOk) status = acdbOpenObject(extension, block.extensionDictionary(), AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    auto made = std::make_unique<AcDbSortentsTable>();
    made->setBlockId(block.objectId());
    AcDbObjectId id;
    status = extension->setAt(entryName, made.get(), id);
    extension->close();
    if (status == Acad::eOk) table = made.release();
    return status;
}
} // namespace

const AcDbSortentsTable* drawOrderOf(const AcDbBlockTableRecord& block)
{
    const auto* table = AcDbSortentsTable::cast(residentObject(tableIdOf(block)));
    return table && table->isRelativeDrawOrderUsed() ? table : nullptr;
}

Acad::ErrorStatus AcDbBlockTableRecord::getSortentsTable(AcDbSortentsTable*& table, AcDb::OpenMode mode,
                                                         bool createIfNecessary)
{
    table = nullptr;
    const AcDbObjectId found = tableIdOf(*this);
    if (!found.isNull()) return acdbOpenObject(table, found, mode);
    if (!createIfNecessary) return Acad::eKeyNotFound;
    if (!database()) return Acad::eNotInDatabase;
    const Acad::ErrorStatus status = addTable(*this, table);
    if (status != Acad::eOk || mode == AcDb::kForWrite) return status;
    const AcDbObjectId made = table->objectId();
    table->close();
    return acdbOpenObject(table, made, mode);
}
