#include "oleauto.h"

#include <cstdlib>
#include <cwchar>

namespace
{
constexpr std::size_t prefixSize = sizeof(UINT32);
constexpr UINT largest = 0x7fffffff - prefixSize - sizeof(OLECHAR);

BSTR allocate(std::size_t bytes)
{
    if (bytes > largest) return nullptr;
    auto* block = static_cast<char*>(std::malloc(prefixSize + bytes + sizeof(OLECHAR)));
    if (!block) return nullptr;
    const auto length = static_cast<UINT32>(bytes);
    std::memcpy(block, &length, prefixSize);
    std::memset(block + prefixSize + bytes, 0, sizeof(OLECHAR));
    return reinterpret_cast<BSTR>(block + prefixSize);
}

BSTR copyOf(const void* bytes, std::size_t length)
{
    const BSTR made = allocate(length);
    if (made && bytes) std::memcpy(made, bytes, length);
    return made;
}

char* blockOf(BSTR string)
{
    return reinterpret_cast<char*>(string) - prefixSize;
}
} // namespace

BSTR WINAPI SysAllocString(const OLECHAR* text)
{
    return text ? copyOf(text, std::wcslen(text) * sizeof(OLECHAR)) : nullptr;
}

BSTR WINAPI SysAllocStringLen(const OLECHAR* text, UINT length)
{
    return copyOf(text, std::size_t{length} * sizeof(OLECHAR));
}

BSTR WINAPI SysAllocStringByteLen(LPCSTR bytes, UINT length)
{
    return copyOf(bytes, length);
}

BOOL WINAPI SysReAllocString(BSTR* string, const OLECHAR* text)
{
    return SysReAllocStringLen(string, text, text ? static_cast<UINT>(std::wcslen(text)) : 0);
}

BOOL WINAPI SysReAllocStringLen(BSTR* string, const OLECHAR* text, UINT length)
{
    if (!string) return FALSE;
    const BSTR made = SysAllocStringLen(text, length);
    if (!made) return FALSE;
    SysFreeString(*string);
    *string = made;
    return TRUE;
}

void WINAPI SysFreeString(BSTR string)
{
    if (string) std::free(blockOf(string));
}

UINT WINAPI SysStringByteLen(BSTR string)
{
    UINT32 length = 0;
    if (string) std::memcpy(&length, blockOf(string), prefixSize);
    return length;
}

UINT WINAPI SysStringLen(BSTR string)
{
    return SysStringByteLen(string) / static_cast<UINT>(sizeof(OLECHAR));
}
