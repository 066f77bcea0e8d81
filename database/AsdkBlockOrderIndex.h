#pragma once

#include "dbindex.h"

#include <afxwin.h>

/// The draw order of a block's entities, lowest first: that of the block's draw-order table, or that of the
/// block itself while it has none. The index keeps no list of its own, so it is never out of date.
class AFX_EXT_CLASS AsdkBlockOrderIndex : public AcDbIndex
{
public:
    ACRX_DECLARE_MEMBERS(AsdkBlockOrderIndex);

    /// Of the entities as they lie when the iterator starts. Null for another filter than
    /// AsdkBlockOrderFilter, and for an index of no block.
    AcDbFilteredBlockIterator* newIterator(const AcDbFilter* filter) const override;
    Acad::ErrorStatus rebuildFull(AcDbIndexUpdateData* data) override;
};
