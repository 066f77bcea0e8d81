#include "ModuleLog.h"

#include <windows.h>

extern "C" int baseValue();

static HINSTANCE self;

extern "C" __declspec(dllexport) int userValue()
{
    return baseValue() * 2;
}

extern "C" __declspec(dllexport) HINSTANCE userInstance()
{
    return self;
}

extern "C" __declspec(dllexport) BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    self = instance;
    moduleLog().push_back(reason == DLL_PROCESS_ATTACH ? "user attach" : "user detach");
    return TRUE;
}
