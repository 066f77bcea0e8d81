#include "ModuleLog.h"

#include <windows.h>

extern "C" int baseValue();

extern "C" __declspec(dllexport) BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    moduleLog().push_back(reason == DLL_PROCESS_ATTACH ? "refusing attach" : "refusing detach");
    return baseValue() != 42;
}
