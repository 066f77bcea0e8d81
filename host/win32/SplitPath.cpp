#include "crtpath.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <string_view>

namespace
{
template <class Char>
bool isSeparator(Char c)
{
    return c == '\\' || c == '/';
}

template <class Char>
struct Parts {
    using View = std::basic_string_view<Char>;
    View drive, directory, name, extension;

    explicit Parts(View path)
    {
        const std::size_t driveEnd = path.size() > 1 && path[1] == ':' ? 2 : 0;
        const auto reversed = std::find_if(path.rbegin(), path.rend() - driveEnd, isSeparator<Char>);
        const std::size_t nameStart = path.rend() - reversed;
        const std::size_t dot = path.rfind('.');
        const std::size_t nameEnd = dot == View::npos || dot < nameStart ? path.size() : dot;
        drive = path.substr(0, driveEnd);
        directory = path.substr(driveEnd, nameStart - driveEnd);
        name = path.substr(nameStart, nameEnd - nameStart);
        extension = path.substr(nameEnd);
    }
};

/// A buffer of the caller for one part.
template <class Char>
struct Target {
    Char* to;
    std::size_t size;

    bool isValid() const { return to ? size > 0 : size == 0; }
    bool holds(std::basic_string_view<Char> part) const { return !to || part.size() < size; }
    void store(std::basic_string_view<Char> part) const
    {
        if (to) *std::copy_n(part.data(), std::min(part.size(), size - 1), to) = 0;
    }
    void clear() const
    {
        if (to && size) *to = 0;
    }
};

template <class Char>
errno_t split(const Char* path, const Target<Char> (&targets)[4])
{
    const bool isValid =
        path && std::all_of(std::begin(targets), std::end(targets), [](auto& t) { return t.isValid(); });
    const Parts<Char> parts(isValid ? path : std::basic_string_view<Char>());
    const std::basic_string_view<Char> found[] = {parts.drive, parts.directory, parts.name, parts.extension};
    bool fits = true;
    for (int i = 0; i < 4; ++i)
        fits = fits && targets[i].holds(found[i]);
    for (int i = 0; i < 4; ++i)
        isValid&& fits ? targets[i].store(found[i]) : targets[i].clear();
    return isValid && fits ? 0 : errno = isValid ? ERANGE : EINVAL;
}

template <class Char>
void splitCut(const Char* path, Char* drive, Char* directory, Char* name, Char* extension)
{
    const Parts<Char> parts(path ? path : std::basic_string_view<Char>());
    Target<Char>{drive, _MAX_DRIVE}.store(parts.drive);
    Target<Char>{directory, _MAX_DIR}.store(parts.directory);
    Target<Char>{name, _MAX_FNAME}.store(parts.name);
    Target<Char>{extension, _MAX_EXT}.store(parts.extension);
}

template <class Char>
std::basic_string<Char> joined(const Char* drive, const Char* directory, const Char* name,
                               const Char* extension)
{
    std::basic_string<Char> path;
    if (drive && *drive) path = {*drive, ':'};
    if (directory && *directory) {
        path += directory;
        if (!isSeparator(path.back())) path += '\\';
    }
    if (name) path += name;
    if (extension && *extension && *extension != '.') path += '.';
    if (extension) path += extension;
    return path;
}

template <class Char>
errno_t storePath(Char* to, std::size_t size, const std::basic_string<Char>& path)
{
    const Target<Char> target{to, size};
    if (!to || !size) return errno = EINVAL;
    target.clear();
    if (!target.holds(path)) return errno = ERANGE;
    target.store(path);
    return 0;
}
} // namespace

void _wsplitpath(const wchar_t* path, wchar_t* drive, wchar_t* directory, wchar_t* name, wchar_t* extension)
{
    splitCut(path, drive, directory, name, extension);
}

void _splitpath(const char* path, char* drive, char* directory, char* name, char* extension)
{
    splitCut(path, drive, directory, name, extension);
}

errno_t _wsplitpath_s(const wchar_t* path, wchar_t* drive, std::size_t driveSize, wchar_t* directory,
                      std::size_t directorySize, wchar_t* name, std::size_t nameSize, wchar_t* extension,
                      std::size_t extensionSize)
{
    return split<wchar_t>(
        path, {{drive, driveSize}, {directory, directorySize}, {name, nameSize}, {extension, extensionSize}});
}

errno_t _splitpath_s(const char* path, char* drive, std::size_t driveSize, char* directory,
                     std::size_t directorySize, char* name, std::size_t nameSize, char* extension,
                     std::size_t extensionSize)
{
    return split<char>(
        path, {{drive, driveSize}, {directory, directorySize}, {name, nameSize}, {extension, extensionSize}});
}

void _wmakepath(wchar_t* path, const wchar_t* drive, const wchar_t* directory, const wchar_t* name,
                const wchar_t* extension)
{
    Target<wchar_t>{path, _MAX_PATH}.store(joined(drive, directory, name, extension));
}

void _makepath(char* path, const char* drive, const char* directory, const char* name, const char* extension)
{
    Target<char>{path, _MAX_PATH}.store(joined(drive, directory, name, extension));
}

errno_t _wmakepath_s(wchar_t* path, std::size_t size, const wchar_t* drive, const wchar_t* directory,
                     const wchar_t* name, const wchar_t* extension)
{
    return storePath(path, size, joined(drive, directory, name, extension));
}

errno_t _makepath_s(char* path, std::size_t size, const char* drive, const char* directory, const char* name,
                    const char* extension)
{
    return storePath(path, size, joined(drive, directory, name, extension));
}
