#pragma once

#include "dbobject.h"

/// What a block reference shows of its block, or in which order: a filter says which index of the block answers it. It
/// lies in the reference's extension dictionary, see AcDbIndexFilterManager.
class AcDbFilter : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbFilter);

    /// The class of the indexes that this filter asks.
    virtual AcRxClass* indexClass() const = 0;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;
};
