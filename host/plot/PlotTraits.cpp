#include "PlotTraits.h"

#include "LineWeights.h"

namespace plot
{
PlotTraits::PlotTraits(PlotStyles& styles, const LayerSet& frozen)
    : mStyles(styles), mFrozen(frozen), mLayerZero(styles.database().layerZero()),
      mByLayer(styles.database().byLayerLinetype()), mByBlock(styles.database().byBlockLinetype())
{
    // By block outside of blocks: black, continuous, of the default weight.
    mOutermost.layer = mLayerZero;
    mOutermost.lineWeight = lineweights::standard;
}

PlotTraits::Raw& PlotTraits::change()
{
    mIsResolved = false;
    return mRaw;
}

void PlotTraits::setColor(std::uint16_t index)
{
    change().color.setColorIndex(index);
}

void PlotTraits::setTrueColor(const AcCmEntityColor& color)
{
    change().color = color;
}

void PlotTraits::setLayer(AcDbObjectId layer)
{
    change().layer = layer;
}

void PlotTraits::setLineType(AcDbObjectId linetype)
{
    change().linetype = linetype;
}

void PlotTraits::setLineTypeScale(double scale)
{
    change().linetypeScale = scale;
}

void PlotTraits::setLineWeight(AcDb::LineWeight weight)
{
    change().lineWeight = weight;
}

void PlotTraits::setTransparency(const AcCmTransparency& transparency)
{
    change().transparency = transparency;
}

const Look& PlotTraits::look()
{
    if (!mIsResolved) resolve();
    mIsResolved = true;
    return mLook;
}

void PlotTraits::resolve()
{
    const Look& outer = mBlocks.empty() ? mOutermost : mBlocks.back().look;
    const bool isOuters = mRaw.layer.isNull() || (mRaw.layer == mLayerZero && !mBlocks.empty());
    mLook.layer = isOuters ? outer.layer : mRaw.layer;
    const LayerLook& layer = mStyles.layer(mLook.layer);
    mLook.isFrozen = outer.isFrozen || layer.isFrozen || mFrozen.count(mLook.layer) != 0;
    mLook.isShown = !mLook.isFrozen && !layer.isOff;
    mLook.ink.color = mRaw.color.isByLayer()   ? layer.color
                      : mRaw.color.isByBlock() ? outer.ink.color
                                               : paperColor(mRaw.color);
    mLook.ink.opacity = opacity(layer, outer);
    resolveLine(layer, outer);
}

void PlotTraits::resolveLine(const LayerLook& layer, const Look& outer)
{
    const bool isByLayer = mRaw.linetype.isNull() || mRaw.linetype == mByLayer;
    mLook.linetype = isByLayer                   ? layer.linetype
                     : mRaw.linetype == mByBlock ? outer.linetype
                                                 : mRaw.linetype;
    mLook.dashes = &mStyles.dashes(mLook.linetype);
    mLook.dashScale = mRaw.linetypeScale;
    mLook.lineWeight = mRaw.lineWeight == lineweights::byLayer   ? layer.weight
                       : mRaw.lineWeight == lineweights::byBlock ? outer.lineWeight
                                                                 : mRaw.lineWeight;
    mLook.weight = lineweights::millimetresOf(mLook.lineWeight);
}

double PlotTraits::opacity(const LayerLook& layer, const Look& outer) const
{
    if (mRaw.transparency.isByAlpha()) return mRaw.transparency.alphaPercent();
    return mRaw.transparency.isByBlock() ? outer.ink.opacity : layer.opacity;
}

void PlotTraits::enterBlock()
{
    const Look outer = look();
    mBlocks.push_back({mRaw, outer});
    mIsResolved = false;
}

void PlotTraits::leaveBlock()
{
    if (mBlocks.empty()) return;
    mRaw = mBlocks.back().raw;
    mBlocks.pop_back();
    mIsResolved = false;
}
} // namespace plot
