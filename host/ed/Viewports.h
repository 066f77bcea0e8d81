#pragma once

/// The viewports of the current document, and the one that is active.

#include "dbid.h"
#include "dbviewport.h"
#include "dbvport.h"
#include "DisplayView.h"

#include <optional>
#include <vector>

namespace ed
{
enum class ViewportKind {
    tile,  ///< a part of the model tab: AcDbViewportTableRecord
    sheet, ///< the layout itself: its first AcDbViewport, if it has one
    window ///< a window of the layout onto model space: AcDbViewport
};

struct Viewport {
    ViewportKind kind = ViewportKind::tile;
    AcDbObjectId id; ///< null for the sheet of a layout that has not been shown yet
    int number = 0;  ///< as in CVPORT: 1 for the sheet, from 2 on for others; 0: there is no document
};

/// The one whose view and UCS count.
Viewport activeViewport();
/// Those of the current tab, the active one first; windows that are off are left out.
std::vector<Viewport> viewportsOfTab();
/// The one with a number, or of an object, of the current tab; its number is 0 when there is none.
Viewport viewportOfNumber(int number);
Viewport viewportOf(AcDbObjectId id);
/// Makes one of the tab active. A window or tile that keeps a UCS brings it along. eInvalidInput for one that
/// is not of the tab.
Acad::ErrorStatus activate(const Viewport& viewport);
/// The window that acedMspace goes to: the one that was active last, or the first; its number is 0 when there
/// is none.
Viewport windowToEnter();

DisplayView viewOf(const Viewport& viewport);
/// What a record keeps of a view. Whether the view follows the UCS is a matter of the viewport.
DisplayView viewOf(const AcDbAbstractViewTableRecord& record);
/// eInvalidInput for numbers that no view can have (a height that is not above 0, not finite), otherwise the
/// statuses of opening the object; nothing is changed then. A sheet without a viewport gets one.
Acad::ErrorStatus setView(const Viewport& viewport, const DisplayView& view);
/// From a window's display coordinates to the paper: x and y are scaled and moved, z is scaled.
AcGeMatrix3d displayToPaper(const AcDbViewport& window);
/// The window of a viewport of that kind; null for others.
const AcDbViewport* windowOf(const Viewport& viewport);
} // namespace ed
