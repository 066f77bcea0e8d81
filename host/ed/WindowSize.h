#pragma once

/// Where viewports lie in the window that shows the drawing, in pixels.

#include "Viewports.h"

namespace ed
{
/// The size of the drawing view, whether a document is open or not.
SIZE drawingWindowSize();

/// Pixels from the left and upper edges of the drawing view.
struct PixelFrame {
    double left, top, width, height;
    bool contains(double x, double y) const
    {
        return x >= left && x <= left + width && y >= top && y <= top + height;
    }
};
PixelFrame pixelFrameOf(const Viewport& viewport);
/// The width of a viewport in its height.
double aspectOf(const Viewport& viewport);
/// Display units of a viewport per pixel.
double unitsPerPixel(const Viewport& viewport);
} // namespace ed
