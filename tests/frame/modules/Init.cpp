#include <windows.h>

extern "C" __declspec(dllexport) bool Init()
{
    return INIT_RESULT;
}
