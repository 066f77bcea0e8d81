#pragma once

#include "dbobject.h"

/// An object without contents, where a dictionary needs no more than the name (plot styles).
class AcDbPlaceHolder : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbPlaceHolder);
    ACDB_STATE_MEMBERS(AcDbPlaceHolder)
    AcDbPlaceHolder() = default;
};
