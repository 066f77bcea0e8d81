#pragma once

/// AutoCAD's windows, its message loop, and its colours.

#include "adesk.h"
#include "adsdef.h"

#include <afxwin.h>

using acedDwgPoint = ads_real[3];

/// Sees every message that AutoCAD's loop takes and that no filter has swallowed.
using AcedWatchWinMsgFn = void (*)(const MSG* message);
/// Sees every message first and may change it; TRUE swallows it.
using AcedFilterWinMsgFn = BOOL (*)(MSG* message);
/// Is called when the loop has nothing to do.
using AcedOnIdleMsgFn = void (*)();

// Hooks are called in the order of registration. FALSE for null, for one that is registered already, and for the removal of one
// that is not.

BOOL acedRegisterWatchWinMsg(AcedWatchWinMsgFn hook);
BOOL acedRemoveWatchWinMsg(AcedWatchWinMsgFn hook);
BOOL acedRegisterFilterWinMsg(AcedFilterWinMsgFn hook);
BOOL acedRemoveFilterWinMsg(AcedFilterWinMsgFn hook);
BOOL acedRegisterOnIdleWinMsg(AcedOnIdleMsgFn hook);
BOOL acedRemoveOnIdleWinMsg(AcedOnIdleMsgFn hook);

/// The main window; never null.
CMDIFrameWnd* acedGetAcadFrame();
/// The window that shows the drawing; null while there is none.
CView* acedGetAcadDwgView();
/// The command line: the characters it gets (WM_CHAR) are typed into the current document. Never null.
CWnd* acedGetAcadTextCmdLine();
/// The application object. GetIDispatch gives its automation object: "Preferences", of it "Files", of that "SupportPath".
CWinApp* acedGetAcadWinApp();

// Pixels of the drawing view, from its left and upper edges, and points of a viewport in its display coordinates (DCS;
// acedTrans takes them to others). Viewports go by number (CVPORT).

/// The point under a pixel, in the viewport there. Returns the viewport's number; 0, and `point` unchanged, when there
/// is no drawing.
int acedCoordFromPixelToWorld(const CPoint& pixel, acedDwgPoint point);
/// The point that a pixel means in a viewport, which need not lie there. FALSE when there is no such viewport.
BOOL acedCoordFromPixelToWorld(int number, CPoint pixel, acedDwgPoint point);
/// The nearest pixel to a point of a viewport. FALSE, and `pixel` unchanged, when there is no such viewport or the point
/// is not finite or too far away.
int acedCoordFromWorldToPixel(int number, const acedDwgPoint point, CPoint& pixel);
/// The number of the viewport at a pixel; 0 when there is no drawing.
int acedGetWinNum(int x, int y);

/// The colour of a number of the AutoCAD Color Index (0 ... 255) as 0x00RRGGBB; 0 and numbers without a colour are white as 7.
Adesk::UInt32 acedGetRGB(int color);
