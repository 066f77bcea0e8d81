#pragma once

/// Whether what is drawn is seen, as layers and the blocks around it say.

#include "LayerStates.h"
#include "PlainTraits.h"

#include <vector>

namespace ed
{
/// Inside a block reference the layer "0" is the reference's.
class SelectionTraits final : public PlainTraits
{
public:
    SelectionTraits(LayerStates& layers, AcDbObjectId layerZero) : mLayers(layers), mLayerZero(layerZero) {}

    void setLayer(AcDbObjectId layer) override
    {
        const bool isOuters = layer.isNull() || (layer == mLayerZero && !mOuter.empty());
        mLayer = isOuters && !mOuter.empty() ? mOuter.back().layer : layer;
    }
    void setFillType(AcGiFillType fill) override { mIsFilled = fill == kAcGiFillAlways; }

    bool isFilled() const { return mIsFilled; }
    /// A layer that is off hides what is on it; one that is frozen also what is inside of references on it.
    bool isShown() { return !isFrozen() && !mLayers.of(mLayer).isOff; }

    void enterBlock() { mOuter.push_back({mLayer, isFrozen()}); }
    void leaveBlock()
    {
        mLayer = mOuter.back().layer;
        mOuter.pop_back();
    }

private:
    struct Outer {
        AcDbObjectId layer;
        bool isFrozen;
    };
    bool isFrozen() { return (!mOuter.empty() && mOuter.back().isFrozen) || mLayers.of(mLayer).isFrozen; }

    LayerStates& mLayers;
    AcDbObjectId mLayerZero, mLayer;
    std::vector<Outer> mOuter;
    bool mIsFilled = false;
};
} // namespace ed
