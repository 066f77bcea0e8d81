#include <windows.h>

extern "C" int userValue();

// No DllMain of its own: the one of the module it is linked to is not to be called for it.
extern "C" __declspec(dllexport) int plainValue()
{
    return userValue() + 1;
}
