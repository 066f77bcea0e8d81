#pragma once

/// The traits of what is drawn, with everything inherited resolved.

#include "PlotStyles.h"
#include "acgi.h"

#include <unordered_set>

namespace plot
{
using LayerSet = std::unordered_set<AcDbObjectId>;

/// How something is drawn on paper.
struct Look {
    Ink ink;
    double weight = 0; ///< of lines, millimetres
    AcDbObjectId layer, linetype;
    int lineWeight = 0;                  ///< hundredths of a millimetre, or lineweights::standard
    const DashPattern* dashes = nullptr; ///< empty: continuous
    double dashScale = 1;                ///< of the entity alone
    bool isFrozen = false;               ///< nor is what is inside shown
    bool isShown = true;
};

/// Entities say what they want: by layer, by block or a value of their own. Inside a block reference "by block"
/// is the reference's value, and the layer "0" is its layer.
class PlotTraits final : public AcGiSubEntityTraits
{
public:
    /// `frozen` are layers that are not shown beside those frozen everywhere.
    PlotTraits(PlotStyles& styles, const LayerSet& frozen);

    void setColor(std::uint16_t index) override;
    void setTrueColor(const AcCmEntityColor& color) override;
    void setLayer(AcDbObjectId layer) override;
    void setLineType(AcDbObjectId linetype) override;
    void setLineTypeScale(double scale) override;
    void setLineWeight(AcDb::LineWeight weight) override;
    void setTransparency(const AcCmTransparency& transparency) override;
    void setFillType(AcGiFillType fill) override { mRaw.isFilled = fill == kAcGiFillAlways; }

    const Look& look();
    bool isFilled() const { return mRaw.isFilled; }

    /// What follows is inside the block that the present traits belong to; until leaveBlock gives them back.
    void enterBlock();
    void leaveBlock();

private:
    struct Raw {
        AcCmEntityColor color;
        AcDbObjectId layer, linetype;
        double linetypeScale = 1;
        int lineWeight = AcDb::kLnWtByLayer;
        AcCmTransparency transparency;
        bool isFilled = false;
    };
    struct Block {
        Raw raw;
        Look look;
    };

    Raw& change();
    void resolve();
    void resolveLine(const LayerLook& layer, const Look& outer);
    double opacity(const LayerLook& layer, const Look& outer) const;

    PlotStyles& mStyles;
    const LayerSet& mFrozen;
    AcDbObjectId mLayerZero, mByLayer, mByBlock;
    Raw mRaw;
    Look mLook, mOutermost;
    bool mIsResolved = false;
    std::vector<Block> mBlocks;
};
} // namespace plot
