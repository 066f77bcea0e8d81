#pragma once

#include "dbsymbase.h"

/// The name under which an application attaches extended data.
class AcDbRegAppTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord);
    ACDB_STATE_MEMBERS(AcDbRegAppTableRecord)
    AcDbRegAppTableRecord() = default;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    bool isPermanent() const override { return mName.CompareNoCase(L"ACAD") == 0; }
};
