#include "DxfFields.h"
#include "SymbolTableMembers.h"

ACDB_DXF_CLASS(AcDbViewTableRecord, AcDbSymbolTableRecord, VIEW)
ACDB_SYMBOL_TABLE_MEMBERS(View)

const DxfClass AcDbViewTableRecord::dxf("AcDbViewTableRecord", &AcDbSymbolTableRecord::dxf,
                                       {
                                           dxf::text<&AcDbViewTableRecord::mName>(2),
                                           dxf::integer<&AcDbViewTableRecord::mFlags>(70),
                                       });
