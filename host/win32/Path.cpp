#include "Path.h"

#include "CaseMap.h"
#include "Errno.h"
#include "Text.h"

#include "winerror.h"

#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace
{
using namespace win32;

constexpr wchar_t rootDrive = L'Z';

std::wstring currentDirectory()
{
    const std::unique_ptr<char, decltype(&std::free)> path(getcwd(nullptr, 0), std::free);
    return path ? toWindowsPath(path.get()) : L"Z:\\";
}

bool hasDrive(std::wstring_view path)
{
    return path.size() >= 2 && path[1] == L':' && toUpper(path[0]) >= L'A' && toUpper(path[0]) <= L'Z';
}

/// Takes a drive and what stands for it off the front of `path`; gives the directory to start from.
std::wstring takeStart(std::wstring_view& path)
{
    std::wstring drive;
    if (hasDrive(path)) {
        drive = std::wstring(path.substr(0, 2));
        path.remove_prefix(2);
    }
    const bool isAbsolute = !path.empty() && isSeparator(path[0]);
    if (isAbsolute) return drive.empty() ? std::wstring{rootDrive, L':'} : drive;
    // A drive without a separator means its current directory, which only the drive of the process has.
    const std::wstring current = currentDirectory();
    return drive.empty() || toUpper(drive[0]) == current[0] ? current : drive;
}

void addComponents(std::wstring_view path, std::vector<std::wstring>& components)
{
    for (std::size_t start = 0; start < path.size();) {
        std::size_t end = start;
        while (end < path.size() && !isSeparator(path[end]))
            ++end;
        const std::wstring_view name = path.substr(start, end - start);
        if (name == L"..") {
            if (!components.empty()) components.pop_back();
        } else if (!name.empty() && name != L".") {
            components.emplace_back(name);
        }
        start = end + 1;
    }
}

void dropTrailingDotsAndBlanks(std::wstring& name)
{
    while (!name.empty() && (name.back() == L'.' || name.back() == L' '))
        name.pop_back();
}

bool isNameCharacter(wchar_t c)
{
    return c >= 0x20 && !std::wcschr(L"<>:\"|?*", c);
}

bool exists(const std::string& path)
{
    struct stat info;
    return stat(path.c_str(), &info) == 0;
}

/// The entry of `directory` that is `name` in another case; the first in byte order when there are several.
std::string entryInAnotherCase(const std::string& directory, const std::wstring& name)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(directory.c_str()), closedir);
    std::string found;
    while (const dirent* entry = entries ? readdir(entries.get()) : nullptr) {
        const std::wstring candidate = fromUtf8(entry->d_name);
        if (compareNoCase(candidate.data(), candidate.size(), name.data(), name.size()) != 0) continue;
        if (found.empty() || std::strcmp(entry->d_name, found.c_str()) < 0) found = entry->d_name;
    }
    return found;
}

/// Appends a component under the name it has in `path`, a directory.
void descend(std::string& path, const std::wstring& component)
{
    const std::string exact = path + '/' + toUtf8(component);
    const std::string other = exists(exact) ? "" : entryInAnotherCase(path.empty() ? "/" : path, component);
    path = other.empty() ? exact : path + '/' + other;
}

/// A Windows path taken apart.
struct Parts {
    std::string root;
    std::vector<std::wstring> components;
    std::string exact; ///< the path on this machine if all names are written as they are there
};

/// False, with the last error set, for a path that no file can have.
bool takeApart(const wchar_t* windowsPath, Parts& parts)
{
    const std::wstring full = windowsPath ? fullPath(windowsPath) : std::wstring();
    if (full.empty() || !driveRoot(full[0], parts.root)) return failWith(ERROR_PATH_NOT_FOUND);
    addComponents(std::wstring_view(full).substr(2), parts.components);
    parts.exact = parts.root;
    for (const std::wstring& component : parts.components) {
        if (!std::all_of(component.begin(), component.end(), isNameCharacter))
            return failWith(ERROR_INVALID_NAME);
        parts.exact += '/' + toUtf8(component);
    }
    if (parts.exact.empty()) parts.exact = "/";
    return true;
}

/// The path with the names that are there in another case.
std::string inAnotherCase(const Parts& parts, bool isLastLiteral)
{
    std::string path = parts.root;
    for (const std::wstring& component : parts.components) {
        if (isLastLiteral && &component == &parts.components.back())
            path += '/' + toUtf8(component);
        else
            descend(path, component);
    }
    return path;
}

std::string hostPath(const wchar_t* windowsPath, bool isLastLiteral)
{
    Parts parts;
    if (!takeApart(windowsPath, parts)) return {};
    return exists(parts.exact) ? parts.exact : inAnotherCase(parts, isLastLiteral);
}
} // namespace

namespace win32
{
std::size_t nameStart(std::wstring_view path)
{
    std::size_t start = path.size();
    while (start > 0 && !isSeparator(path[start - 1]))
        --start;
    return start;
}

bool driveRoot(wchar_t letter, std::string& root)
{
    root.clear();
    if (toUpper(letter) == rootDrive) return true;
    const char name[] = {'Q', 'M', '_', 'D', 'R', 'I', 'V', 'E', '_', static_cast<char>(toUpper(letter)), 0};
    const char* directory = std::getenv(name);
    if (!directory || !*directory) return false;
    root = directory;
    while (!root.empty() && root.back() == '/')
        root.pop_back();
    return true;
}

std::wstring fullPath(std::wstring_view path)
{
    if (path.substr(0, 4) == L"\\\\?\\") path.remove_prefix(4);
    if (path.empty()) return {};
    const bool endsInSeparator = isSeparator(path.back());
    std::wstring start = takeStart(path);
    std::vector<std::wstring> components;
    addComponents(std::wstring_view(start).substr(2), components);
    addComponents(path, components);
    if (!components.empty() && !endsInSeparator) dropTrailingDotsAndBlanks(components.back());

    std::wstring full = start.substr(0, 2);
    for (const std::wstring& component : components)
        full += L'\\' + component;
    if (components.empty() || endsInSeparator) full += L'\\';
    return full;
}

std::string toHostPath(const wchar_t* windowsPath)
{
    return hostPath(windowsPath, false);
}

bool findHostFile(const wchar_t* windowsPath, std::string& path, struct stat& info)
{
    Parts parts;
    path.clear();
    if (!takeApart(windowsPath, parts)) return false;
    path = parts.exact;
    if (stat(path.c_str(), &info) == 0) return true;
    path = inAnotherCase(parts, false);
    return stat(path.c_str(), &info) == 0;
}

std::string toNewHostPath(const wchar_t* windowsPath)
{
    return hostPath(windowsPath, true);
}

std::wstring toWindowsPath(const std::string& hostPath)
{
    std::wstring path = fromUtf8(hostPath);
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return path.empty() || path[0] != L'\\' ? path : std::wstring{rootDrive, L':'} + path;
}
} // namespace win32
