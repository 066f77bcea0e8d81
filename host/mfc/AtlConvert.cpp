#include "atlconv.h"

int AtlConvert(const char* from, wchar_t* to, int capacity, UINT codePage)
{
    return MultiByteToWideChar(codePage, 0, from, -1, to, capacity);
}

int AtlConvert(const wchar_t* from, char* to, int capacity, UINT codePage)
{
    return WideCharToMultiByte(codePage, 0, from, -1, to, capacity, nullptr, nullptr);
}
