#pragma once

/// What layers let be seen and touched.

#include "dbid.h"

#include <unordered_map>

class AcDbViewport;

namespace ed
{
struct LayerState {
    bool isOff = false;
    bool isFrozen = false;
    bool isLocked = false;
    bool isShown() const { return !isOff && !isFrozen; }
};

/// Remembers what it has looked up.
class LayerStates
{
public:
    /// Layers may be frozen in a window of a layout too; null: in none.
    explicit LayerStates(const AcDbViewport* window = nullptr) : mWindow(window) {}
    const LayerState& of(AcDbObjectId layer);

private:
    const AcDbViewport* mWindow;
    std::unordered_map<AcDbObjectId, LayerState> mKnown;
    AcDbObjectId mLast;
    const LayerState* mLastState = nullptr;
};
} // namespace ed
