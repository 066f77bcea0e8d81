#include "NameTable.h"
#include "NoCase.h"
#include "WindowTable.h"

#include "errhandlingapi.h"
#include "libloaderapi.h"
#include "winerror.h"

#include <algorithm>

namespace
{
using win32::WindowClass;
using win32::WindowLock;
using Classes = std::vector<std::shared_ptr<WindowClass>>;

std::shared_ptr<WindowClass> textHolder(const wchar_t* name)
{
    auto made = std::make_shared<WindowClass>();
    made->name = name;
    made->atom = win32::numberOfName(name);
    made->style = CS_GLOBALCLASS;
    made->procedure = DefWindowProcW;
    return made;
}

Classes& classes()
{
    static Classes& all = *new Classes{textHolder(L"Static"), textHolder(L"Button"), textHolder(L"Edit")};
    return all;
}

// Asked before the windows are locked: DllMain makes windows while the modules are locked.
HINSTANCE moduleOf(HINSTANCE instance)
{
    return instance ? instance : GetModuleHandleW(nullptr);
}

bool isNamed(const WindowClass& windowClass, LPCWSTR name)
{
    if (IS_INTRESOURCE(name)) return windowClass.atom == static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(name));
    return win32::equalNoCase(windowClass.name, name);
}

Classes::iterator find(LPCWSTR name, HINSTANCE instance)
{
    return std::find_if(classes().begin(), classes().end(),
                        [=](const auto& one) { return one->instance == instance && isNamed(*one, name); });
}

Classes::iterator findGlobal(LPCWSTR name)
{
    return std::find_if(classes().begin(), classes().end(), [=](const auto& one) {
        return (one->style & CS_GLOBALCLASS) != 0 && isNamed(*one, name);
    });
}

ATOM failed(DWORD error)
{
    SetLastError(error);
    return 0;
}

bool isUsable(const WNDCLASSEXW& asked)
{
    return asked.lpfnWndProc && asked.lpszClassName && !IS_INTRESOURCE(asked.lpszClassName) &&
           *asked.lpszClassName && asked.cbWndExtra >= 0 && asked.cbClsExtra >= 0;
}

ATOM add(const WNDCLASSEXW& asked)
{
    const HINSTANCE instance = moduleOf(asked.hInstance);
    const WindowLock lock;
    if (find(asked.lpszClassName, instance) != classes().end()) return failed(ERROR_CLASS_ALREADY_EXISTS);
    auto made = std::make_shared<WindowClass>();
    made->name = asked.lpszClassName;
    made->atom = win32::numberOfName(made->name);
    made->instance = instance;
    made->style = asked.style;
    made->procedure = asked.lpfnWndProc;
    made->extraBytes = asked.cbWndExtra;
    classes().push_back(made);
    return made->atom;
}
} // namespace

namespace win32
{
std::shared_ptr<WindowClass> findClass(LPCWSTR name, HINSTANCE instance)
{
    if (!name) return nullptr;
    auto found = find(name, instance);
    if (found == classes().end()) found = findGlobal(name);
    return found == classes().end() ? nullptr : *found;
}
} // namespace win32

ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* windowClass)
{
    const bool known = windowClass && windowClass->cbSize == sizeof(WNDCLASSEXW);
    return known && isUsable(*windowClass) ? add(*windowClass) : failed(ERROR_INVALID_PARAMETER);
}

ATOM WINAPI RegisterClassW(const WNDCLASSW* from)
{
    if (!from) return failed(ERROR_INVALID_PARAMETER);
    const WNDCLASSEXW extended{sizeof(WNDCLASSEXW), from->style,        from->lpfnWndProc,   from->cbClsExtra,
                               from->cbWndExtra,    from->hInstance,    from->hIcon,         from->hCursor,
                               from->hbrBackground, from->lpszMenuName, from->lpszClassName, nullptr};
    return RegisterClassExW(&extended);
}

BOOL WINAPI UnregisterClassW(LPCWSTR className, HINSTANCE instance)
{
    const HINSTANCE owner = moduleOf(instance);
    const WindowLock lock;
    const auto found = className ? find(className, owner) : classes().end();
    if (found == classes().end()) return failed(ERROR_CLASS_DOES_NOT_EXIST);
    if ((*found)->windows > 0) return failed(ERROR_CLASS_HAS_WINDOWS);
    classes().erase(found);
    return TRUE;
}

int WINAPI GetClassNameW(HWND handle, LPWSTR buffer, int size)
{
    const WindowLock lock;
    const win32::Window* window = win32::requireWindow(handle);
    if (!window) return 0;
    if (!buffer || size <= 0) return failed(ERROR_INSUFFICIENT_BUFFER);
    const std::wstring& name = window->windowClass->name;
    const std::size_t copied = name.copy(buffer, static_cast<std::size_t>(size) - 1);
    buffer[copied] = L'\0';
    return static_cast<int>(copied);
}
