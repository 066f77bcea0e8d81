#include "DesktopFocus.h"

#include "WindowTable.h"

#include "errhandlingapi.h"
#include "winerror.h"

namespace
{
using win32::desktop;
using win32::Window;
using win32::WindowLock;

bool isEnabled(HWND handle)
{
    for (const Window* window = win32::findWindow(handle); window; window = win32::findWindow(window->parent))
        if (window->style & WS_DISABLED) return false;
    return true;
}

HWND replaceFocus(HWND handle)
{
    const WindowLock lock;
    const HWND before = desktop().focus;
    desktop().focus = handle;
    return before;
}

HWND replaceActive(HWND handle)
{
    const WindowLock lock;
    const HWND before = desktop().active;
    desktop().active = handle;
    return before;
}

WPARAM word(HWND handle)
{
    return reinterpret_cast<WPARAM>(handle);
}

// Tells both windows after the change, as their procedures may ask who has the focus.
HWND moveFocus(HWND handle)
{
    const HWND before = replaceFocus(handle);
    if (before == handle) return before;
    if (IsWindow(before)) SendMessageW(before, WM_KILLFOCUS, word(handle), 0);
    if (IsWindow(handle)) SendMessageW(handle, WM_SETFOCUS, word(before), 0);
    return before;
}

HWND moveActivation(HWND handle)
{
    const HWND before = replaceActive(handle);
    if (before == handle) return before;
    if (IsWindow(before)) SendMessageW(before, WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(handle));
    if (IsWindow(handle)) SendMessageW(handle, WM_ACTIVATE, WA_ACTIVE, reinterpret_cast<LPARAM>(before));
    return before;
}

bool canTakeOver(HWND candidate, HWND leaving)
{
    const Window* window = win32::findWindow(candidate);
    return window && candidate != leaving && !window->dying && (window->style & WS_VISIBLE) &&
           isEnabled(candidate);
}

HWND successorOf(HWND leaving)
{
    const WindowLock lock;
    const Window* window = win32::findWindow(leaving);
    if (window && window->owner && canTakeOver(window->owner, leaving)) return window->owner;
    for (HWND candidate : win32::childrenOf(GetDesktopWindow()))
        if (canTakeOver(candidate, leaving)) return candidate;
    return nullptr;
}

bool holdsFocus(HWND handle)
{
    const HWND focus = GetFocus();
    return focus && (focus == handle || IsChild(handle, focus));
}

// What keeps a window from taking the focus, or ERROR_SUCCESS.
DWORD faultOf(HWND handle)
{
    const WindowLock lock;
    if (!win32::findWindow(handle)) return ERROR_INVALID_WINDOW_HANDLE;
    return isEnabled(handle) ? ERROR_SUCCESS : ERROR_INVALID_PARAMETER;
}

void setDisabledBit(HWND handle, bool disabled)
{
    const WindowLock lock;
    if (Window* window = win32::findWindow(handle))
        window->style =
            disabled ? window->style | WS_DISABLED : window->style & ~static_cast<DWORD>(WS_DISABLED);
}
} // namespace

namespace win32
{
void leaveWindow(HWND handle)
{
    if (GetActiveWindow() == handle) moveActivation(successorOf(handle));
    if (holdsFocus(handle)) moveFocus(nullptr);
}
} // namespace win32

HWND WINAPI SetFocus(HWND handle)
{
    if (!handle) return moveFocus(nullptr);
    if (const DWORD fault = faultOf(handle)) {
        SetLastError(fault);
        return nullptr;
    }
    const HWND before = GetFocus();
    HWND root = nullptr;
    {
        const WindowLock lock;
        root = win32::rootOf(handle);
    }
    if (root != GetDesktopWindow()) moveActivation(root);
    moveFocus(handle);
    return before;
}

HWND WINAPI GetFocus()
{
    const WindowLock lock;
    return desktop().focus;
}

HWND WINAPI SetActiveWindow(HWND handle)
{
    {
        const WindowLock lock;
        const Window* window = win32::requireWindow(handle);
        if (!window) return nullptr;
        if (!win32::isTopLevel(*window)) return desktop().active;
    }
    return moveActivation(handle);
}

HWND WINAPI GetActiveWindow()
{
    const WindowLock lock;
    return desktop().active;
}

BOOL WINAPI SetForegroundWindow(HWND handle)
{
    {
        const WindowLock lock;
        const Window* window = win32::requireWindow(handle);
        if (!window || !win32::isTopLevel(*window) || !(window->style & WS_VISIBLE)) return FALSE;
    }
    BringWindowToTop(handle);
    moveActivation(handle);
    return TRUE;
}

HWND WINAPI GetForegroundWindow()
{
    return GetActiveWindow();
}

BOOL WINAPI EnableWindow(HWND handle, BOOL enable)
{
    {
        const WindowLock lock;
        if (!win32::requireWindow(handle)) return FALSE;
    }
    const bool wasDisabled = !IsWindowEnabled(handle);
    if (wasDisabled != (enable != FALSE)) return wasDisabled;
    if (!enable) SendMessageW(handle, WM_CANCELMODE, 0, 0);
    setDisabledBit(handle, !enable);
    if (!enable && holdsFocus(handle)) moveFocus(nullptr);
    SendMessageW(handle, WM_ENABLE, enable != FALSE, 0);
    return wasDisabled;
}

BOOL WINAPI IsWindowEnabled(HWND handle)
{
    const WindowLock lock;
    const Window* window = win32::requireWindow(handle);
    return window && !(window->style & WS_DISABLED);
}
