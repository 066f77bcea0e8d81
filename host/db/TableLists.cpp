/// Symbol tables as lists.

#include "DxfFields.h"
#include "EntityLists.h"
#include "Stub.h"
#include "acdbads.h"
#include "dbblock.h"
#include "dbdatabase.h"

#include <unordered_map>

namespace
{
struct TableName {
    const wchar_t* name;
    AcDbObjectId (AcDbDatabase::*id)() const;
};

constexpr TableName tables[] = {
    {L"LAYER", &AcDbDatabase::layerTableId},    {L"LTYPE", &AcDbDatabase::linetypeTableId},
    {L"VIEW", &AcDbDatabase::viewTableId},      {L"STYLE", &AcDbDatabase::textStyleTableId},
    {L"BLOCK", &AcDbDatabase::blockTableId},    {L"UCS", &AcDbDatabase::UCSTableId},
    {L"APPID", &AcDbDatabase::regAppTableId},   {L"DIMSTYLE", &AcDbDatabase::dimStyleTableId},
    {L"VPORT", &AcDbDatabase::viewportTableId},
};

const AcDbSymbolTable* tableNamed(const ACHAR* name)
{
    const AcDbDatabase* database = workingDatabase();
    for (const TableName& table : tables) {
        if (database && name && CString(name).CompareNoCase(table.name) == 0)
            return AcDbSymbolTable::cast(residentObject((database->*table.id)()));
    }
    return nullptr;
}

/// Records have the groups that tables had before there were handles.
class TableSink : public ResbufSink
{
public:
    using ResbufSink::ResbufSink;
    int version() const override { return static_cast<int>(DxfVersion::r12); }
};

void writeBlock(const AcDbBlockTableRecord& block, ResbufSink& sink)
{
    const AcGePoint3d origin = block.origin();
    sink.text(0, "BLOCK");
    sink.wide(2, block.name());
    sink.integer(70, block.flags());
    sink.point(10, origin.x, origin.y, origin.z);
    for (const AcDbObjectId id : block.entityIds()) {
        if (!id.isErased()) return sink.name(-2, id);
    }
}

resbuf* recordList(AcDbObjectId id)
{
    const AcDbObject* record = residentObject(id);
    if (!record) return nullptr;
    TableSink sink(record->database());
    if (const auto* block = AcDbBlockTableRecord::cast(record)) {
        writeBlock(*block, sink);
    } else {
        sink.text(0, record->dxfRecordName());
        record->dxfClass()->write(*record, sink);
    }
    return sink.release();
}

/// Where the walk of each table stands.
std::size_t& positionIn(const AcDbSymbolTable& table)
{
    static std::unordered_map<AcDbObjectId, std::size_t> positions;
    return positions[table.objectId()];
}

AcDbObjectId recordIn(const AcDbSymbolTable* table, const ACHAR* name)
{
    AcDbObjectId id;
    if (table) table->getAt(name, id);
    return id;
}
} // namespace

resbuf* acdbTblSearch(const ACHAR* table, const ACHAR* name, int setNext)
{
    const AcDbSymbolTable* found = tableNamed(table);
    const AcDbObjectId id = recordIn(found, name);
    if (id.isNull()) return nullptr;
    if (setNext) {
        std::size_t& position = positionIn(*found);
        for (position = 0; found->recordIds()[position] != id;) ++position;
        ++position;
    }
    return recordList(id);
}

resbuf* acdbTblNext(const ACHAR* table, int rewind)
{
    const AcDbSymbolTable* found = tableNamed(table);
    if (!found) return nullptr;
    std::size_t& position = positionIn(*found);
    if (rewind) position = 0;
    while (position < found->recordIds().size()) {
        const AcDbObjectId id = found->recordIds()[position++];
        if (!id.isErased()) return recordList(id);
    }
    return nullptr;
}

int acdbTblObjName(const ACHAR* table, const ACHAR* name, ads_name result)
{
    return giveName(recordIn(tableNamed(table), name), result);
}

int acdbRegApp(const ACHAR* application)
{
    AcDbDatabase* database = workingDatabase();
    if (!database || !application) return RTERROR;
    if (!recordIn(tableNamed(L"APPID"), application).isNull()) return RTNORM;
    AcDbRegAppTable* table = nullptr;
    if (database->getRegAppTable(table, AcDb::kForWrite) != Acad::eOk) return RTERROR;
    auto record = std::make_unique<AcDbRegAppTableRecord>();
    Acad::ErrorStatus status = record->setName(application);
    if (status == Acad::eOk) status = table->add(record.get());
    if (status == Acad::eOk) record.release()->close();
    table->close();
    return status == Acad::eOk ? RTNORM : RTERROR;
}
