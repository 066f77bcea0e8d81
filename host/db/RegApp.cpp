#include "DxfFields.h"
#include "dbsymtb.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, , , 0, APPID, ObjectDBX Classes)
ACRX_CONS_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable, 0)

const DxfClass AcDbRegAppTableRecord::dxf("AcDbRegAppTableRecord", &AcDbSymbolTableRecord::dxf,
                                          {
                                              dxf::text<&AcDbRegAppTableRecord::mName>(2),
                                              dxf::integer<&AcDbRegAppTableRecord::mFlags>(70),
                                          });

const AcRxClass* AcDbRegAppTable::recordClass() const { return AcDbRegAppTableRecord::desc(); }

Acad::ErrorStatus AcDbRegAppTable::getAt(const ACHAR* name, AcDbRegAppTableRecord*& record, AcDb::OpenMode mode,
                                         bool openErased) const
{
    record = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getAt(name, id, openErased);
    return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
}
