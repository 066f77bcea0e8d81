#include "ModuleLog.h"

#include <windows.h>

extern "C" __declspec(dllexport) int baseValue()
{
    return 42;
}

extern "C" __declspec(dllexport) BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    moduleLog().push_back(reason == DLL_PROCESS_ATTACH ? "base attach" : "base detach");
    return TRUE;
}
