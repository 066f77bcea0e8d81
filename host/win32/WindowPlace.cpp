#include "DesktopFocus.h"
#include "WindowTable.h"

#include "errhandlingapi.h"
#include "winerror.h"

#include <algorithm>

namespace
{
using win32::Window;
using win32::WindowLock;

RECT rectOf(const WINDOWPOS& wanted)
{
    return {wanted.x, wanted.y, wanted.x + std::max(wanted.cx, 0), wanted.y + std::max(wanted.cy, 0)};
}

bool isPlace(HWND after)
{
    return after == HWND_TOP || after == HWND_BOTTOM || after == HWND_TOPMOST || after == HWND_NOTOPMOST;
}

bool isTopmost(HWND handle)
{
    const Window* window = win32::findWindow(handle);
    return window && (window->exStyle & WS_EX_TOPMOST);
}

// The sibling that the window shall lie on top of; null is the bottom. Topmost windows stay above others.
HWND nextBelow(const Window& window, HWND after)
{
    const std::vector<HWND> siblings = win32::childrenOf(window.parent);
    auto place = siblings.begin();
    if (after == HWND_BOTTOM)
        place = siblings.end();
    else if (!isPlace(after))
        place = std::next(std::find(siblings.begin(), siblings.end(), after));
    while (place != siblings.end() && !isTopmost(window.handle) && isTopmost(*place))
        ++place;
    return place == siblings.end() ? nullptr : *place;
}

void setTopmost(Window& window, HWND after)
{
    if (!win32::isTopLevel(window)) return;
    if (after == HWND_TOPMOST) window.exStyle |= WS_EX_TOPMOST;
    if (after == HWND_NOTOPMOST || after == HWND_BOTTOM) window.exStyle &= ~static_cast<DWORD>(WS_EX_TOPMOST);
}

bool changeDepth(Window& window, HWND after)
{
    const std::vector<HWND> before = win32::childrenOf(window.parent);
    setTopmost(window, after);
    win32::unlinkWindow(window);
    win32::linkWindow(window, nextBelow(window, after));
    return win32::childrenOf(window.parent) != before;
}

// Fills what the flags leave alone with the present values, so that receivers see real numbers.
void complete(WINDOWPOS& wanted, const Window& window)
{
    if (wanted.flags & SWP_NOMOVE) {
        wanted.x = window.rect.left;
        wanted.y = window.rect.top;
    }
    if (wanted.flags & SWP_NOSIZE) {
        wanted.cx = window.rect.right - window.rect.left;
        wanted.cy = window.rect.bottom - window.rect.top;
    }
}

bool changeVisibility(Window& window, UINT flags)
{
    const DWORD before = window.style;
    if (flags & SWP_SHOWWINDOW) window.style |= WS_VISIBLE;
    if (flags & SWP_HIDEWINDOW) window.style &= ~static_cast<DWORD>(WS_VISIBLE);
    return window.style != before;
}

// Applies the change; what did not change is marked in the flags. Returns whether anything did.
bool apply(Window& window, WINDOWPOS& wanted)
{
    complete(wanted, window);
    const RECT before = window.rect;
    const RECT now = rectOf(wanted);
    window.rect = now;
    if (!(window.style & (WS_MINIMIZE | WS_MAXIMIZE))) window.normalRect = now;
    wanted.cx = now.right - now.left;
    wanted.cy = now.bottom - now.top;
    if (now.left == before.left && now.top == before.top) wanted.flags |= SWP_NOMOVE;
    const bool sameSize = wanted.cx == before.right - before.left && wanted.cy == before.bottom - before.top;
    if (sameSize) wanted.flags |= SWP_NOSIZE;
    if (wanted.flags & SWP_NOZORDER || !changeDepth(window, wanted.hwndInsertAfter))
        wanted.flags |= SWP_NOZORDER;
    const bool shown = changeVisibility(window, wanted.flags);
    constexpr UINT nothing = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER;
    return shown || (wanted.flags & nothing) != nothing || (wanted.flags & SWP_FRAMECHANGED);
}

DWORD faultOf(const Window& window, HWND after, UINT flags)
{
    if (!window.parent) return ERROR_ACCESS_DENIED;
    if ((flags & SWP_NOZORDER) || isPlace(after) || after == window.handle) return ERROR_SUCCESS;
    const Window* sibling = win32::findWindow(after);
    return sibling && sibling->parent == window.parent ? ERROR_SUCCESS : ERROR_INVALID_WINDOW_HANDLE;
}

// Asks the window for its consent to the change. False when the window is gone or the values are wrong.
bool prepare(WINDOWPOS& wanted)
{
    {
        const WindowLock lock;
        const Window* window = win32::requireWindow(wanted.hwnd);
        if (!window) return false;
        if (const DWORD fault = faultOf(*window, wanted.hwndInsertAfter, wanted.flags)) {
            SetLastError(fault);
            return false;
        }
        if (wanted.hwndInsertAfter == wanted.hwnd) wanted.flags |= SWP_NOZORDER;
        complete(wanted, *window);
    }
    if (!(wanted.flags & SWP_NOSENDCHANGING))
        SendMessageW(wanted.hwnd, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&wanted));
    return true;
}

bool applyLocked(WINDOWPOS& wanted)
{
    const WindowLock lock;
    Window* window = win32::findWindow(wanted.hwnd);
    if (!window || faultOf(*window, wanted.hwndInsertAfter, wanted.flags)) return false;
    return apply(*window, wanted);
}

bool isShownTopLevel(HWND handle)
{
    const WindowLock lock;
    const Window* window = win32::findWindow(handle);
    return window && win32::isTopLevel(*window) && (window->style & WS_VISIBLE);
}

void activateIfAsked(const WINDOWPOS& done, UINT flags)
{
    if (done.flags & SWP_HIDEWINDOW) win32::leaveWindow(done.hwnd);
    const bool raised = (flags & SWP_SHOWWINDOW) || !(flags & SWP_NOZORDER);
    const bool top = done.hwndInsertAfter == HWND_TOP || done.hwndInsertAfter == HWND_TOPMOST;
    const bool refused = (flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW)) != 0;
    if (raised && top && !refused && isShownTopLevel(done.hwnd)) SetActiveWindow(done.hwnd);
}
} // namespace

BOOL WINAPI SetWindowPos(HWND handle, HWND after, int x, int y, int width, int height, UINT flags)
{
    WINDOWPOS wanted{handle, after, x, y, width, height, flags};
    if (!prepare(wanted)) return FALSE;
    if (applyLocked(wanted)) SendMessageW(handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&wanted));
    activateIfAsked(wanted, flags);
    return TRUE;
}

BOOL WINAPI MoveWindow(HWND handle, int x, int y, int width, int height, BOOL repaint)
{
    const UINT redraw = repaint ? 0 : SWP_NOREDRAW;
    return SetWindowPos(handle, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE | redraw);
}

BOOL WINAPI BringWindowToTop(HWND handle)
{
    return SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

BOOL WINAPI GetWindowRect(HWND handle, LPRECT rect)
{
    const WindowLock lock;
    const Window* window = win32::requireWindow(handle);
    if (!window || !rect) return FALSE;
    const POINT origin = win32::clientOrigin(handle);
    *rect = {origin.x, origin.y, origin.x + window->rect.right - window->rect.left,
             origin.y + window->rect.bottom - window->rect.top};
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND handle, LPRECT rect)
{
    const WindowLock lock;
    const Window* window = win32::requireWindow(handle);
    if (!window || !rect) return FALSE;
    const bool minimised = (window->style & WS_MINIMIZE) != 0;
    *rect = {0, 0, minimised ? 0 : window->rect.right - window->rect.left,
             minimised ? 0 : window->rect.bottom - window->rect.top};
    return TRUE;
}

int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count)
{
    const WindowLock lock;
    if ((from && !win32::requireWindow(from)) || (to && !win32::requireWindow(to))) return 0;
    const POINT source = win32::clientOrigin(from), target = win32::clientOrigin(to);
    const LONG dx = source.x - target.x, dy = source.y - target.y;
    for (UINT i = 0; points && i < count; ++i) {
        points[i].x += dx;
        points[i].y += dy;
    }
    return MAKELONG(static_cast<WORD>(dx), static_cast<WORD>(dy));
}

BOOL WINAPI ScreenToClient(HWND handle, LPPOINT point)
{
    const WindowLock lock;
    if (!win32::requireWindow(handle) || !point) return FALSE;
    MapWindowPoints(nullptr, handle, point, 1);
    return TRUE;
}

BOOL WINAPI ClientToScreen(HWND handle, LPPOINT point)
{
    const WindowLock lock;
    if (!win32::requireWindow(handle) || !point) return FALSE;
    MapWindowPoints(handle, nullptr, point, 1);
    return TRUE;
}

BOOL WINAPI GetCursorPos(LPPOINT point)
{
    const WindowLock lock;
    if (point) *point = win32::desktop().cursor;
    return point != nullptr;
}

BOOL WINAPI SetCursorPos(int x, int y)
{
    const WindowLock lock;
    win32::desktop().cursor = {x, y};
    return TRUE;
}
