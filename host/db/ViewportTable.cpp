#include "DxfFields.h"
#include "SymbolTableMembers.h"

ACDB_DXF_CLASS(AcDbViewportTableRecord, AcDbSymbolTableRecord, VPORT)
ACDB_SYMBOL_TABLE_MEMBERS(Viewport)

const DxfClass AcDbViewportTableRecord::dxf("AcDbViewportTableRecord", &AcDbSymbolTableRecord::dxf,
                                       {
                                           dxf::text<&AcDbViewportTableRecord::mName>(2),
                                           dxf::integer<&AcDbViewportTableRecord::mFlags>(70),
                                       });
