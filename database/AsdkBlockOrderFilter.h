#pragma once

#include "dbfilter.h"

#include <afxwin.h>

/// Asks for the entities of a block in their draw order. It has no settings; AsdkBlockOrderIndex answers it.
class AFX_EXT_CLASS AsdkBlockOrderFilter : public AcDbFilter
{
public:
    ACRX_DECLARE_MEMBERS(AsdkBlockOrderFilter);

    /// That of AsdkBlockOrderIndex.
    AcRxClass* indexClass() const override;
};
