#include "PlotStyles.h"

#include "LineWeights.h"
#include "Stub.h"
#include "dblayer.h"
#include "dblinetp.h"

namespace plot
{
namespace
{
LayerLook lookOf(const AcDbLayerTableRecord& layer)
{
    LayerLook look;
    look.color = paperColor(layer.entityColor());
    const AcCmTransparency transparency = layer.transparency();
    if (transparency.isByAlpha()) look.opacity = transparency.alphaPercent();
    look.weight = layer.lineWeight();
    look.linetype = layer.linetypeObjectId();
    // AutoCAD never plots the layer of definition points.
    const bool isPlotted = layer.isPlottable() && layer.name().CompareNoCase(L"Defpoints") != 0;
    look.isOff = layer.isOff() || !isPlotted;
    look.isFrozen = layer.isFrozen();
    return look;
}

DashPattern dashesOf(const AcDbLinetypeTableRecord& linetype)
{
    DashPattern dashes;
    for (int i = 0; i < linetype.numDashes(); ++i)
        dashes.push_back(linetype.dashLengthAt(i));
    return dashes;
}
} // namespace

colors::Rgb paperColor(const AcCmEntityColor& color)
{
    if (color.isByColor()) return {color.red(), color.green(), color.blue()};
    const int index = color.colorIndex();
    const bool hasOwn = index > 0 && index < 256 && index != AcCmEntityColor::kACIforeground;
    return hasOwn ? colors::rgbOfIndex(index) : colors::Rgb{0, 0, 0};
}

const LayerLook& PlotStyles::layer(AcDbObjectId id)
{
    const auto [at, isNew] = mLayers.try_emplace(id);
    const auto* record = isNew ? AcDbLayerTableRecord::cast(residentObject(id)) : nullptr;
    if (record) at->second = lookOf(*record);
    return at->second;
}

const DashPattern& PlotStyles::dashes(AcDbObjectId linetype)
{
    const auto [at, isNew] = mDashes.try_emplace(linetype);
    const auto* record = isNew ? AcDbLinetypeTableRecord::cast(residentObject(linetype)) : nullptr;
    if (record) at->second = dashesOf(*record);
    return at->second;
}
} // namespace plot
