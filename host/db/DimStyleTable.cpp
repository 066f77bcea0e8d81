#include "DxfFields.h"
#include "SymbolTableMembers.h"

ACDB_DXF_CLASS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, DIMSTYLE)
ACDB_SYMBOL_TABLE_MEMBERS(DimStyle)

const DxfClass AcDbDimStyleTableRecord::dxf("AcDbDimStyleTableRecord", &AcDbSymbolTableRecord::dxf,
                                       {
                                           dxf::text<&AcDbDimStyleTableRecord::mName>(2),
                                           dxf::integer<&AcDbDimStyleTableRecord::mFlags>(70),
                                       });
