#include "DxfFields.h"
#include "SymbolTableMembers.h"

ACDB_DXF_CLASS(AcDbLayerTableRecord, AcDbSymbolTableRecord, LAYER)
ACDB_SYMBOL_TABLE_MEMBERS(Layer)

const DxfClass AcDbLayerTableRecord::dxf("AcDbLayerTableRecord", &AcDbSymbolTableRecord::dxf,
                                       {
                                           dxf::text<&AcDbLayerTableRecord::mName>(2),
                                           dxf::integer<&AcDbLayerTableRecord::mFlags>(70),
                                       });
