#include "objbase.h"
#include "winerror.h"

#include <cstdlib>

namespace
{
struct Apartment {
    ULONG uses = 0;
    DWORD model = 0;
};
thread_local Apartment apartment;
} // namespace

HRESULT WINAPI CoInitializeEx(LPVOID, DWORD flags)
{
    const DWORD model = flags & COINIT_APARTMENTTHREADED;
    if (apartment.uses > 0 && apartment.model != model) return RPC_E_CHANGED_MODE;
    apartment.model = model;
    return apartment.uses++ == 0 ? S_OK : S_FALSE;
}

HRESULT WINAPI CoInitialize(LPVOID reserved)
{
    return CoInitializeEx(reserved, COINIT_APARTMENTTHREADED);
}

void WINAPI CoUninitialize()
{
    if (apartment.uses > 0) --apartment.uses;
}

LPVOID WINAPI CoTaskMemAlloc(SIZE_T size)
{
    return std::malloc(size ? size : 1);
}

LPVOID WINAPI CoTaskMemRealloc(LPVOID block, SIZE_T size)
{
    if (size) return std::realloc(block, size);
    std::free(block);
    return nullptr;
}

void WINAPI CoTaskMemFree(LPVOID block)
{
    std::free(block);
}
