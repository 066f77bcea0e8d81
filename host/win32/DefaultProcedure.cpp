#include "WindowTable.h"

#include <algorithm>

namespace
{
using win32::Window;
using win32::WindowLock;

LRESULT setText(HWND handle, LPCWSTR text)
{
    const WindowLock lock;
    Window* window = win32::findWindow(handle);
    if (!window) return FALSE;
    window->text = text ? text : L"";
    return TRUE;
}

LRESULT getText(HWND handle, std::size_t size, LPWSTR buffer)
{
    const WindowLock lock;
    const Window* window = win32::findWindow(handle);
    if (!window || size == 0 || !buffer) return 0;
    const std::size_t copied = window->text.copy(buffer, size - 1);
    buffer[copied] = L'\0';
    return static_cast<LRESULT>(copied);
}

LRESULT textLength(HWND handle)
{
    const WindowLock lock;
    const Window* window = win32::findWindow(handle);
    return window ? static_cast<LRESULT>(window->text.size()) : 0;
}

WPARAM sizeKind(HWND handle)
{
    return IsIconic(handle) ? SIZE_MINIMIZED : IsZoomed(handle) ? SIZE_MAXIMIZED : SIZE_RESTORED;
}

void reportPlace(HWND handle, const WINDOWPOS& now)
{
    if (!(now.flags & SWP_NOMOVE)) SendMessageW(handle, WM_MOVE, 0, MAKELPARAM(now.x, now.y));
    if (now.flags & SWP_NOSIZE) return;
    RECT client{};
    GetClientRect(handle, &client);
    SendMessageW(handle, WM_SIZE, sizeKind(handle), MAKELPARAM(client.right, client.bottom));
}

LRESULT systemCommand(HWND handle, WPARAM command)
{
    switch (command & 0xFFF0) { // the low four bits are the system's own
    case SC_CLOSE:
        SendMessageW(handle, WM_CLOSE, 0, 0);
        break;
    case SC_MINIMIZE:
        ShowWindow(handle, SW_MINIMIZE);
        break;
    case SC_MAXIMIZE:
        ShowWindow(handle, SW_SHOWMAXIMIZED);
        break;
    case SC_RESTORE:
        ShowWindow(handle, SW_RESTORE);
        break;
    default:
        break;
    }
    return 0;
}

LRESULT activated(HWND handle, WPARAM state)
{
    if (LOWORD(state) != WA_INACTIVE && !IsIconic(handle)) SetFocus(handle);
    return 0;
}
} // namespace

LRESULT WINAPI DefWindowProcW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_NCCREATE:
        setText(handle, reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpszName);
        return TRUE;
    case WM_SETTEXT:
        return setText(handle, reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXT:
        return getText(handle, wParam, reinterpret_cast<LPWSTR>(lParam));
    case WM_GETTEXTLENGTH:
        return textLength(handle);
    case WM_CLOSE:
        DestroyWindow(handle);
        return 0;
    case WM_WINDOWPOSCHANGED:
        reportPlace(handle, *reinterpret_cast<const WINDOWPOS*>(lParam));
        return 0;
    case WM_SYSCOMMAND:
        return systemCommand(handle, wParam);
    case WM_ACTIVATE:
        return activated(handle, wParam);
    case WM_QUERYOPEN:
    case WM_QUERYENDSESSION:
        return TRUE;
    default:
        return 0;
    }
}

LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure ? procedure(handle, message, wParam, lParam) : 0;
}

BOOL WINAPI SetWindowTextW(HWND handle, LPCWSTR text)
{
    return SendMessageW(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) > 0;
}

int WINAPI GetWindowTextW(HWND handle, LPWSTR buffer, int size)
{
    if (!buffer || size <= 0) return 0;
    buffer[0] = L'\0';
    return static_cast<int>(
        SendMessageW(handle, WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(buffer)));
}

int WINAPI GetWindowTextLengthW(HWND handle)
{
    return static_cast<int>(SendMessageW(handle, WM_GETTEXTLENGTH, 0, 0));
}
