#include "WindowTable.h"

#include "errhandlingapi.h"
#include "winerror.h"

#include <cstring>

namespace
{
using win32::Window;
using win32::WindowLock;

LONG_PTR failed(DWORD error)
{
    SetLastError(error);
    return 0;
}

template <class T>
LONG_PTR asNumber(T* pointer)
{
    return reinterpret_cast<LONG_PTR>(pointer);
}

bool isExtra(const Window& window, int index, std::size_t width)
{
    return index >= 0 && static_cast<std::size_t>(index) + width <= window.extra.size();
}

LONG_PTR extraValue(const Window& window, int index, std::size_t width)
{
    if (!isExtra(window, index, width)) return failed(ERROR_INVALID_INDEX);
    LONG_PTR value = 0;
    LONG narrow = 0;
    std::memcpy(width == sizeof narrow ? static_cast<void*>(&narrow) : &value,
                &window.extra[static_cast<std::size_t>(index)], width);
    return width == sizeof narrow ? narrow : value;
}

LONG_PTR setExtraValue(Window& window, int index, LONG_PTR value, std::size_t width)
{
    if (!isExtra(window, index, width)) return failed(ERROR_INVALID_INDEX);
    const LONG_PTR before = extraValue(window, index, width);
    const auto narrow = static_cast<LONG>(value);
    std::memcpy(&window.extra[static_cast<std::size_t>(index)],
                width == sizeof narrow ? static_cast<const void*>(&narrow) : &value, width);
    return before;
}

LONG_PTR read(const Window& window, int index, std::size_t width)
{
    switch (index) {
    case GWL_STYLE:
        return static_cast<LONG>(window.style);
    case GWL_EXSTYLE:
        return static_cast<LONG>(window.exStyle);
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR>(window.procedure);
    case GWLP_HINSTANCE:
        return asNumber(window.instance);
    case GWLP_HWNDPARENT:
        return asNumber(win32::isTopLevel(window) ? window.owner : window.parent);
    case GWLP_ID:
        return window.id;
    case GWLP_USERDATA:
        return window.userData;
    default:
        return extraValue(window, index, width);
    }
}

void write(Window& window, int index, LONG_PTR value, std::size_t width)
{
    switch (index) {
    case GWL_STYLE:
        window.style = static_cast<DWORD>(value);
        break;
    case GWL_EXSTYLE:
        window.exStyle = static_cast<DWORD>(value);
        break;
    case GWLP_WNDPROC:
        window.procedure = reinterpret_cast<WNDPROC>(value);
        break;
    case GWLP_HINSTANCE:
        window.instance = reinterpret_cast<HINSTANCE>(value);
        break;
    case GWLP_ID:
        window.id = value;
        break;
    case GWLP_USERDATA:
        window.userData = value;
        break;
    default:
        setExtraValue(window, index, value, width);
        break;
    }
}

// The owner of a top-level window, the parent of a child: both must be windows, and not lie below it.
LONG_PTR setFamily(HWND handle, HWND relative)
{
    const WindowLock lock;
    Window& window = *win32::findWindow(handle);
    if (!win32::isTopLevel(window)) return asNumber(SetParent(handle, relative));
    if (relative && !win32::requireWindow(relative)) return 0;
    for (HWND up = relative; up; up = GetWindow(win32::rootOf(up), GW_OWNER))
        if (win32::rootOf(up) == handle) return failed(ERROR_INVALID_PARAMETER);
    const HWND before = window.owner;
    window.owner = relative ? win32::rootOf(relative) : nullptr;
    return asNumber(before);
}

LONG_PTR get(HWND handle, int index, std::size_t width)
{
    const WindowLock lock;
    const Window* window = win32::requireWindow(handle);
    return window ? read(*window, index, width) : 0;
}

LONG_PTR exchange(HWND handle, int index, LONG_PTR value, std::size_t width)
{
    const WindowLock lock;
    Window* window = win32::requireWindow(handle);
    if (!window) return 0;
    const LONG_PTR before = read(*window, index, width);
    write(*window, index, value, width);
    return before;
}

LONG_PTR exchangeStyle(HWND handle, int index, LONG_PTR value)
{
    STYLESTRUCT styles{static_cast<DWORD>(get(handle, index, sizeof(LONG))), static_cast<DWORD>(value)};
    const auto kind = static_cast<WPARAM>(static_cast<LONG_PTR>(index));
    SendMessageW(handle, WM_STYLECHANGING, kind, reinterpret_cast<LPARAM>(&styles));
    const LONG_PTR before = exchange(handle, index, static_cast<LONG>(styles.styleNew), sizeof(LONG));
    SendMessageW(handle, WM_STYLECHANGED, kind, reinterpret_cast<LPARAM>(&styles));
    return before;
}

LONG_PTR set(HWND handle, int index, LONG_PTR value, std::size_t width)
{
    {
        const WindowLock lock;
        const Window* window = win32::requireWindow(handle);
        if (!window) return 0;
        if (!window->parent) return failed(ERROR_ACCESS_DENIED);
    }
    if (index == GWL_STYLE || index == GWL_EXSTYLE) return exchangeStyle(handle, index, value);
    if (index == GWLP_HWNDPARENT) return setFamily(handle, reinterpret_cast<HWND>(value));
    if (index == GWLP_WNDPROC && !value) return failed(ERROR_INVALID_PARAMETER);
    return exchange(handle, index, value, width);
}

bool isPointer(int index)
{
    return index == GWLP_WNDPROC || index == GWLP_HINSTANCE || index == GWLP_HWNDPARENT;
}
} // namespace

LONG_PTR WINAPI GetWindowLongPtrW(HWND handle, int index)
{
    return get(handle, index, sizeof(LONG_PTR));
}

LONG_PTR WINAPI SetWindowLongPtrW(HWND handle, int index, LONG_PTR value)
{
    return set(handle, index, value, sizeof(LONG_PTR));
}

LONG WINAPI GetWindowLongW(HWND handle, int index)
{
    return static_cast<LONG>(isPointer(index) ? failed(ERROR_INVALID_INDEX)
                                              : get(handle, index, sizeof(LONG)));
}

LONG WINAPI SetWindowLongW(HWND handle, int index, LONG value)
{
    return static_cast<LONG>(isPointer(index) ? failed(ERROR_INVALID_INDEX)
                                              : set(handle, index, value, sizeof(LONG)));
}
