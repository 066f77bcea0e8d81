#pragma once

/// Draws a layout, or model space, with what its viewports show.

#include "SpacePlot.h"

class AcDbLayout;

namespace plot
{
/// `layout` is null for model space; `window` is what the page shows, in the space's coordinates.
void drawSheet(Canvas& canvas, PlotStyles& styles, const AcDbBlockTableRecord& block, const AcDbLayout* layout,
               const AcDbExtents2d& window);
} // namespace plot
