#include "Buffer.h"
#include "Errno.h"
#include "Path.h"

#include "errhandlingapi.h"
#include "fileapi.h"
#include "winbase.h"
#include "winerror.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cwchar>

namespace
{
using namespace win32;

bool isDirectory(const std::string& host)
{
    struct stat info;
    return stat(host.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::wstring tempDirectory()
{
    const char* named = std::getenv("TMPDIR");
    std::wstring path = fullPath(toWindowsPath(named && *named ? named : "/tmp"));
    if (!isSeparator(path.back())) path += L'\\';
    return path;
}

std::wstring tempName(const std::wstring& start, UINT number)
{
    wchar_t tail[16];
    std::swprintf(tail, 16, L"%X.TMP", number);
    return start + tail;
}

/// Creates an empty file under the first free number; 0 with the last error set when that fails.
UINT createTempFile(const std::wstring& start)
{
    static std::atomic<UINT> last{static_cast<UINT>(getpid()) * 37};
    for (int attempt = 0; attempt < 0x10000; ++attempt) {
        const UINT number = ++last & 0xFFFF;
        if (number == 0) continue;
        const std::string host = toHostPath(tempName(start, number).c_str());
        const int descriptor = open(host.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor >= 0) return close(descriptor), number;
        if (errno != EEXIST) return failWith(errorOfPath(errno, host)), 0;
    }
    return failWith(ERROR_FILE_EXISTS), 0;
}
} // namespace

DWORD WINAPI GetFullPathNameW(LPCWSTR path, DWORD size, LPWSTR buffer, LPWSTR* filePart)
{
    const std::wstring full = path ? fullPath(path) : L"";
    if (filePart) *filePart = nullptr;
    if (full.empty()) return static_cast<DWORD>(failWith(ERROR_INVALID_NAME));
    const DWORD result = copyOut(full, buffer, size);
    if (result == full.size() && filePart && !isSeparator(full.back())) *filePart = buffer + nameStart(full);
    return result;
}

DWORD WINAPI GetTempPathW(DWORD size, LPWSTR buffer)
{
    return copyOut(tempDirectory(), buffer, size);
}

UINT WINAPI GetTempFileNameW(LPCWSTR directory, LPCWSTR prefix, UINT unique, LPWSTR buffer)
{
    if (!directory || !buffer) return failWith(ERROR_INVALID_PARAMETER), 0;
    if (!isDirectory(toHostPath(directory))) return failWith(ERROR_DIRECTORY), 0;
    std::wstring start = directory;
    if (!isSeparator(start.back())) start += L'\\';
    start += std::wstring(prefix ? prefix : L"").substr(0, 3);
    if (start.size() + 8 >= MAX_PATH) return failWith(ERROR_BUFFER_OVERFLOW), 0;
    const UINT number = unique & 0xFFFF ? unique & 0xFFFF : createTempFile(start);
    if (number != 0) copyOut(tempName(start, number), buffer, MAX_PATH);
    return number;
}

UINT WINAPI GetDriveTypeW(LPCWSTR root)
{
    const std::wstring full = fullPath(root && *root ? root : L"\\");
    std::string directory;
    if (!driveRoot(full[0], directory) || !isDirectory(toHostPath(full.c_str()))) return DRIVE_NO_ROOT_DIR;
    return DRIVE_FIXED;
}

DWORD WINAPI GetCurrentDirectoryW(DWORD size, LPWSTR buffer)
{
    std::wstring path = fullPath(L".");
    if (path.size() > 3 && isSeparator(path.back())) path.pop_back();
    return copyOut(path, buffer, size);
}

BOOL WINAPI SetCurrentDirectoryW(LPCWSTR path)
{
    const std::string host = toHostPath(path);
    if (host.empty()) return FALSE;
    if (chdir(host.c_str()) == 0) return TRUE;
    return failWith(errno == ENOTDIR ? ERROR_DIRECTORY : errorOfPath(errno, host));
}
