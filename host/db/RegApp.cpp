#include "ClassRegistration.h"
#include "DxfFields.h"
#include "SymbolTableMembers.h"
#include "dbsymtb.h"

ACDB_DXF_CLASS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, APPID)
ACDB_SYMBOL_TABLE_MEMBERS(RegApp)

const DxfClass AcDbRegAppTableRecord::dxf("AcDbRegAppTableRecord", &AcDbSymbolTableRecord::dxf,
                                          {
                                              dxf::text<&AcDbRegAppTableRecord::mName>(2),
                                              dxf::integer<&AcDbRegAppTableRecord::mFlags>(70),
                                          });
