#include "crtpath.h"

#include "Path.h"
#include "Text.h"

#include <cerrno>
#include <unistd.h>

namespace
{
constexpr UINT ansi = 0;

/// The path on this machine; empty with errno set when there is none.
std::string hostPath(const wchar_t* path)
{
    std::string found = path ? win32::toHostPath(path) : std::string();
    if (found.empty()) errno = path ? ENOENT : EINVAL;
    return found;
}

/// The mode for the C library: the letters that mean something there. Empty when the mode is none.
std::string hostMode(const wchar_t* mode)
{
    std::string host;
    for (; mode && *mode && *mode != ','; ++mode) {
        const bool isMeant = host.empty() ? wcschr(L"rwa", *mode) != nullptr : *mode == '+' || *mode == 'b';
        if (isMeant) host += static_cast<char>(*mode);
    }
    return mode && *mode ? std::string() : host;
}
} // namespace

FILE* _wfopen(const wchar_t* path, const wchar_t* mode)
{
    const std::string letters = hostMode(mode);
    if (!letters.empty()) {
        const std::string file = hostPath(path);
        return file.empty() ? nullptr : std::fopen(file.c_str(), (letters + "e").c_str());
    }
    errno = EINVAL;
    return nullptr;
}

errno_t _wfopen_s(FILE** file, const wchar_t* path, const wchar_t* mode)
{
    if (!file) return errno = EINVAL;
    *file = _wfopen(path, mode);
    return *file ? 0 : errno;
}

errno_t fopen_s(FILE** file, const char* path, const char* mode)
{
    if (file) *file = nullptr;
    if (!file || !path || !mode) return errno = EINVAL;
    return _wfopen_s(file, win32::widen(ansi, path).c_str(), win32::widen(ansi, mode).c_str());
}

int _waccess(const wchar_t* path, int mode)
{
    static_assert(R_OK == 4 && W_OK == 2, "the bits of both systems are the same");
    if (mode & ~(R_OK | W_OK)) {
        errno = EINVAL;
        return -1;
    }
    const std::string file = hostPath(path);
    return file.empty() ? -1 : access(file.c_str(), mode);
}

errno_t _waccess_s(const wchar_t* path, int mode)
{
    return _waccess(path, mode) == 0 ? 0 : errno;
}

int _access(const char* path, int mode)
{
    return _waccess(path ? win32::widen(ansi, path).c_str() : nullptr, mode);
}

int _wremove(const wchar_t* path)
{
    const std::string file = hostPath(path);
    return file.empty() ? -1 : unlink(file.c_str());
}
