#include "CAppSoft.h"
#include "CFileShell.h"

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
