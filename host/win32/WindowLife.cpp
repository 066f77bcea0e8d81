#include "DesktopFocus.h"
#include "MessageQueue.h"
#include "WindowTable.h"

#include "errhandlingapi.h"
#include "libloaderapi.h"
#include "processthreadsapi.h"
#include "winerror.h"

#include <algorithm>

namespace
{
using win32::Window;
using win32::WindowLock;

HWND failed(DWORD error)
{
    SetLastError(error);
    return nullptr;
}

RECT placeOf(const CREATESTRUCTW& asked)
{
    const bool child = (asked.style & WS_CHILD) != 0;
    RECT rect;
    rect.left = asked.x == CW_USEDEFAULT ? 0 : asked.x;
    rect.top = asked.x == CW_USEDEFAULT || asked.y == CW_USEDEFAULT ? 0 : asked.y;
    int width = asked.cx, height = asked.cy;
    if (width == CW_USEDEFAULT) {
        width = child ? 0 : GetSystemMetrics(SM_CXSCREEN);
        height = child ? 0 : GetSystemMetrics(SM_CYSCREEN);
    }
    rect.right = rect.left + std::max(width, 0);
    rect.bottom = rect.top + std::max(height, 0);
    return rect;
}

// A pop-up belongs to the top-level window of the parent it names, and lies in the desktop.
void setFamily(Window& window, const CREATESTRUCTW& asked)
{
    const bool child = (asked.style & WS_CHILD) != 0;
    window.parent = child ? asked.hwndParent : GetDesktopWindow();
    const bool owned = !child && asked.hwndParent != GetDesktopWindow() && asked.hwndParent != HWND_MESSAGE;
    window.owner = owned ? win32::rootOf(asked.hwndParent) : nullptr;
    window.id = child ? reinterpret_cast<LONG_PTR>(asked.hMenu) : 0;
}

DWORD faultOf(const CREATESTRUCTW& asked)
{
    const bool real = asked.hwndParent && asked.hwndParent != HWND_MESSAGE;
    if (real && !win32::findWindow(asked.hwndParent)) return ERROR_INVALID_WINDOW_HANDLE;
    if ((asked.style & WS_CHILD) && !real) return ERROR_TLW_WITH_WSCHILD;
    if (!win32::findClass(asked.lpszClass, asked.hInstance)) return ERROR_CANNOT_FIND_WND_CLASS;
    return ERROR_SUCCESS;
}

HWND addFrom(const CREATESTRUCTW& asked)
{
    Window window;
    window.windowClass = win32::findClass(asked.lpszClass, asked.hInstance);
    window.procedure = window.windowClass->procedure;
    window.instance = asked.hInstance;
    window.style = static_cast<DWORD>(asked.style) & ~static_cast<DWORD>(WS_VISIBLE);
    window.exStyle = asked.dwExStyle;
    window.thread = GetCurrentThreadId();
    window.extra.resize(static_cast<std::size_t>(window.windowClass->extraBytes));
    window.rect = window.normalRect = placeOf(asked);
    setFamily(window, asked);
    return win32::addWindow(std::move(window));
}

void sendPlace(HWND handle)
{
    RECT client{};
    GetClientRect(handle, &client);
    SendMessageW(handle, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right, client.bottom));
    RECT rect{};
    GetWindowRect(handle, &rect);
    MapWindowPoints(nullptr, GetAncestor(handle, GA_PARENT), reinterpret_cast<LPPOINT>(&rect), 1);
    SendMessageW(handle, WM_MOVE, 0, MAKELPARAM(rect.left, rect.top));
}

// The window procedure may refuse the window, or destroy it while it is being made.
bool introduce(HWND handle, CREATESTRUCTW& asked)
{
    if (!SendMessageW(handle, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&asked))) return false;
    return SendMessageW(handle, WM_CREATE, 0, reinterpret_cast<LPARAM>(&asked)) != -1 && IsWindow(handle);
}

void showAsAsked(HWND handle, LONG style)
{
    const auto bits = static_cast<DWORD>(style);
    if (!(bits & WS_VISIBLE)) return;
    ShowWindow(handle, bits & WS_MINIMIZE   ? SW_SHOWMINIMIZED
                       : bits & WS_MAXIMIZE ? SW_SHOWMAXIMIZED
                                            : SW_SHOW);
}

void destroyAll(const std::vector<HWND>& windows)
{
    for (HWND one : windows)
        if (IsWindow(one)) win32::destroyTree(one);
}

// Marks a window as going, so that a second DestroyWindow from its own WM_DESTROY does nothing.
bool beginDestruction(HWND handle)
{
    const WindowLock lock;
    Window* window = win32::findWindow(handle);
    if (!window || window->dying) return false;
    window->dying = true;
    return true;
}

std::vector<HWND> belowOf(HWND handle, bool owned)
{
    const WindowLock lock;
    return owned ? win32::ownedBy(handle) : win32::childrenOf(handle);
}
} // namespace

namespace win32
{
void destroyTree(HWND handle)
{
    if (!beginDestruction(handle)) return;
    destroyAll(belowOf(handle, true));
    if (IsWindowVisible(handle)) SetWindowPos(handle, nullptr, 0, 0, 0, 0, hideQuietly);
    leaveWindow(handle);
    SendMessageW(handle, WM_DESTROY, 0, 0);
    destroyAll(belowOf(handle, false));
    SendMessageW(handle, WM_NCDESTROY, 0, 0);
    dropMessagesOf(handle);
    const WindowLock lock;
    removeWindow(handle);
}
} // namespace win32

HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y,
                            int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                            LPVOID parameter)
{
    if (!instance) instance = GetModuleHandleW(nullptr);
    CREATESTRUCTW asked{parameter,  instance,  menu,   parent, height, width, y, x, static_cast<LONG>(style),
                        windowName, className, exStyle};
    HWND handle = nullptr;
    {
        const WindowLock lock;
        if (const DWORD fault = faultOf(asked)) return failed(fault);
        handle = addFrom(asked);
    }
    if (!introduce(handle, asked)) {
        win32::destroyTree(handle);
        return nullptr;
    }
    sendPlace(handle);
    showAsAsked(handle, asked.style);
    return IsWindow(handle) ? handle : nullptr;
}

BOOL WINAPI DestroyWindow(HWND handle)
{
    {
        const WindowLock lock;
        const Window* window = win32::requireWindow(handle);
        if (!window) return FALSE;
        if (!window->parent || window->thread != GetCurrentThreadId())
            return failed(ERROR_ACCESS_DENIED) != nullptr;
    }
    win32::destroyTree(handle);
    return TRUE;
}

BOOL WINAPI IsWindow(HWND handle)
{
    const WindowLock lock;
    return win32::findWindow(handle) != nullptr;
}

DWORD WINAPI GetWindowThreadProcessId(HWND handle, LPDWORD process)
{
    const WindowLock lock;
    const Window* window = win32::requireWindow(handle);
    if (!window) return 0;
    if (process) *process = GetCurrentProcessId();
    return window->thread;
}
