#include "TableKind.h"

namespace dxf
{
namespace
{
template <class Table, class Record>
constexpr TableInfo infoFor(TableKind kind, const char* name, AcDbObjectId DatabaseState::*id)
{
    return {kind, name, id, []() -> AcDbSymbolTable* { return new Table; },
            []() -> AcDbSymbolTableRecord* { return new Record; }};
}
} // namespace

const std::array<TableInfo, 9> tableInfos = {
    infoFor<AcDbViewportTable, AcDbViewportTableRecord>(TableKind::viewport, "VPORT", &DatabaseState::viewportTable),
    infoFor<AcDbLinetypeTable, AcDbLinetypeTableRecord>(TableKind::linetype, "LTYPE", &DatabaseState::linetypeTable),
    infoFor<AcDbLayerTable, AcDbLayerTableRecord>(TableKind::layer, "LAYER", &DatabaseState::layerTable),
    infoFor<AcDbTextStyleTable, AcDbTextStyleTableRecord>(TableKind::textStyle, "STYLE",
                                                                  &DatabaseState::textStyleTable),
    infoFor<AcDbViewTable, AcDbViewTableRecord>(TableKind::view, "VIEW", &DatabaseState::viewTable),
    infoFor<AcDbUCSTable, AcDbUCSTableRecord>(TableKind::ucs, "UCS", &DatabaseState::ucsTable),
    infoFor<AcDbRegAppTable, AcDbRegAppTableRecord>(TableKind::regApp, "APPID", &DatabaseState::regAppTable),
    infoFor<AcDbDimStyleTable, AcDbDimStyleTableRecord>(TableKind::dimStyle, "DIMSTYLE", &DatabaseState::dimStyleTable),
    infoFor<AcDbBlockTable, AcDbBlockTableRecord>(TableKind::block, "BLOCK_RECORD", &DatabaseState::blockTable),
};

const TableInfo* tableOfName(std::string_view name)
{
    for (const TableInfo& info : tableInfos) {
        if (name == info.name) return &info;
    }
    return nullptr;
}

const TableInfo* tableOfCode(int code)
{
    switch (code) {
    case 2: return &infoOf(TableKind::block);
    case 3: return &infoOf(TableKind::dimStyle);
    case 6: return &infoOf(TableKind::linetype);
    case 7: return &infoOf(TableKind::textStyle);
    case 8:
    case 1003: return &infoOf(TableKind::layer);
    case 1001: return &infoOf(TableKind::regApp);
    default: return nullptr;
    }
}
} // namespace dxf
