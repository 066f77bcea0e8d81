#include "CtransStr.h"

#include <string>

namespace
{
/// The position where the file name of a path starts.
int startOfName(const CString& path)
{
    int at = path.GetLength();
    while (at > 0 && path[at - 1] != L'\\' && path[at - 1] != L'/' && path[at - 1] != L':')
        --at;
    return at;
}

/// The full name of the running program; empty when it cannot be had.
CString programFile()
{
    constexpr DWORD longestPath = 32768;
    std::wstring file(longestPath, L'\0');
    const DWORD length = GetModuleFileNameW(nullptr, &file[0], longestPath);
    return length < longestPath ? CString(file.data(), static_cast<int>(length)) : CString();
}
} // namespace

CString CtransStr::GetFileName(const CString& path)
{
    return path.Mid(startOfName(path));
}

CString CtransStr::GetFilePath(const CString& path)
{
    return path.Left(startOfName(path));
}

CString CtransStr::GetFilePrefix(const CString& path)
{
    const CString name = GetFileName(path);
    const int point = name.ReverseFind(L'.');
    return point < 0 ? name : name.Left(point);
}

CString CtransStr::GetFileNameFormat(const CString& path)
{
    const CString name = GetFileName(path);
    const int point = name.ReverseFind(L'.');
    return point < 0 ? CString() : name.Mid(point + 1);
}

CString CtransStr::GetAppCommonDir()
{
    return GetFilePath(programFile());
}
