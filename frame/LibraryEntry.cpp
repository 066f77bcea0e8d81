/// DllMain: the module's part in MFC and in AutoCAD's user interface.

#include "acui.h"

#include <afxdllx.h>
#include <afxwin.h>

namespace
{
HINSTANCE instanceHandle = nullptr;
HINSTANCE resourceHandle = nullptr;
AFX_EXTENSION_MODULE extensionModule = {};
bool extensionIsInitialised = false;

void joinMfc(HINSTANCE instance)
{
    if (extensionIsInitialised || !AfxInitExtensionModule(extensionModule, instance)) return;
    extensionIsInitialised = true;
    resourceHandle = AfxGetModuleState()->m_hCurrentResourceHandle;
    instanceHandle = instance;
    new CDynLinkLibrary(extensionModule); // AfxTermExtensionModule deletes it
}

void attach(HINSTANCE instance)
{
    instanceHandle = instance;
    SetDllDirectoryW(L".\\");
    joinMfc(instance);
    InitAcUiDLL();
}

void detach()
{
    if (!extensionIsInitialised) return;
    AfxTermExtensionModule(extensionModule);
    resourceHandle = nullptr;
    instanceHandle = nullptr;
    extensionIsInitialised = false;
}
} // namespace

extern "C" __declspec(dllexport) BOOL APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) attach(instance);
    if (reason == DLL_PROCESS_DETACH) detach();
    return TRUE;
}
