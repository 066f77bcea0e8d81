#include "Errno.h"
#include "FileInfo.h"
#include "OpenFiles.h"
#include "Path.h"

#include "errhandlingapi.h"
#include "winerror.h"

#include <unistd.h>

#include <cerrno>

namespace
{
using namespace win32;

/// Finds the file or directory; the last error is set when there is none.
bool find(LPCWSTR path, std::string& host, struct stat& info)
{
    if (findHostFile(path, host, info)) return true;
    if (!host.empty()) SetLastError(errorOfPath(errno, host));
    return false;
}
} // namespace

BOOL WINAPI DeleteFileW(LPCWSTR path)
{
    std::string host;
    struct stat info;
    if (!find(path, host, info)) return FALSE;
    if (S_ISDIR(info.st_mode) || isReadOnly(info)) return failWith(ERROR_ACCESS_DENIED);
    if (!mayDelete({info.st_dev, info.st_ino})) return failWith(ERROR_SHARING_VIOLATION);
    return unlink(host.c_str()) == 0 ? TRUE : failWith(errorOfPath(errno, host));
}

DWORD WINAPI GetFileAttributesW(LPCWSTR path)
{
    std::string host;
    struct stat info;
    return find(path, host, info) ? attributesOf(info) : INVALID_FILE_ATTRIBUTES;
}

BOOL WINAPI SetFileAttributesW(LPCWSTR path, DWORD attributes)
{
    std::string host;
    struct stat info;
    if (!find(path, host, info)) return FALSE;
    const bool toReadOnly = attributes & FILE_ATTRIBUTE_READONLY;
    if (S_ISDIR(info.st_mode) || isReadOnly(info) == toReadOnly) return TRUE;
    const mode_t mode = toReadOnly ? info.st_mode & ~0222u : info.st_mode | 0200;
    return chmod(host.c_str(), mode & 07777) == 0 ? TRUE : failWith(errorOfErrno(errno));
}

BOOL WINAPI GetFileAttributesExW(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data)
{
    std::string host;
    struct stat info;
    if (level != GetFileExInfoStandard || !data) return failWith(ERROR_INVALID_PARAMETER);
    if (!find(path, host, info)) return FALSE;
    describe(info, *static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(data));
    return TRUE;
}

BOOL WINAPI CreateDirectoryW(LPCWSTR path, LPSECURITY_ATTRIBUTES)
{
    const std::string host = toHostPath(path);
    if (host.empty()) return FALSE;
    if (mkdir(host.c_str(), 0777) == 0) return TRUE;
    return failWith(errno == ENOENT ? ERROR_PATH_NOT_FOUND : errorOfErrno(errno));
}

BOOL WINAPI RemoveDirectoryW(LPCWSTR path)
{
    std::string host;
    struct stat info;
    if (!find(path, host, info)) return FALSE;
    if (!S_ISDIR(info.st_mode)) return failWith(ERROR_DIRECTORY);
    return rmdir(host.c_str()) == 0 ? TRUE : failWith(errorOfPath(errno, host));
}
