#include "ProfileStore.h"

#include "AnsiCodePage.h"
#include "Errno.h"
#include "FileInfo.h"
#include "OpenFiles.h"

#include "errhandlingapi.h"
#include "winerror.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <list>

namespace
{
using namespace win32;

constexpr std::size_t keptFiles = 8;

/// Within this time of a change another one may leave the same time stamp.
constexpr long long clockGrainNs = 20'000'000;

long long nanoseconds(const timespec& time)
{
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

/// What tells one state of a file from another.
struct Stamp {
    dev_t device;
    ino_t inode;
    off_t size;
    long long written;
    long long changed; ///< cannot be set back
    UINT codePage;

    bool operator==(const Stamp& other) const
    {
        return device == other.device && inode == other.inode && size == other.size &&
               written == other.written && changed == other.changed && codePage == other.codePage;
    }
};

struct Kept {
    std::string path;
    Stamp stamp;
    bool isSettled; ///< read so long after its change that the stamp is proof
    std::shared_ptr<const ProfileFile> file;
};

std::list<Kept>& keptProfiles()
{
    static std::list<Kept> kept;
    return kept;
}

Stamp stampOf(const struct stat& info)
{
    return {info.st_dev,   info.st_ino, info.st_size, nanoseconds(info.st_mtim), nanoseconds(info.st_ctim),
            ansiCodePage()};
}

bool readAll(int descriptor, std::string& bytes)
{
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t step = read(descriptor, bytes.data() + done, bytes.size() - done);
        if (step == 0) bytes.resize(done);
        if (step < 0 && errno != EINTR) return false;
        if (step > 0) done += static_cast<std::size_t>(step);
    }
    return true;
}

bool writeAll(int descriptor, const std::string& bytes)
{
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t step = write(descriptor, bytes.data() + done, bytes.size() - done);
        if (step < 0 && errno != EINTR) return false;
        if (step > 0) done += static_cast<std::size_t>(step);
    }
    return true;
}

/// Reads and parses what is open; null when reading fails.
std::shared_ptr<const ProfileFile> parse(int descriptor, const std::string& path)
{
    struct stat info;
    if (fstat(descriptor, &info) != 0 || S_ISDIR(info.st_mode)) return failWith(ERROR_ACCESS_DENIED), nullptr;
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    std::string bytes(static_cast<std::size_t>(info.st_size), '\0');
    if (!readAll(descriptor, bytes)) return failWith(errorOfErrno(errno)), nullptr;
    const long long lastChange = std::max(nanoseconds(info.st_mtim), nanoseconds(info.st_ctim));
    const bool isSettled = nanoseconds(now) - lastChange > clockGrainNs;
    auto file = std::make_shared<const ProfileFile>(std::move(bytes));
    keptProfiles().push_front({path, stampOf(info), isSettled, file});
    if (keptProfiles().size() > keptFiles) keptProfiles().pop_back();
    return file;
}

/// The path behind symbolic links, which a replacement must not cut.
std::string realPath(const std::string& path)
{
    char resolved[PATH_MAX];
    return realpath(path.c_str(), resolved) ? resolved : path;
}

/// What forbids to write an existing file.
DWORD writeRefusal(const struct stat& info)
{
    if (S_ISDIR(info.st_mode) || isReadOnly(info)) return ERROR_ACCESS_DENIED;
    const Opening writing{{info.st_dev, info.st_ino}, true, true, false, 3};
    if (!addOpening(&writing)) return ERROR_SHARING_VIOLATION;
    removeOpening(&writing);
    return NO_ERROR;
}

/// Writes the new file beside the old one. Gives its name; empty, with the last error set, on failure.
std::string writeBeside(const std::string& path, const std::string& bytes, mode_t mode)
{
    std::string temporary = path + ".XXXXXX";
    const int descriptor = mkostemp(temporary.data(), O_CLOEXEC);
    if (descriptor < 0) {
        failWith(errno == ENOENT || errno == ENOTDIR ? ERROR_PATH_NOT_FOUND : errorOfErrno(errno));
        return {};
    }
    const bool isWritten = writeAll(descriptor, bytes) && fchmod(descriptor, mode) == 0;
    const DWORD code = isWritten ? NO_ERROR : errorOfErrno(errno);
    close(descriptor);
    if (isWritten) return temporary;
    unlink(temporary.c_str());
    failWith(code);
    return {};
}

mode_t newFileMode()
{
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}
} // namespace

namespace win32
{
std::shared_ptr<const ProfileFile> loadProfile(const std::string& path)
{
    struct stat info;
    if (stat(path.c_str(), &info) != 0) return failWith(errorOfPath(errno, path)), nullptr;
    std::list<Kept>& kept = keptProfiles();
    for (auto at = kept.begin(); at != kept.end(); ++at) {
        if (at->path != path) continue;
        if (at->isSettled && at->stamp == stampOf(info)) {
            kept.splice(kept.begin(), kept, at);
            return at->file;
        }
        kept.erase(at);
        break;
    }
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return failWith(errorOfPath(errno, path)), nullptr;
    auto file = parse(descriptor, path);
    close(descriptor);
    return file;
}

BOOL storeProfile(const std::string& hostPath, const std::string& bytes)
{
    const std::string path = realPath(hostPath);
    struct stat info;
    const bool exists = stat(path.c_str(), &info) == 0;
    if (const DWORD refused = exists ? writeRefusal(info) : NO_ERROR) return failWith(refused);
    const std::string temporary = writeBeside(path, bytes, exists ? info.st_mode & 07777 : newFileMode());
    if (temporary.empty()) return FALSE;
    if (std::rename(temporary.c_str(), path.c_str()) == 0) return TRUE;
    const DWORD code = errorOfErrno(errno);
    unlink(temporary.c_str());
    return failWith(code);
}
} // namespace win32
