#include "Errno.h"
#include "File.h"
#include "Path.h"

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

struct Request {
    std::string path;
    bool reads;
    bool writes;
    bool appends;
    bool deletes;
    DWORD share;
    DWORD disposition;
    DWORD attributes;

    bool createsNew() const { return disposition == CREATE_NEW; }
    bool mayCreate() const
    {
        return createsNew() || disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
    }
    bool empties() const { return disposition == CREATE_ALWAYS || disposition == TRUNCATE_EXISTING; }
    bool changes() const { return writes || appends || empties(); }
};

Request makeRequest(LPCWSTR path, DWORD access, DWORD share, DWORD disposition, DWORD attributes)
{
    Request request;
    request.path = toHostPath(path);
    request.reads = access & (GENERIC_READ | GENERIC_ALL | GENERIC_EXECUTE | FILE_READ_DATA);
    request.writes = access & (GENERIC_WRITE | GENERIC_ALL | FILE_WRITE_DATA);
    request.appends = !request.writes && (access & FILE_APPEND_DATA);
    request.deletes = (access & (DELETE | GENERIC_ALL)) || (attributes & FILE_FLAG_DELETE_ON_CLOSE);
    request.share = share;
    request.disposition = disposition;
    request.attributes = attributes;
    return request;
}

int openFlags(const Request& request)
{
    const int mode = request.changes() ? (request.reads || request.empties() ? O_RDWR : O_WRONLY) : O_RDONLY;
    return mode | (request.appends ? O_APPEND : 0) | O_CLOEXEC | O_NOCTTY;
}

/// Opens the file, and creates it where the disposition says so. Two processes may do so at once, hence
/// the second try. Gives -1 with errno on failure.
int openOrCreate(const Request& request, bool& existed)
{
    constexpr mode_t everybody = 0666;
    for (int attempt = 0;; ++attempt) {
        existed = true;
        int descriptor = request.createsNew() ? -1 : open(request.path.c_str(), openFlags(request));
        if (descriptor >= 0 || !request.mayCreate() || (!request.createsNew() && errno != ENOENT))
            return descriptor;
        existed = false;
        descriptor = open(request.path.c_str(), openFlags(request) | O_CREAT | O_EXCL, everybody);
        if (descriptor >= 0 || request.createsNew() || errno != EEXIST || attempt > 0) return descriptor;
    }
}

/// What the file itself forbids, before it is opened: a directory, a missing write permission.
DWORD refusal(const Request& request)
{
    struct stat info;
    if (stat(request.path.c_str(), &info) != 0) return NO_ERROR;
    if (request.createsNew()) return ERROR_FILE_EXISTS;
    if (S_ISDIR(info.st_mode)) {
        const bool isAllowed = (request.attributes & FILE_FLAG_BACKUP_SEMANTICS) && !request.changes();
        return isAllowed ? NO_ERROR : ERROR_ACCESS_DENIED;
    }
    const bool isReadOnly = !(info.st_mode & 0222);
    return isReadOnly && (request.changes() || request.deletes) ? ERROR_ACCESS_DENIED : NO_ERROR;
}

DWORD failure(const Request& request)
{
    if (errno == EEXIST) return ERROR_FILE_EXISTS;
    return errorOfPath(errno, request.path);
}

/// Gives the file to the caller; a new file that is to be read-only becomes so now, which leaves the open
/// descriptor its access.
HANDLE handOut(const Request& request, int descriptor, bool existed)
{
    struct stat info;
    fstat(descriptor, &info);
    const Opening opening{{info.st_dev, info.st_ino},
                          request.reads,
                          request.writes || request.appends,
                          request.deletes,
                          request.share};
    const bool deleteOnClose = request.attributes & FILE_FLAG_DELETE_ON_CLOSE;
    const auto file = std::make_shared<File>(descriptor, opening, request.path, deleteOnClose);
    if (!file->share()) return SetLastError(ERROR_SHARING_VIOLATION), INVALID_HANDLE_VALUE;
    if (existed && request.empties() && ftruncate(descriptor, 0) != 0)
        return SetLastError(errorOfErrno(errno)), INVALID_HANDLE_VALUE;
    if (!existed && (request.attributes & FILE_ATTRIBUTE_READONLY)) fchmod(descriptor, info.st_mode & ~0222u);
    const bool tells =
        existed && (request.disposition == CREATE_ALWAYS || request.disposition == OPEN_ALWAYS);
    SetLastError(tells ? ERROR_ALREADY_EXISTS : NO_ERROR);
    return openHandle(file);
}

bool isValid(const Request& request)
{
    if (request.disposition < CREATE_NEW || request.disposition > TRUNCATE_EXISTING) return false;
    return request.disposition != TRUNCATE_EXISTING || request.writes;
}
} // namespace

HANDLE WINAPI CreateFileW(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES, DWORD disposition,
                          DWORD attributes, HANDLE)
{
    const Request request = makeRequest(path, access, share, disposition, attributes);
    if (request.path.empty()) return INVALID_HANDLE_VALUE;
    if (!isValid(request)) return SetLastError(ERROR_INVALID_PARAMETER), INVALID_HANDLE_VALUE;
    if (const DWORD refused = refusal(request)) return SetLastError(refused), INVALID_HANDLE_VALUE;
    bool existed;
    const int descriptor = openOrCreate(request, existed);
    if (descriptor < 0) return SetLastError(failure(request)), INVALID_HANDLE_VALUE;
    return handOut(request, descriptor, existed);
}
