#include "acui.h"

namespace
{
HMODULE hostModule()
{
    HMODULE module = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    GetModuleHandleExW(flags, reinterpret_cast<LPCWSTR>(&InitAcUiDLL), &module);
    return module;
}
} // namespace

void InitAcUiDLL()
{
    // In the chain as long as the program runs: AutoCAD does not unload the library.
    static AFX_EXTENSION_MODULE state;
    static CDynLinkLibrary* library = nullptr;
    if (library || !AfxInitExtensionModule(state, hostModule())) return;
    library = new CDynLinkLibrary(state, TRUE);
}
