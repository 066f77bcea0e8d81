#include "DxfFields.h"
#include "SymbolTableMembers.h"

ACDB_DXF_CLASS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, LTYPE)
ACDB_SYMBOL_TABLE_MEMBERS(Linetype)

const DxfClass AcDbLinetypeTableRecord::dxf("AcDbLinetypeTableRecord", &AcDbSymbolTableRecord::dxf,
                                       {
                                           dxf::text<&AcDbLinetypeTableRecord::mName>(2),
                                           dxf::integer<&AcDbLinetypeTableRecord::mFlags>(70),
                                       });
