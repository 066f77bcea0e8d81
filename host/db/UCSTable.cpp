#include "DxfFields.h"
#include "SymbolTableMembers.h"

ACDB_DXF_CLASS(AcDbUCSTableRecord, AcDbSymbolTableRecord, UCS)
ACDB_SYMBOL_TABLE_MEMBERS(UCS)

const DxfClass AcDbUCSTableRecord::dxf("AcDbUCSTableRecord", &AcDbSymbolTableRecord::dxf,
                                       {
                                           dxf::text<&AcDbUCSTableRecord::mName>(2),
                                           dxf::integer<&AcDbUCSTableRecord::mFlags>(70),
                                       });
