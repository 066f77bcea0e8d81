#include "WindowTable.h"

#include "errhandlingapi.h"
#include "winerror.h"

namespace
{
using win32::Window;
using win32::WindowLock;

// Where Windows keeps minimised windows, and how large it makes them there.
constexpr RECT minimisedRect{-32000, -32000, -31840, -31972};

enum class Shape { same, normal, minimised, maximised };

struct Command {
    bool visible;
    bool activate;
    Shape shape;
};

Command meaning(int command)
{
    switch (command) {
    case SW_HIDE:
        return {false, false, Shape::same};
    case SW_SHOW:
        return {true, true, Shape::same};
    case SW_SHOWNA:
        return {true, false, Shape::same};
    case SW_SHOWNOACTIVATE:
        return {true, false, Shape::normal};
    case SW_SHOWMINIMIZED:
        return {true, true, Shape::minimised};
    case SW_MINIMIZE:
    case SW_FORCEMINIMIZE:
    case SW_SHOWMINNOACTIVE:
        return {true, false, Shape::minimised};
    case SW_SHOWMAXIMIZED:
        return {true, true, Shape::maximised};
    default:
        return {true, true, Shape::normal};
    }
}

Shape shapeOf(const Window& window)
{
    if (window.style & WS_MINIMIZE) return Shape::minimised;
    return window.style & WS_MAXIMIZE ? Shape::maximised : Shape::normal;
}

RECT rectOfShape(const Window& window, Shape shape)
{
    if (shape == Shape::minimised) return minimisedRect;
    if (shape == Shape::normal) return window.normalRect;
    const RECT parent = win32::findWindow(window.parent)->rect;
    return {0, 0, parent.right - parent.left, parent.bottom - parent.top};
}

DWORD bitOf(Shape shape)
{
    return shape == Shape::minimised ? WS_MINIMIZE : shape == Shape::maximised ? WS_MAXIMIZE : 0;
}

// Changes the style and gives the new rectangle; false when the window has that shape already.
bool changeShape(HWND handle, Shape shape, RECT& rect)
{
    const WindowLock lock;
    Window* window = win32::findWindow(handle);
    if (!window || shape == Shape::same || shape == shapeOf(*window)) return false;
    window->style = (window->style & ~static_cast<DWORD>(WS_MINIMIZE | WS_MAXIMIZE)) | bitOf(shape);
    rect = rectOfShape(*window, shape);
    return true;
}

bool hasVisibleBit(HWND handle)
{
    const WindowLock lock;
    const Window* window = win32::requireWindow(handle);
    return window && (window->style & WS_VISIBLE);
}
} // namespace

BOOL WINAPI ShowWindow(HWND handle, int command)
{
    const bool wasVisible = hasVisibleBit(handle);
    if (!IsWindow(handle)) return FALSE;
    const Command wanted = meaning(command);
    if (wanted.visible != wasVisible) SendMessageW(handle, WM_SHOWWINDOW, wanted.visible, 0);
    UINT flags = SWP_NOMOVE | SWP_NOSIZE;
    if (wanted.visible != wasVisible) flags |= wanted.visible ? SWP_SHOWWINDOW : SWP_HIDEWINDOW;
    if (!wanted.activate) flags |= SWP_NOACTIVATE | SWP_NOZORDER;
    RECT rect{};
    if (changeShape(handle, wanted.shape, rect))
        flags = (flags & ~(SWP_NOMOVE | SWP_NOSIZE)) | SWP_FRAMECHANGED;
    SetWindowPos(handle, HWND_TOP, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                 flags);
    return wasVisible;
}

BOOL WINAPI IsWindowVisible(HWND handle)
{
    const WindowLock lock;
    const Window* window = win32::requireWindow(handle);
    while (window && (window->style & WS_VISIBLE) && window->parent)
        window = win32::findWindow(window->parent);
    return window && (window->style & WS_VISIBLE);
}

BOOL WINAPI IsIconic(HWND handle)
{
    const WindowLock lock;
    const Window* window = win32::requireWindow(handle);
    return window && (window->style & WS_MINIMIZE);
}

BOOL WINAPI IsZoomed(HWND handle)
{
    const WindowLock lock;
    const Window* window = win32::requireWindow(handle);
    return window && (window->style & WS_MAXIMIZE);
}
