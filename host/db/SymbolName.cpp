#include "SymbolName.h"

#include <cwchar>

bool isSymbolName(const wchar_t* name)
{
    if (!name || !*name) return false;
    const wchar_t* rest = *name == L'*' ? name + 1 : name;
    if (!*rest || std::wcslen(name) > 255) return false;
    for (; *rest; ++rest) {
        if (*rest < L' ' || std::wcschr(L"<>/\\\":;?*,=`", *rest)) return false;
    }
    return true;
}
