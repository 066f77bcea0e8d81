#include "NoCase.h"
#include "WindowTable.h"

#include "errhandlingapi.h"
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

HWND sibling(const Window& window, UINT relation)
{
    const std::vector<HWND> all =
        window.parent ? win32::childrenOf(window.parent) : std::vector{window.handle};
    const auto here = std::find(all.begin(), all.end(), window.handle);
    switch (relation) {
    case GW_HWNDFIRST:
        return all.front();
    case GW_HWNDLAST:
        return all.back();
    case GW_HWNDNEXT:
        return std::next(here) == all.end() ? nullptr : *std::next(here);
    case GW_HWNDPREV:
        return here == all.begin() ? nullptr : *std::prev(here);
    default:
        return failed(ERROR_INVALID_GW_COMMAND);
    }
}

bool callForEach(const std::vector<HWND>& windows, WNDENUMPROC procedure, LPARAM parameter)
{
    for (HWND one : windows)
        if (IsWindow(one) && !procedure(one, parameter)) return false;
    return true;
}

bool hasClass(const Window& window, LPCWSTR name)
{
    if (!name) return true;
    if (IS_INTRESOURCE(name))
        return window.windowClass->atom == static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(name));
    return win32::equalNoCase(window.windowClass->name, name);
}

bool hasText(const Window& window, LPCWSTR text)
{
    return !text || win32::equalNoCase(window.text, text);
}

std::vector<HWND> below(HWND parent, bool all)
{
    const WindowLock lock;
    return all ? win32::descendantsOf(parent) : win32::childrenOf(parent);
}
} // namespace

HWND WINAPI GetDesktopWindow()
{
    static const HWND handle = [] {
        const WindowLock lock;
        return win32::desktopRoot();
    }();
    return handle;
}

HWND WINAPI GetParent(HWND handle)
{
    const WindowLock lock;
    const Window* window = win32::requireWindow(handle);
    if (!window) return nullptr;
    return window->style & WS_CHILD ? window->parent : window->style & WS_POPUP ? window->owner : nullptr;
}

HWND WINAPI SetParent(HWND handle, HWND newParent)
{
    const WindowLock lock;
    Window* window = win32::requireWindow(handle);
    const HWND target = newParent ? newParent : GetDesktopWindow();
    if (!window || !win32::requireWindow(target)) return nullptr;
    if (!window->parent || target == handle || IsChild(handle, target))
        return failed(ERROR_INVALID_PARAMETER);
    const HWND before = window->parent;
    win32::unlinkWindow(*window);
    window->parent = target;
    const std::vector<HWND> siblings = win32::childrenOf(target);
    win32::linkWindow(*window, siblings.empty() ? nullptr : siblings.front());
    return before;
}

HWND WINAPI GetAncestor(HWND handle, UINT flag)
{
    const WindowLock lock;
    const Window* window = win32::requireWindow(handle);
    if (!window || !window->parent) return nullptr;
    if (flag == GA_PARENT) return window->parent;
    HWND root = win32::rootOf(handle);
    while (flag == GA_ROOTOWNER && win32::findWindow(root)->owner)
        root = win32::findWindow(root)->owner;
    return flag == GA_ROOT || flag == GA_ROOTOWNER ? root : failed(ERROR_INVALID_PARAMETER);
}

BOOL WINAPI IsChild(HWND parent, HWND handle)
{
    const WindowLock lock;
    const Window* window = win32::findWindow(handle);
    while (window && window->parent != parent)
        window = win32::findWindow(window->parent);
    return window && parent;
}

HWND WINAPI GetWindow(HWND handle, UINT relation)
{
    const WindowLock lock;
    const Window* window = win32::requireWindow(handle);
    if (!window) return nullptr;
    if (relation == GW_OWNER) return window->owner;
    if (relation == GW_CHILD) return window->children.empty() ? nullptr : window->children.front();
    return sibling(*window, relation);
}

BOOL WINAPI EnumWindows(WNDENUMPROC procedure, LPARAM parameter)
{
    return callForEach(below(GetDesktopWindow(), false), procedure, parameter);
}

BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC procedure, LPARAM parameter)
{
    return parent ? callForEach(below(parent, true), procedure, parameter)
                  : EnumWindows(procedure, parameter);
}

HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR windowName)
{
    const WindowLock lock;
    for (HWND handle : win32::childrenOf(GetDesktopWindow())) {
        const Window& window = *win32::findWindow(handle);
        if (hasClass(window, className) && hasText(window, windowName)) return handle;
    }
    return failed(ERROR_FILE_NOT_FOUND);
}

int WINAPI GetDlgCtrlID(HWND handle)
{
    const WindowLock lock;
    const Window* window = win32::requireWindow(handle);
    return window ? static_cast<int>(window->id) : 0;
}

HWND WINAPI GetDlgItem(HWND dialog, int id)
{
    const WindowLock lock;
    if (!win32::requireWindow(dialog)) return nullptr;
    for (HWND child : win32::childrenOf(dialog))
        if (static_cast<int>(win32::findWindow(child)->id) == id) return child;
    return failed(ERROR_CONTROL_ID_NOT_FOUND);
}
