#include "LoadedModule.h"

#include <atlstr.h>

namespace
{
/// GCC warns of a cast between types of functions, which is what GetProcAddress is for.
template <class Function>
Function exported(HMODULE module, const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

std::wstring faultOf(const modules::LoadedModule& module)
{
    const auto version = exported<modules::ApiVersion>(module.handle, "acrxGetApiVersion");
    if (!version) return L"it has no acrxGetApiVersion.";
    CString text;
    if (version() != modules::apiVersion) {
        text.Format(L"it is made for version 0x%x of ObjectARX, and this is 0x%x.", version(), modules::apiVersion);
        return text.GetString();
    }
    return module.entry ? std::wstring() : L"it has no acrxEntryPoint.";
}

std::wstring reasonOf(DWORD error)
{
    switch (error) {
    case ERROR_MOD_NOT_FOUND: return L"the file or one it needs is not found.";
    case ERROR_BAD_EXE_FORMAT: return L"the file is no module.";
    case ERROR_PROC_NOT_FOUND: return L"a function it needs is missing.";
    case ERROR_DLL_INIT_FAILED: return L"its DllMain refused.";
    default: return L"error " + std::to_wstring(error) + L".";
    }
}
} // namespace

namespace modules
{
std::wstring nameOf(const std::wstring& path)
{
    const std::size_t at = path.find_last_of(L"\\/:");
    return at == std::wstring::npos ? path : path.substr(at + 1);
}

std::wstring openModule(const std::wstring& path, LoadedModule& module)
{
    module.handle = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!module.handle) return reasonOf(GetLastError());
    module.entry = exported<EntryPoint>(module.handle, "acrxEntryPoint");
    const std::wstring fault = faultOf(module);
    if (!fault.empty()) FreeLibrary(module.handle);
    return fault;
}
} // namespace modules
