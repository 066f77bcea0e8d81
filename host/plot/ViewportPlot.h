#pragma once

/// Draws what the viewports of a layout show.

#include "SpacePlot.h"

namespace plot
{
/// Model space as each viewport of a layout's block sees it, clipped to the viewport. `sheet` is the view of the layout
/// itself. Viewports that are off, and that of the sheet, show nothing; perspectives are drawn as parallel views.
void drawViewports(Canvas& canvas, PlotStyles& styles, const AcDbBlockTableRecord& block, const View& sheet);
} // namespace plot
