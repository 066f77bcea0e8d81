#pragma once

#include "Canvas.h"
#include "TextMetrics.h"

namespace plot
{
/// Fills a text's characters and draws its bars, which are a fifteenth of `height` thick, in the
/// transformation that holds.
void drawLettering(Canvas& canvas, const lettering::TextDrawing& drawing, double height, const Ink& ink);
} // namespace plot
