#include "AsdkBlockOrderFilter.h"

#include "AsdkBlockOrderIndex.h"

ACRX_DXF_DEFINE_MEMBERS(AsdkBlockOrderFilter, AcDbFilter, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent,
                        AcRxProxyFlags::kEraseAllowed, ASDKBLOCKORDERFILTER, QmCADLib)

AcRxClass* AsdkBlockOrderFilter::indexClass() const
{
    return AsdkBlockOrderIndex::desc();
}
