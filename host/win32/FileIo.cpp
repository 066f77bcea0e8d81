#include "Errno.h"
#include "File.h"
#include "FileClock.h"

#include "errhandlingapi.h"
#include "fileapi.h"
#include "winerror.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace
{
using namespace win32;

enum class Access { any, read, write };

/// The file of a handle that has the access; null with the last error set.
std::shared_ptr<File> fileOf(HANDLE handle, Access access)
{
    auto file = objectOf<File>(handle);
    if (!file) {
        SetLastError(ERROR_INVALID_HANDLE);
    } else if ((access == Access::read && !file->opening().reads) ||
               (access == Access::write && !file->opening().writes)) {
        SetLastError(ERROR_ACCESS_DENIED);
        file = nullptr;
    }
    return file;
}

/// Moves to the offset of `overlapped`, if there is one, and sees whether others have locked the bytes.
BOOL prepareTransfer(const File& file, DWORD count, const OVERLAPPED* overlapped)
{
    const int descriptor = file.descriptor();
    if (overlapped) {
        const auto offset = static_cast<off_t>(ULONGLONG(overlapped->OffsetHigh) << 32 | overlapped->Offset);
        if (lseek(descriptor, offset, SEEK_SET) < 0) return failWith(errorOfErrno(errno));
    }
    const off_t position = lseek(descriptor, 0, SEEK_CUR);
    if (position >= 0 && isLockedByOther(&file.opening(), static_cast<ULONGLONG>(position), count))
        return failWith(ERROR_LOCK_VIOLATION);
    return TRUE;
}

/// Calls transfer(done so far) until all is done, nothing more comes, or it fails.
template <class Transfer>
BOOL transferAll(DWORD count, DWORD& done, Transfer transfer)
{
    done = 0;
    while (done < count) {
        const ssize_t step = transfer(done);
        if (step == 0) break;
        if (step < 0 && errno == EINTR) continue;
        if (step < 0) return failWith(errorOfErrno(errno));
        done += static_cast<DWORD>(step);
    }
    return TRUE;
}

int whence(DWORD method)
{
    constexpr int methods[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    return method <= FILE_END ? methods[method] : -1;
}

/// The new position, or -1 with the last error set.
LONGLONG seek(HANDLE handle, LONGLONG distance, DWORD method)
{
    const auto file = fileOf(handle, Access::any);
    if (!file) return -1;
    if (whence(method) < 0) return failWith(ERROR_INVALID_PARAMETER), -1;
    const off_t position = lseek(file->descriptor(), distance, whence(method));
    if (position < 0) failWith(errno == EINVAL ? ERROR_NEGATIVE_SEEK : errorOfErrno(errno));
    return position;
}

ULONGLONG join(DWORD low, DWORD high)
{
    return ULONGLONG(high) << 32 | low;
}

/// The creation time where the file system keeps one.
timespec creationTime(const File& file, const struct stat& info)
{
    struct statx more;
    const bool isKnown =
        statx(file.descriptor(), "", AT_EMPTY_PATH, STATX_BTIME, &more) == 0 && (more.stx_mask & STATX_BTIME);
    if (!isKnown) return info.st_mtim;
    return {static_cast<time_t>(more.stx_btime.tv_sec), static_cast<long>(more.stx_btime.tv_nsec)};
}

timespec timeOrOmitted(const FILETIME* time)
{
    return time ? fromFileTime(*time) : timespec{0, UTIME_OMIT};
}
} // namespace

BOOL WINAPI ReadFile(HANDLE handle, LPVOID buffer, DWORD count, LPDWORD done, LPOVERLAPPED overlapped)
{
    if (done) *done = 0;
    if ((!done && !overlapped) || (!buffer && count > 0)) return failWith(ERROR_INVALID_PARAMETER);
    const auto file = fileOf(handle, Access::read);
    if (!file || !prepareTransfer(*file, count, overlapped)) return FALSE;
    DWORD total;
    const BOOL ok = transferAll(count, total, [&](DWORD from) {
        return read(file->descriptor(), static_cast<char*>(buffer) + from, count - from);
    });
    if (done) *done = total;
    return ok && overlapped && total == 0 && count > 0 ? failWith(ERROR_HANDLE_EOF) : ok;
}

BOOL WINAPI WriteFile(HANDLE handle, LPCVOID buffer, DWORD count, LPDWORD done, LPOVERLAPPED overlapped)
{
    if (done) *done = 0;
    if ((!done && !overlapped) || (!buffer && count > 0)) return failWith(ERROR_INVALID_PARAMETER);
    const auto file = fileOf(handle, Access::write);
    if (!file || !prepareTransfer(*file, count, overlapped)) return FALSE;
    DWORD total;
    const BOOL ok = transferAll(count, total, [&](DWORD from) {
        return write(file->descriptor(), static_cast<const char*>(buffer) + from, count - from);
    });
    if (done) *done = total;
    return ok;
}

BOOL WINAPI SetFilePointerEx(HANDLE handle, LARGE_INTEGER distance, PLARGE_INTEGER position, DWORD method)
{
    const LONGLONG reached = seek(handle, distance.QuadPart, method);
    if (reached >= 0 && position) position->QuadPart = reached;
    return reached >= 0;
}

DWORD WINAPI SetFilePointer(HANDLE handle, LONG distance, PLONG high, DWORD method)
{
    const LONGLONG whole =
        high ? static_cast<LONGLONG>(join(static_cast<DWORD>(distance), static_cast<DWORD>(*high)))
             : distance;
    const LONGLONG before = seek(handle, 0, FILE_CURRENT);
    const LONGLONG reached = before < 0 ? -1 : seek(handle, whole, method);
    if (reached < 0) return INVALID_SET_FILE_POINTER;
    if (!high && reached > 0xFFFFFFFFLL) {
        seek(handle, before, FILE_BEGIN);
        return SetLastError(ERROR_INVALID_PARAMETER), INVALID_SET_FILE_POINTER;
    }
    if (high) *high = static_cast<LONG>(reached >> 32);
    SetLastError(NO_ERROR);
    return static_cast<DWORD>(reached);
}

BOOL WINAPI SetEndOfFile(HANDLE handle)
{
    const auto file = fileOf(handle, Access::write);
    if (!file) return FALSE;
    const off_t position = lseek(file->descriptor(), 0, SEEK_CUR);
    if (position < 0 || ftruncate(file->descriptor(), position) != 0) return failWith(errorOfErrno(errno));
    return TRUE;
}

BOOL WINAPI GetFileSizeEx(HANDLE handle, PLARGE_INTEGER size)
{
    const auto file = fileOf(handle, Access::any);
    struct stat info;
    if (!file) return FALSE;
    if (!size) return failWith(ERROR_INVALID_PARAMETER);
    if (fstat(file->descriptor(), &info) != 0) return failWith(errorOfErrno(errno));
    size->QuadPart = info.st_size;
    return TRUE;
}

DWORD WINAPI GetFileSize(HANDLE handle, LPDWORD high)
{
    LARGE_INTEGER size;
    if (!GetFileSizeEx(handle, &size)) return INVALID_FILE_SIZE;
    if (high) *high = static_cast<DWORD>(size.QuadPart >> 32);
    SetLastError(NO_ERROR);
    return static_cast<DWORD>(size.QuadPart);
}

BOOL WINAPI FlushFileBuffers(HANDLE handle)
{
    const auto file = fileOf(handle, Access::write);
    if (!file) return FALSE;
    return fsync(file->descriptor()) == 0 ? TRUE : failWith(errorOfErrno(errno));
}

BOOL WINAPI LockFile(HANDLE handle, DWORD offset, DWORD offsetHigh, DWORD count, DWORD countHigh)
{
    const auto file = fileOf(handle, Access::any);
    if (!file) return FALSE;
    const bool isLocked = lockRange(&file->opening(), join(offset, offsetHigh), join(count, countHigh));
    return isLocked ? TRUE : failWith(ERROR_LOCK_VIOLATION);
}

BOOL WINAPI UnlockFile(HANDLE handle, DWORD offset, DWORD offsetHigh, DWORD count, DWORD countHigh)
{
    const auto file = fileOf(handle, Access::any);
    if (!file) return FALSE;
    const bool wasLocked = unlockRange(&file->opening(), join(offset, offsetHigh), join(count, countHigh));
    return wasLocked ? TRUE : failWith(ERROR_NOT_LOCKED);
}

BOOL WINAPI GetFileTime(HANDLE handle, LPFILETIME creation, LPFILETIME access, LPFILETIME write)
{
    const auto file = fileOf(handle, Access::any);
    struct stat info;
    if (!file) return FALSE;
    if (fstat(file->descriptor(), &info) != 0) return failWith(errorOfErrno(errno));
    if (creation) *creation = toFileTime(creationTime(*file, info));
    if (access) *access = toFileTime(info.st_atim);
    if (write) *write = toFileTime(info.st_mtim);
    return TRUE;
}

BOOL WINAPI SetFileTime(HANDLE handle, const FILETIME*, const FILETIME* access, const FILETIME* write)
{
    const auto file = fileOf(handle, Access::any);
    if (!file) return FALSE;
    const timespec times[] = {timeOrOmitted(access), timeOrOmitted(write)};
    return futimens(file->descriptor(), times) == 0 ? TRUE : failWith(errorOfErrno(errno));
}
