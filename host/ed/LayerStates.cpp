#include "LayerStates.h"

#include "dblayer.h"
#include "dbviewport.h"
#include "Stub.h"

const ed::LayerState& ed::LayerStates::of(AcDbObjectId layer)
{
    if (mLastState && layer == mLast) return *mLastState;
    const auto [known, isNew] = mKnown.try_emplace(layer);
    const auto* record = isNew ? AcDbLayerTableRecord::cast(residentObject(layer)) : nullptr;
    if (record) known->second = {record->isOff(), record->isFrozen(), record->isLocked()};
    if (isNew && mWindow && mWindow->isLayerFrozenInViewport(layer)) known->second.isFrozen = true;
    mLast = layer;
    return *(mLastState = &known->second);
}
