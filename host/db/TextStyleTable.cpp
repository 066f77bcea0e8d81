#include "DxfFields.h"
#include "SymbolTableMembers.h"

ACDB_DXF_CLASS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, STYLE)
ACDB_SYMBOL_TABLE_MEMBERS(TextStyle)

const DxfClass AcDbTextStyleTableRecord::dxf("AcDbTextStyleTableRecord", &AcDbSymbolTableRecord::dxf,
                                       {
                                           dxf::text<&AcDbTextStyleTableRecord::mName>(2),
                                           dxf::integer<&AcDbTextStyleTableRecord::mFlags>(70),
                                       });
