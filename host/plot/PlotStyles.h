#pragma once

/// What layers and line types of a drawing give to what is drawn on them.

#include "Canvas.h"
#include "dbdatabase.h"

#include <unordered_map>

namespace plot
{
/// What a layer shows and gives.
struct LayerLook {
    colors::Rgb color;
    double opacity = 1;
    int weight = 25; ///< hundredths of a millimetre, or lineweights::standard
    AcDbObjectId linetype;
    bool isOff = false; ///< or not to be plotted: what is inside its block references may be
    bool isFrozen = false;
};

/// The colour of an index on paper: 7, which shows against any ground, is black there.
colors::Rgb paperColor(const AcCmEntityColor& color);

/// Looks layers and line types up, each once. The drawing must not change meanwhile.
class PlotStyles
{
public:
    explicit PlotStyles(const AcDbDatabase& database) : mDatabase(database) {}

    const AcDbDatabase& database() const { return mDatabase; }
    /// A null or unknown id gives the layer "0" of a new drawing.
    const LayerLook& layer(AcDbObjectId id);
    /// Empty for a continuous line type. Shapes and texts of a line type are left out.
    const DashPattern& dashes(AcDbObjectId linetype);

private:
    const AcDbDatabase& mDatabase;
    std::unordered_map<AcDbObjectId, LayerLook> mLayers;
    std::unordered_map<AcDbObjectId, DashPattern> mDashes;
};
} // namespace plot
