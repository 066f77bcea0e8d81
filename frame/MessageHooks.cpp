#include "MessageHooks.h"

#include "acedads.h"
#include "CFamStuSysVar.h"
#include "CFamStuUcs.h"
#include "CGloableVar.h"
#include "CNoSpacebarInputControls.h"
#include "TextCommandLine.h"

namespace
{
void keepPickedPoint(LPARAM position)
{
    // Signed: a drag can leave the window on any side.
    const CPoint pixel(static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position)));
    acedDwgPoint point = {};
    if (acedCoordFromPixelToWorld(pixel, point) == 0) return;
    AcGePoint3d picked(point[X], point[Y], point[Z]);
    if (CFamStuUcs::DCSToWCS(picked)) g_CGloableVar.setLastPickedPoint(picked);
}

void watch(const MSG* message)
{
    const CWnd* view = acedGetAcadDwgView();
    if (!view) return;
    g_CGloableVar.setMouseInView(message->message == WM_MOUSEMOVE && message->hwnd == view->m_hWnd);
    if (message->message == WM_LBUTTONDOWN || message->message == WM_LBUTTONUP)
        keepPickedPoint(message->lParam);
}

/// Dynamic input takes single letters itself.
bool dynamicInputIsOn()
{
    int mode = 0;
    CFamStuSysVar::Get(L"DYNMODE", mode);
    return mode >= 1 && mode <= 3;
}

bool isHeldDown(int key)
{
    return (GetAsyncKeyState(key) & 0x8000) != 0;
}

// Any message whose wParam is the code of a letter counts: that the key is not held down any more is what
// makes the shortcut work once for each press.
void serveKeywordShortcut(WPARAM key)
{
    if (key < 'A' || key > 'Z' || !CNoSpacebarInputControls::isActive() || dynamicInputIsOn()) return;
    CString letter;
    letter.Format(L"%c", static_cast<wchar_t>(key));
    if (!isHeldDown(static_cast<int>(key))) CNoSpacebarInputControls::noSpacebarInputControls(letter);
}

void servePendingEnter()
{
    if (!g_CGloableVar.getPendingEnter()) return;
    g_CGloableVar.setPendingEnter(0);
    sendToCommandLine(VK_RETURN);
}

BOOL filter(MSG* message)
{
    serveKeywordShortcut(message->wParam);
    servePendingEnter();
    return FALSE;
}
} // namespace

void registerMessageHooks()
{
    acedRegisterWatchWinMsg(watch);
    acedRegisterFilterWinMsg(filter);
}
