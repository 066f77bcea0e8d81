#include "AsdkBlockOrderIndex.h"

#include "AsdkBlockOrderFilter.h"
#include "BlockOrderIterator.h"

ACRX_DXF_DEFINE_MEMBERS(AsdkBlockOrderIndex, AcDbIndex, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent,
                        AcRxProxyFlags::kEraseAllowed, ASDKBLOCKORDERINDEX, QmCADLib)

AcDbFilteredBlockIterator* AsdkBlockOrderIndex::newIterator(const AcDbFilter* filter) const
{
    const AcDbObjectId block = objectBeingIndexedId();
    return AsdkBlockOrderFilter::cast(filter) && !block.isNull() ? new BlockOrderIterator(block) : nullptr;
}

Acad::ErrorStatus AsdkBlockOrderIndex::rebuildFull(AcDbIndexUpdateData*)
{
    return Acad::eOk;
}
