#include "CAppSoft.h"
#include "CFileShell.h"

#include <vector>

CGTStringW CAppSoft::GetPath()
{
    CGTStringW path;
    for (DWORD size = MAX_PATH;; size *= 2) {
        const DWORD length = GetModuleFileNameW(nullptr, path.GetBuffer(static_cast<int>(size)), size);
        path.ReleaseBuffer(static_cast<int>(length < size ? length : 0));
        if (length < size) return path;
    }
}

CGTStringW CAppSoft::GetName()
{
    return CFileShell::GetFileTitle(GetPath());
}

CGTStringW CAppSoft::GetInstallDir()
{
    return CFileShell::GetFilePath(GetPath());
}

CGTStringW CAppSoft::GetVersion()
{
    return GetVersion(GetPath());
}

CGTStringW CAppSoft::GetVersion(const CGTStringW& path)
{
    CGTStringW text;
    const DWORD size = GetFileVersionInfoSizeW(path, nullptr);
    std::vector<BYTE> block(size);
    VS_FIXEDFILEINFO* version = nullptr;
    UINT length = 0;
    if (size == 0 || !GetFileVersionInfoW(path, 0, size, block.data()) ||
        !VerQueryValueW(block.data(), L"\\", reinterpret_cast<LPVOID*>(&version), &length))
        return text;
    text.Format(L"%d.%d.%d.%d", HIWORD(version->dwFileVersionMS), LOWORD(version->dwFileVersionMS),
                HIWORD(version->dwFileVersionLS), LOWORD(version->dwFileVersionLS));
    return text;
}
