#include "FileStatus.h"

#include <winerror.h>

namespace dxf
{
FileStatus statusOfError(DWORD code)
{
    switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
        return FileStatus::notFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
        return FileStatus::accessDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_FILE_TOO_LARGE:
        return FileStatus::diskFull;
    default:
        return FileStatus::failed;
    }
}
} // namespace dxf
