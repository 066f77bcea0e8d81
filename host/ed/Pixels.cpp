/// Pixels of the drawing view and points of viewports.

#include "acedhooks.h"
#include "acedviews.h"
#include "Documents.h"
#include "PlanarCoords.h"
#include "Stub.h"
#include "VariableStore.h"
#include "WindowSize.h"

#include <cmath>

namespace
{
using ed::DisplayView;
using ed::PixelFrame;
using ed::Viewport;

PixelFrame wholeWindow()
{
    const SIZE size = ed::drawingWindowSize();
    return {0.0, 0.0, static_cast<double>(size.cx), static_cast<double>(size.cy)};
}

PixelFrame frameOfTile(const AcDbViewportTableRecord& tile)
{
    const PixelFrame all = wholeWindow();
    const AcGePoint2d low = tile.lowerLeftCorner(), high = tile.upperRightCorner();
    const double width = (high.x - low.x) * all.width, height = (high.y - low.y) * all.height;
    if (!(width > 0.0) || !(height > 0.0)) return all;
    return {low.x * all.width, (1.0 - high.y) * all.height, width, height};
}

PixelFrame frameOfWindow(const AcDbViewport& window)
{
    const PixelFrame all = wholeWindow();
    const DisplayView sheet = ed::viewOf(ed::viewportOfNumber(1));
    const double scale = all.height / sheet.height;
    const AcGePoint3d center = parallelToWorld(sheet).inverse() * window.centerPoint();
    const double x = all.width / 2.0 + (center.x - sheet.center.x) * scale;
    const double y = all.height / 2.0 - (center.y - sheet.center.y) * scale;
    const double width = window.width() * scale, height = window.height() * scale;
    return {x - width / 2.0, y - height / 2.0, width, height};
}

AcGePoint2d pointAt(const Viewport& viewport, double x, double y)
{
    const PixelFrame frame = pixelFrameOf(viewport);
    const DisplayView view = ed::viewOf(viewport);
    const double scale = view.height / frame.height;
    return {view.center.x + (x - frame.left - frame.width / 2.0) * scale,
            view.center.y - (y - frame.top - frame.height / 2.0) * scale};
}

/// The viewport that a pixel means: the active one, or the window under it when one works in windows.
Viewport viewportAt(double x, double y)
{
    const std::vector<Viewport> all = ed::viewportsOfTab();
    if (all.empty() || all.front().kind == ed::ViewportKind::sheet)
        return all.empty() ? Viewport() : all.front();
    for (const Viewport& one : all) {
        if (one.kind != ed::ViewportKind::sheet && pixelFrameOf(one).contains(x, y)) return one;
    }
    return all.front().kind == ed::ViewportKind::tile ? all.front() : ed::viewportOfNumber(1);
}

void setPoint(const AcGePoint2d& from, acedDwgPoint to)
{
    to[X] = from.x;
    to[Y] = from.y;
    to[Z] = 0.0;
}

[[maybe_unused]] const bool screenSizeBound = [] {
    ed::bindVariable(L"SCREENSIZE", RTPOINT,
                     {[] {
                          const Viewport active = ed::activeViewport();
                          const PixelFrame frame = active.number ? pixelFrameOf(active) : wholeWindow();
                          return ed::VariableValue::ofPoint({frame.width, frame.height, 0.0}, RTPOINT);
                      },
                      nullptr});
    return true;
}();
} // namespace

namespace ed
{
PixelFrame pixelFrameOf(const Viewport& viewport)
{
    if (const AcDbViewport* window = windowOf(viewport)) return frameOfWindow(*window);
    const auto* tile = AcDbViewportTableRecord::cast(residentObject(viewport.id));
    return tile ? frameOfTile(*tile) : wholeWindow();
}

double aspectOf(const Viewport& viewport)
{
    const PixelFrame frame = pixelFrameOf(viewport);
    return frame.width / frame.height;
}

double unitsPerPixel(const Viewport& viewport)
{
    return viewOf(viewport).height / pixelFrameOf(viewport).height;
}
} // namespace ed

int acedGetWinNum(int x, int y)
{
    return viewportAt(x, y).number;
}

int acedCoordFromPixelToWorld(const CPoint& pixel, acedDwgPoint point)
{
    const Viewport viewport = viewportAt(pixel.x, pixel.y);
    if (!point || viewport.number == 0) return 0;
    setPoint(pointAt(viewport, pixel.x, pixel.y), point);
    return viewport.number;
}

BOOL acedCoordFromPixelToWorld(int number, CPoint pixel, acedDwgPoint point)
{
    const Viewport viewport = ed::viewportOfNumber(number);
    if (!point || viewport.number == 0) return FALSE;
    setPoint(pointAt(viewport, pixel.x, pixel.y), point);
    return TRUE;
}

int acedCoordFromWorldToPixel(int number, const acedDwgPoint point, CPoint& pixel)
{
    const Viewport viewport = ed::viewportOfNumber(number);
    if (!point || viewport.number == 0 || !isFinite(AcGePoint2d(point[X], point[Y]))) return FALSE;
    const PixelFrame frame = ed::pixelFrameOf(viewport);
    const DisplayView view = ed::viewOf(viewport);
    const double scale = frame.height / view.height;
    const double x = frame.left + frame.width / 2.0 + (point[X] - view.center.x) * scale;
    const double y = frame.top + frame.height / 2.0 - (point[Y] - view.center.y) * scale;
    constexpr double most = 1e9; // far outside of any window, and an integer
    if (std::fabs(x) > most || std::fabs(y) > most) return FALSE;
    pixel = CPoint(static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y)));
    return TRUE;
}
