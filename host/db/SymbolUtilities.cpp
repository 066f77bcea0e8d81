#include "dbsymutl.h"

#include "acutads.h"
#include "dbdatabase.h"
#include "dbsymtb.h"
#include "Stub.h"
#include "SymbolName.h"

#include <cwchar>

using AcDbSymbolUtilities::Services;

const Services* acdbSymUtil()
{
    static const Services services;
    return &services;
}

namespace
{
/// Tables are looked into as they are, also while someone has them open for write.
const AcDbSymbolTable* tableOf(AcDbDatabase* database, AcDbObjectId (AcDbDatabase::*table)() const)
{
    return database ? AcDbSymbolTable::cast(residentObject((database->*table)())) : nullptr;
}

Acad::ErrorStatus idIn(AcDbDatabase* database, AcDbObjectId (AcDbDatabase::*table)() const, AcDbObjectId& id,
                       const ACHAR* name)
{
    id.setNull();
    const AcDbSymbolTable* found = tableOf(database, table);
    return found ? found->getAt(name, id) : Acad::eNoDatabase;
}
} // namespace

#define ACDB_RECORD_OF_NAME(KIND, TABLE)                                                                     \
    Acad::ErrorStatus Services::get##KIND##Id(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database)   \
        const                                                                                                \
    {                                                                                                        \
        return idIn(database, &AcDbDatabase::TABLE, id, name);                                               \
    }
ACDB_RECORD_OF_NAME(Block, blockTableId)
ACDB_RECORD_OF_NAME(DimStyle, dimStyleTableId)
ACDB_RECORD_OF_NAME(Layer, layerTableId)
ACDB_RECORD_OF_NAME(Linetype, linetypeTableId)
ACDB_RECORD_OF_NAME(RegApp, regAppTableId)
ACDB_RECORD_OF_NAME(TextStyle, textStyleTableId)
ACDB_RECORD_OF_NAME(UCS, UCSTableId)
ACDB_RECORD_OF_NAME(View, viewTableId)
ACDB_RECORD_OF_NAME(Viewport, viewportTableId)
#undef ACDB_RECORD_OF_NAME

#define ACDB_RECORD_OF_ALL(MEMBER, KIND)                                                                     \
    AcDbObjectId Services::MEMBER##Id(AcDbDatabase* database) const                                          \
    {                                                                                                        \
        AcDbObjectId id;                                                                                     \
        get##KIND##Id(id, MEMBER##Name(), database);                                                         \
        return id;                                                                                           \
    }
ACDB_RECORD_OF_ALL(blockModelSpace, Block)
ACDB_RECORD_OF_ALL(blockPaperSpace, Block)
ACDB_RECORD_OF_ALL(dimStyleStandard, DimStyle)
ACDB_RECORD_OF_ALL(layerZero, Layer)
ACDB_RECORD_OF_ALL(layerDefpoints, Layer)
ACDB_RECORD_OF_ALL(linetypeByBlock, Linetype)
ACDB_RECORD_OF_ALL(linetypeByLayer, Linetype)
ACDB_RECORD_OF_ALL(linetypeContinuous, Linetype)
ACDB_RECORD_OF_ALL(regAppAcad, RegApp)
ACDB_RECORD_OF_ALL(textStyleStandard, TextStyle)
ACDB_RECORD_OF_ALL(viewportActive, Viewport)
#undef ACDB_RECORD_OF_ALL

Acad::ErrorStatus Services::getSymbolName(ACHAR*& name, AcDbObjectId id) const
{
    name = nullptr;
    AcDbSymbolTableRecord* record = nullptr;
    const Acad::ErrorStatus opened = acdbOpenObject(record, id, AcDb::kForRead);
    if (opened != Acad::eOk) return opened;
    const Acad::ErrorStatus status = record->getName(name);
    record->close();
    return status;
}

bool Services::isBlockLayoutName(const ACHAR* name) const
{
    const std::size_t length = std::wcslen(blockPaperSpaceName());
    if (!name || isBlockModelSpaceName(name)) return name != nullptr;
    const bool isPaper =
        CString(name).Left(static_cast<int>(length)).CompareNoCase(blockPaperSpaceName()) == 0;
    return isPaper && std::wcsspn(name + length, L"0123456789") == std::wcslen(name + length);
}

bool Services::hasVerticalBar(const ACHAR* name) const
{
    return name && std::wcschr(name, L'|');
}

Acad::ErrorStatus Services::validateSymbolName(const ACHAR* name, bool allowVerticalBar) const
{
    const bool isValid = isSymbolName(name) && *name != L'*' && (allowVerticalBar || !hasVerticalBar(name));
    return isValid ? Acad::eOk : Acad::eInvalidInput;
}

int Services::compareSymbolName(const ACHAR* name, const ACHAR* other) const
{
    return CString(name).CompareNoCase(other ? other : L"");
}
