#include "ModulePath.h"

namespace
{
// By an address, so that it does not matter whether the library entry has run yet.
HMODULE ownModule()
{
    static const char inThisModule = 0;
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&inThisModule), &module);
    return module;
}
} // namespace

CString modulePath()
{
    wchar_t path[MAX_PATH] = L"";
    const HMODULE module = ownModule(); // a null one would be the program
    const DWORD length = module ? GetModuleFileNameW(module, path, MAX_PATH) : 0;
    return CString(path, length < MAX_PATH ? static_cast<int>(length) : 0);
}

CString folderOf(const CString& path)
{
    return path.Left(path.ReverseFind(L'\\') + 1);
}

CString parentOfFolderOf(const CString& path)
{
    const CString folder = folderOf(path);
    const CString parent = folderOf(folder.Left(folder.GetLength() - 1));
    return parent.IsEmpty() ? folder : parent;
}
