#pragma once

#include "winuser.h"

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace win32
{
struct WindowClass {
    std::wstring name;
    ATOM atom = 0;
    HINSTANCE instance = nullptr; // null: known to every module
    UINT style = 0;
    WNDPROC procedure = nullptr;
    int extraBytes = 0;
    int windows = 0; // how many windows of it exist
};

struct Window {
    HWND handle = nullptr;
    HWND parent = nullptr; // the desktop for top-level windows, null for the desktop itself
    HWND owner = nullptr;
    std::shared_ptr<WindowClass> windowClass;
    WNDPROC procedure = nullptr;
    HINSTANCE instance = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    LONG_PTR id = 0;
    LONG_PTR userData = 0;
    DWORD thread = 0;
    RECT rect{};       // in the parent's client coordinates
    RECT normalRect{}; // to come back to from the minimised or maximised state
    std::wstring text;
    std::vector<BYTE> extra;
    std::vector<HWND> children; // topmost first
    bool dying = false;
};

/// What all windows share: which exist, and which of them has the focus. The lock is held by whoever reads
/// or changes it, and let go before a window procedure is called: a Window* does not survive that call.
struct Desktop {
    HWND focus = nullptr;
    HWND active = nullptr;
    POINT cursor{};
};

/// Holds the lock on all windows while it lives.
class WindowLock
{
public:
    WindowLock();

private:
    std::unique_lock<std::recursive_mutex> lock_;
};

Desktop& desktop();
HWND desktopRoot();

/// The window of a handle, or null; `require` also sets ERROR_INVALID_WINDOW_HANDLE.
Window* findWindow(HWND handle);
Window* requireWindow(HWND handle);

/// Adds a window on top of its siblings under window.parent and gives it a handle.
HWND addWindow(Window window);

/// Takes a window without children out of the table.
void removeWindow(HWND handle);

/// Takes a window out of its parent's children, or puts it there: on top of the child `before`, or at the
/// bottom when that is null.
void unlinkWindow(Window& window);
void linkWindow(Window& window, HWND before);

/// The direct children, topmost first; every window below; the windows that `owner` owns.
std::vector<HWND> childrenOf(HWND parent);
std::vector<HWND> descendantsOf(HWND parent);
std::vector<HWND> ownedBy(HWND owner);

/// The class known to a module (not null) under a name or MAKEINTATOM number, or null.
std::shared_ptr<WindowClass> findClass(LPCWSTR name, HINSTANCE instance);

/// Where the client area of a window begins on the screen; (0, 0) for null and the desktop.
POINT clientOrigin(HWND handle);
bool isTopLevel(const Window& window);

/// The top-level window that a window lies in.
HWND rootOf(HWND handle);
} // namespace win32
