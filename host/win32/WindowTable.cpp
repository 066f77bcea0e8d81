#include "WindowTable.h"

#include "ScreenSize.h"

#include "errhandlingapi.h"
#include "winerror.h"

#include <algorithm>
#include <map>

namespace
{
using win32::Window;

constexpr ULONG_PTR desktopHandle = 0x10010;
constexpr ULONG_PTR handleStep = 2;

struct Table {
    std::recursive_mutex mutex;
    std::map<HWND, Window> windows;
    ULONG_PTR lastHandle = desktopHandle;
    win32::Desktop desktop;
};

std::shared_ptr<win32::WindowClass> desktopClass()
{
    auto made = std::make_shared<win32::WindowClass>();
    made->name = L"#32769";
    made->procedure = DefWindowProcW;
    made->windows = 1;
    return made;
}

Window desktopWindow()
{
    Window window;
    window.handle = reinterpret_cast<HWND>(desktopHandle);
    window.windowClass = desktopClass();
    window.procedure = DefWindowProcW;
    window.style = WS_POPUP | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
    return window;
}

// Never destroyed: windows may go while the process ends.
Table& table()
{
    static Table& only = *[] {
        auto* made = new Table;
        Window root = desktopWindow();
        made->windows.emplace(root.handle, std::move(root));
        return made;
    }();
    return only;
}
} // namespace

namespace win32
{
WindowLock::WindowLock() : lock_(table().mutex) {}

Desktop& desktop()
{
    return table().desktop;
}

HWND desktopRoot()
{
    return table().windows.begin()->first;
}

Window* findWindow(HWND handle)
{
    const auto found = table().windows.find(handle);
    if (found == table().windows.end()) return nullptr;
    Window& window = found->second;
    if (!window.parent) window.rect = {0, 0, screenSize().cx, screenSize().cy};
    return &window;
}

Window* requireWindow(HWND handle)
{
    Window* window = findWindow(handle);
    if (!window) SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return window;
}

HWND addWindow(Window window)
{
    Table& all = table();
    all.lastHandle += handleStep;
    window.handle = reinterpret_cast<HWND>(all.lastHandle);
    ++window.windowClass->windows;
    Window& added = all.windows.emplace(window.handle, std::move(window)).first->second;
    std::vector<HWND>& siblings = findWindow(added.parent)->children;
    siblings.insert(siblings.begin(), added.handle);
    return added.handle;
}

void removeWindow(HWND handle)
{
    Window& window = *findWindow(handle);
    unlinkWindow(window);
    --window.windowClass->windows;
    table().windows.erase(handle);
}

void unlinkWindow(Window& window)
{
    std::vector<HWND>& siblings = findWindow(window.parent)->children;
    siblings.erase(std::remove(siblings.begin(), siblings.end(), window.handle), siblings.end());
}

void linkWindow(Window& window, HWND before)
{
    std::vector<HWND>& siblings = findWindow(window.parent)->children;
    siblings.insert(std::find(siblings.begin(), siblings.end(), before), window.handle);
}

std::vector<HWND> childrenOf(HWND parent)
{
    const Window* window = findWindow(parent);
    return window ? window->children : std::vector<HWND>();
}

std::vector<HWND> descendantsOf(HWND parent)
{
    std::vector<HWND> all;
    for (HWND child : childrenOf(parent)) {
        all.push_back(child);
        const std::vector<HWND> below = descendantsOf(child);
        all.insert(all.end(), below.begin(), below.end());
    }
    return all;
}

std::vector<HWND> ownedBy(HWND owner)
{
    std::vector<HWND> owned;
    for (const auto& [handle, window] : table().windows)
        if (window.owner == owner) owned.push_back(handle);
    return owned;
}

POINT clientOrigin(HWND handle)
{
    POINT origin{0, 0};
    for (const Window* window = findWindow(handle); window; window = findWindow(window->parent)) {
        origin.x += window->rect.left;
        origin.y += window->rect.top;
    }
    return origin;
}

bool isTopLevel(const Window& window)
{
    return reinterpret_cast<ULONG_PTR>(window.parent) == desktopHandle;
}

HWND rootOf(HWND handle)
{
    Window* window = findWindow(handle);
    while (window && window->parent && !isTopLevel(*window))
        window = findWindow(window->parent);
    return window ? window->handle : nullptr;
}
} // namespace win32
