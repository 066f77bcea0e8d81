#include "ModuleSearch.h"
#include "ModuleTable.h"

#include "errhandlingapi.h"
#include "libloaderapi.h"
#include "winerror.h"

namespace
{
using win32::Module;

constexpr DWORD harmlessFlags = DONT_RESOLVE_DLL_REFERENCES | LOAD_WITH_ALTERED_SEARCH_PATH |
                                LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_APPLICATION_DIR |
                                LOAD_LIBRARY_SEARCH_USER_DIRS | LOAD_LIBRARY_SEARCH_SYSTEM32 |
                                LOAD_LIBRARY_SEARCH_DEFAULT_DIRS;
constexpr DWORD handleFlags = GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT |
                              GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS;

HMODULE failed(DWORD error)
{
    SetLastError(error);
    return nullptr;
}

HMODULE load(const std::wstring& name, DWORD flags)
{
    const auto lock = win32::lockModules();
    win32::attachLoadedModules();
    if (Module* loaded = win32::findLoaded(name)) {
        ++loaded->references;
        return win32::handleOf(loaded);
    }
    const std::string path = win32::findModuleFile(name, flags);
    if (path.empty()) return failed(ERROR_MOD_NOT_FOUND);
    const Module* module = win32::loadModule(path, !(flags & DONT_RESOLVE_DLL_REFERENCES));
    return module ? win32::handleOf(module) : nullptr;
}

Module* find(DWORD flags, LPCWSTR name)
{
    if (!name) return win32::findModule(nullptr);
    if (!(flags & GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS)) return win32::findLoaded(win32::moduleName(name));
    win32::LinkedObject* object = win32::objectOf(name);
    return object ? win32::moduleOf(object) : nullptr;
}
} // namespace

HMODULE WINAPI LoadLibraryExW(LPCWSTR name, HANDLE file, DWORD flags)
{
    if (flags & LOAD_LIBRARY_AS_DATAFILE) return failed(ERROR_NOT_SUPPORTED);
    if (!name || !*name || file || (flags & ~harmlessFlags)) return failed(ERROR_INVALID_PARAMETER);
    return load(win32::moduleName(name), flags);
}

HMODULE WINAPI LoadLibraryW(LPCWSTR name)
{
    return LoadLibraryExW(name, nullptr, 0);
}

BOOL WINAPI FreeLibrary(HMODULE handle)
{
    const auto lock = win32::lockModules();
    Module* module = handle ? win32::findModule(handle) : nullptr;
    if (!module || (module->references == 0 && !module->permanent))
        return failed(ERROR_MOD_NOT_FOUND) != nullptr;
    if (module->references > 0) --module->references;
    win32::unloadIfUnused(module);
    return TRUE;
}

FARPROC WINAPI GetProcAddress(HMODULE handle, LPCSTR name)
{
    const auto lock = win32::lockModules();
    const Module* module = win32::findModule(handle);
    if (!module) return nullptr;
    const bool ordinal = (reinterpret_cast<ULONG_PTR>(name) >> 16) == 0;
    void* address =
        ordinal || !module->handle ? nullptr : win32::ownSymbol(module->handle, module->object, name);
    if (!address) SetLastError(ERROR_PROC_NOT_FOUND);
    return reinterpret_cast<FARPROC>(address);
}

BOOL WINAPI GetModuleHandleExW(DWORD flags, LPCWSTR name, HMODULE* handle)
{
    if (!handle || (flags & ~handleFlags)) return failed(ERROR_INVALID_PARAMETER) != nullptr;
    const auto lock = win32::lockModules();
    Module* module = find(flags, name);
    *handle = module ? win32::handleOf(module) : failed(ERROR_MOD_NOT_FOUND);
    if (!module) return FALSE;
    if (flags & GET_MODULE_HANDLE_EX_FLAG_PIN)
        module->permanent = true;
    else if (!(flags & GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT))
        ++module->references;
    return TRUE;
}

HMODULE WINAPI GetModuleHandleW(LPCWSTR name)
{
    HMODULE handle = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT, name, &handle);
    return handle;
}

DWORD WINAPI GetModuleFileNameW(HMODULE handle, LPWSTR buffer, DWORD size)
{
    const auto lock = win32::lockModules();
    const Module* module = win32::findModule(handle);
    if (!module) return 0;
    const std::wstring path = win32::windowsPathOf(*module);
    if (buffer && size > path.size()) {
        buffer[path.copy(buffer, path.size())] = L'\0';
        return static_cast<DWORD>(path.size());
    }
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    if (!buffer || size == 0) return 0;
    buffer[path.copy(buffer, size - 1)] = L'\0';
    return size;
}

BOOL WINAPI DisableThreadLibraryCalls(HMODULE handle)
{
    const auto lock = win32::lockModules();
    return handle && win32::findModule(handle);
}
