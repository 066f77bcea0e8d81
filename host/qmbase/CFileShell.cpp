#include "CFileShell.h"

#include <algorithm>

namespace
{
/// Where the name begins: behind the last separator or the drive.
int nameStart(const CGTStringW& path)
{
    return std::max({path.ReverseFind(L'\\'), path.ReverseFind(L'/'), path.ReverseFind(L':')}) + 1;
}

/// Where the extension's dot is, or the end. A name that begins with a dot has no extension by that.
int extensionStart(const CGTStringW& path)
{
    const int dot = path.ReverseFind(L'.');
    return dot > nameStart(path) ? dot : path.GetLength();
}

bool isDirectory(DWORD attributes)
{
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}
} // namespace

int CFileShell::IsFileExist(const CGTStringW& path)
{
    const DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !isDirectory(attributes);
}

int CFileShell::IsDirExist(const CGTStringW& path)
{
    const DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && isDirectory(attributes);
}

CGTStringW CFileShell::GetFileName(const CGTStringW& path)
{
    return path.Mid(nameStart(path));
}

CGTStringW CFileShell::GetFileTitle(const CGTStringW& path)
{
    const int start = nameStart(path);
    return path.Mid(start, extensionStart(path) - start);
}

CGTStringW CFileShell::GetFileExt(const CGTStringW& path)
{
    return path.Mid(extensionStart(path) + 1);
}

CGTStringW CFileShell::GetFilePath(const CGTStringW& path)
{
    return path.Left(nameStart(path));
}

int CFileShell::DelFile(const CGTStringW& path)
{
    return DeleteFileW(path) != FALSE;
}

int CFileShell::CopyFile(const CGTStringW& from, const CGTStringW& to, bool overwrite)
{
    return ::CopyFileW(from, to, !overwrite) != FALSE;
}

int CFileShell::CreateDir(const CGTStringW& path)
{
    CGTStringW folder = path;
    folder.TrimRight(L"\\/");
    if (folder.IsEmpty()) return 0;
    if (IsDirExist(folder) || CreateDirectoryW(folder, nullptr)) return 1;
    const CGTStringW above = GetFilePath(folder);
    if (GetLastError() != ERROR_PATH_NOT_FOUND || above.IsEmpty() || !CreateDir(above)) return 0;
    return CreateDirectoryW(folder, nullptr) != FALSE;
}
