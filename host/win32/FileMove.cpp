#include "Errno.h"
#include "FileInfo.h"
#include "OpenFiles.h"
#include "Path.h"

#include "winbase.h"
#include "winerror.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <vector>

namespace
{
using namespace win32;

/// A file as it was found under a name.
struct Found {
    std::string path;
    struct stat info;
    bool exists;

    FileIdentity identity() const { return {info.st_dev, info.st_ino}; }
    bool isDirectory() const { return S_ISDIR(info.st_mode); }
};

/// False, with the last error set, only when the path itself cannot be.
bool lookUp(LPCWSTR path, Found& found)
{
    found.exists = findHostFile(path, found.path, found.info);
    return !found.path.empty();
}

/// A descriptor that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int value) : _value(value) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (_value >= 0) close(_value);
    }
    int value() const { return _value; }

private:
    int _value;
};

bool writeAll(int to, const char* bytes, ssize_t count)
{
    while (count > 0) {
        const ssize_t written = write(to, bytes, static_cast<std::size_t>(count));
        if (written < 0 && errno != EINTR) return false;
        if (written > 0) bytes += written, count -= written;
    }
    return true;
}

bool copyBytes(int from, int to)
{
    std::vector<char> buffer(1 << 18);
    for (;;) {
        const ssize_t count = read(from, buffer.data(), buffer.size());
        if (count == 0) return true;
        if (count < 0 && errno != EINTR) return false;
        if (count > 0 && !writeAll(to, buffer.data(), count)) return false;
    }
}

/// Copies contents, permissions and times; a copy that cannot be finished is removed.
BOOL copyFile(const Found& from, const std::string& to)
{
    const Descriptor source(open(from.path.c_str(), O_RDONLY | O_CLOEXEC));
    if (source.value() < 0) return failWith(errorOfPath(errno, from.path));
    const Descriptor target(open(to.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    if (target.value() < 0) return failWith(errorOfPath(errno, to));
    const timespec times[] = {from.info.st_atim, from.info.st_mtim};
    if (copyBytes(source.value(), target.value()) && fchmod(target.value(), from.info.st_mode & 07777) == 0 &&
        futimens(target.value(), times) == 0)
        return TRUE;
    const DWORD code = errorOfErrno(errno);
    unlink(to.c_str());
    return failWith(code);
}

/// What forbids to put something in the place of an existing file.
DWORD replaceRefusal(const Found& to)
{
    if (to.isDirectory() || isReadOnly(to.info)) return ERROR_ACCESS_DENIED;
    return mayDelete(to.identity()) ? NO_ERROR : ERROR_ACCESS_DENIED;
}

DWORD moveRefusal(const Found& from, const Found& to, DWORD flags)
{
    constexpr DWORD known = MOVEFILE_REPLACE_EXISTING | MOVEFILE_COPY_ALLOWED | MOVEFILE_WRITE_THROUGH;
    if (flags & ~known) return ERROR_INVALID_PARAMETER;
    if (!from.exists) return errorOfPath(ENOENT, from.path);
    if (!mayDelete(from.identity())) return ERROR_SHARING_VIOLATION;
    const bool isSame = to.exists && to.info.st_dev == from.info.st_dev && to.info.st_ino == from.info.st_ino;
    if (!to.exists || isSame) return NO_ERROR;
    return flags & MOVEFILE_REPLACE_EXISTING ? replaceRefusal(to) : ERROR_ALREADY_EXISTS;
}

BOOL moveAcrossFileSystems(const Found& from, const std::string& to)
{
    if (!copyFile(from, to)) return FALSE;
    return unlink(from.path.c_str()) == 0 ? TRUE : failWith(errorOfErrno(errno));
}

/// Keeps the contents of `replaced` under the name `backup`.
bool keepBackup(const std::string& replaced, const std::string& backup)
{
    if (unlink(backup.c_str()) != 0 && errno != ENOENT) return false;
    return link(replaced.c_str(), backup.c_str()) == 0;
}
} // namespace

BOOL WINAPI MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags)
{
    Found source, target;
    if (!lookUp(from, source) || !lookUp(to, target)) return FALSE;
    if (const DWORD refused = moveRefusal(source, target, flags)) return failWith(refused);
    // The new name is taken as it is written, also when the old one differs in case only. What is
    // replaced goes first under its own name: at every moment one of the two files is there.
    const std::string newName = toNewHostPath(to);
    const bool replaces = target.exists && target.path != source.path;
    const std::string& place = replaces ? target.path : newName;
    if (std::rename(source.path.c_str(), place.c_str()) == 0)
        return place == newName || std::rename(place.c_str(), newName.c_str()) == 0
                   ? TRUE
                   : failWith(errorOfErrno(errno));
    if (errno == EXDEV && (flags & MOVEFILE_COPY_ALLOWED) && !source.isDirectory())
        return moveAcrossFileSystems(source, place);
    return failWith(errno == ENOENT ? ERROR_PATH_NOT_FOUND : errorOfErrno(errno));
}

BOOL WINAPI MoveFileW(LPCWSTR from, LPCWSTR to)
{
    return MoveFileExW(from, to, MOVEFILE_COPY_ALLOWED);
}

BOOL WINAPI ReplaceFileW(LPCWSTR replaced, LPCWSTR replacement, LPCWSTR backup, DWORD, LPVOID exclude,
                         LPVOID reserved)
{
    Found target, source;
    if (exclude || reserved) return failWith(ERROR_INVALID_PARAMETER);
    if (!lookUp(replaced, target) || !lookUp(replacement, source)) return FALSE;
    if (!target.exists || !source.exists)
        return failWith(errorOfPath(ENOENT, target.exists ? source.path : target.path));
    if (target.isDirectory() || source.isDirectory() || isReadOnly(target.info))
        return failWith(ERROR_ACCESS_DENIED);
    if (!mayDelete(target.identity()) || !mayDelete(source.identity()))
        return failWith(ERROR_SHARING_VIOLATION);
    if (target.info.st_dev != source.info.st_dev) return failWith(ERROR_UNABLE_TO_MOVE_REPLACEMENT);
    if (backup) {
        const std::string kept = toHostPath(backup);
        if (kept.empty()) return FALSE;
        if (!keepBackup(target.path, kept)) return failWith(ERROR_UNABLE_TO_REMOVE_REPLACED);
    }
    chmod(source.path.c_str(), target.info.st_mode & 07777);
    if (std::rename(source.path.c_str(), target.path.c_str()) == 0) return TRUE;
    return failWith(ERROR_UNABLE_TO_MOVE_REPLACEMENT);
}

BOOL WINAPI CopyFileW(LPCWSTR from, LPCWSTR to, BOOL failIfExists)
{
    Found source, target;
    if (!lookUp(from, source) || !lookUp(to, target)) return FALSE;
    if (!source.exists) return failWith(errorOfPath(ENOENT, source.path));
    if (source.isDirectory()) return failWith(ERROR_ACCESS_DENIED);
    if (!target.exists) return copyFile(source, target.path);
    if (failIfExists) return failWith(ERROR_FILE_EXISTS);
    if (target.isDirectory() || isReadOnly(target.info)) return failWith(ERROR_ACCESS_DENIED);
    if (!mayDelete(target.identity())) return failWith(ERROR_SHARING_VIOLATION);
    const bool isSame = target.info.st_dev == source.info.st_dev && target.info.st_ino == source.info.st_ino;
    return isSame ? failWith(ERROR_SHARING_VIOLATION) : copyFile(source, target.path);
}
