#include "RecordNames.h"

#include "DxfGroup.h"
#include "Stub.h"
#include "dbdatabase.h"
#include "dbsymtb.h"

namespace
{
CString nameOf(std::string_view utf8)
{
    DxfGroup group;
    group.text = utf8;
    return group.wide();
}
} // namespace

AcDbObjectId tableNamedBy(const AcDbDatabase& database, int code)
{
    switch (code) {
    case 2: return database.blockTableId();
    case 3: return database.dimStyleTableId();
    case 6: return database.linetypeTableId();
    case 7: return database.textStyleTableId();
    case layerNameCode:
    case 1003: return database.layerTableId();
    case 1001: return database.regAppTableId();
    default: return AcDbObjectId();
    }
}

AcDbObjectId recordNamed(const AcDbDatabase& database, int code, std::string_view name)
{
    AcDbObjectId id;
    const auto* table = AcDbSymbolTable::cast(residentObject(tableNamedBy(database, code)));
    if (table) table->getAt(nameOf(name), id);
    return id;
}

AcDbObjectId addLayer(AcDbDatabase& database, std::string_view name)
{
    AcDbObjectId id;
    AcDbLayerTable* table = nullptr;
    if (database.getLayerTable(table, AcDb::kForWrite) != Acad::eOk) return id;
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    Acad::ErrorStatus status = layer->setName(nameOf(name));
    if (status == Acad::eOk) status = table->add(id, layer.get());
    if (status == Acad::eOk) layer.release()->close();
    table->close();
    return id;
}
