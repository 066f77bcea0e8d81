#pragma once

#include "DatabaseState.h"
#include "dbblock.h"

#include <array>
#include <memory>
#include <string_view>

namespace dxf
{
/// The symbol tables, in the order of files.
enum class TableKind : std::uint8_t { viewport, linetype, layer, textStyle, view, ucs, regApp, dimStyle, block };

struct TableInfo {
    TableKind kind;
    const char* name;                          ///< of the table and of its records
    AcDbObjectId DatabaseState::*id;
    AcDbSymbolTable* (*makeTable)();
    AcDbSymbolTableRecord* (*makeRecord)();
};

extern const std::array<TableInfo, 9> tableInfos;

inline const TableInfo& infoOf(TableKind kind) { return tableInfos[static_cast<std::size_t>(kind)]; }
/// Null for an unknown name.
const TableInfo* tableOfName(std::string_view name);
/// The table whose records a group code names; null for a code that names none.
const TableInfo* tableOfCode(int code);
} // namespace dxf
