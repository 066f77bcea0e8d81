#include "libloaderapi.h"

HMODULE WINAPI GetModuleHandleW(LPCWSTR)
{
    static HINSTANCE__ program;
    return &program;
}
