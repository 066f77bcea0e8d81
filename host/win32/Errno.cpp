#include "Errno.h"

#include "errhandlingapi.h"
#include "winerror.h"

#include <sys/stat.h>

#include <cerrno>

namespace
{
struct Pair {
    int error;
    DWORD code;
};

constexpr Pair pairs[] = {
    {ENOENT, ERROR_FILE_NOT_FOUND},
    {ENOTDIR, ERROR_PATH_NOT_FOUND},
    {ELOOP, ERROR_PATH_NOT_FOUND},
    {EACCES, ERROR_ACCESS_DENIED},
    {EPERM, ERROR_ACCESS_DENIED},
    {EISDIR, ERROR_ACCESS_DENIED},
    {EROFS, ERROR_WRITE_PROTECT},
    {EEXIST, ERROR_ALREADY_EXISTS},
    {ENOTEMPTY, ERROR_DIR_NOT_EMPTY},
    {ENOSPC, ERROR_DISK_FULL},
    {EDQUOT, ERROR_DISK_FULL},
    {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENFILE, ERROR_TOO_MANY_OPEN_FILES},
    {EXDEV, ERROR_NOT_SAME_DEVICE},
    {EINVAL, ERROR_INVALID_PARAMETER},
    {ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE},
    {EBADF, ERROR_INVALID_HANDLE},
    {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
    {EIO, ERROR_IO_DEVICE},
    {EFBIG, ERROR_FILE_TOO_LARGE},
    {ETXTBSY, ERROR_SHARING_VIOLATION},
    {EBUSY, ERROR_BUSY},
    {EPIPE, ERROR_BROKEN_PIPE},
    {ESPIPE, ERROR_SEEK_ON_DEVICE},
};
} // namespace

namespace win32
{
DWORD errorOfErrno(int error)
{
    for (const Pair& pair : pairs)
        if (pair.error == error) return pair.code;
    return ERROR_GEN_FAILURE;
}

DWORD errorOfPath(int error, const std::string& path)
{
    if (error != ENOENT) return errorOfErrno(error);
    struct stat info;
    const std::string parent = path.substr(0, path.rfind('/'));
    const bool hasParent = parent.empty() || (stat(parent.c_str(), &info) == 0 && S_ISDIR(info.st_mode));
    return hasParent ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
}

BOOL failWith(DWORD code)
{
    SetLastError(code);
    return FALSE;
}
} // namespace win32
