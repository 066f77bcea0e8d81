#include "CaseMap.h"
#include "Errno.h"
#include "FileInfo.h"
#include "Handle.h"
#include "Path.h"
#include "Text.h"
#include "Wildcard.h"

#include "errhandlingapi.h"
#include "winerror.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <vector>

namespace
{
using namespace win32;

/// A search under way: the entries are read when it starts, each is described when it is asked for.
class Search : public Object
{
public:
    Search(std::string directory, std::vector<std::string> names)
        : _directory(std::move(directory)), _names(std::move(names))
    {
    }

    /// Describes the next entry that still exists; false after the last one.
    bool next(WIN32_FIND_DATAW& data);

private:
    std::string _directory;
    std::vector<std::string> _names;
    std::size_t _at = 0;
};

bool Search::next(WIN32_FIND_DATAW& data)
{
    while (_at < _names.size()) {
        const std::string& name = _names[_at++];
        const std::wstring wide = fromUtf8(name);
        struct stat info;
        if (wide.size() >= MAX_PATH || stat((_directory + '/' + name).c_str(), &info) != 0) continue;
        data = {};
        describe(info, data);
        wide.copy(data.cFileName, wide.size());
        return true;
    }
    return false;
}

bool isDots(const std::string& name)
{
    return name == "." || name == "..";
}

bool comesBefore(const std::string& a, const std::string& b)
{
    if (isDots(a) != isDots(b)) return isDots(a);
    const std::wstring left = fromUtf8(a), right = fromUtf8(b);
    const int order = compareNoCase(left.data(), left.size(), right.data(), right.size());
    return order ? order < 0 : a < b;
}

/// The entries that match, in the order of the search. A root has no "." and "..".
std::vector<std::string> matchingNames(DIR* directory, const std::wstring& pattern, bool isRoot)
{
    std::vector<std::string> names;
    while (const dirent* entry = readdir(directory))
        if (matchesWildcard(fromUtf8(entry->d_name), pattern) && !(isRoot && isDots(entry->d_name)))
            names.emplace_back(entry->d_name);
    std::sort(names.begin(), names.end(), comesBefore);
    return names;
}

/// A pattern without wildcards is a path to be found as any other.
bool searchExact(LPCWSTR path, std::string& directory, std::vector<std::string>& names)
{
    const std::string host = toHostPath(path);
    struct stat info;
    if (host.empty()) return false;
    if (stat(host.c_str(), &info) != 0) return failWith(errorOfPath(errno, host));
    const std::size_t start = host.rfind('/') + 1;
    directory = host.substr(0, start);
    names = {host.substr(start)};
    return true;
}

bool searchWildcard(std::wstring_view path, std::string& directory, std::vector<std::string>& names)
{
    const std::size_t start = nameStart(path);
    const bool isDriveOnly = start == 0 && path.size() > 2 && path[1] == L':';
    const std::size_t split = isDriveOnly ? 2 : start;
    const std::wstring parent = split == 0 ? L"." : std::wstring(path.substr(0, split));
    directory = toHostPath(parent.c_str());
    if (directory.empty()) return false;
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(directory.c_str()), closedir);
    if (!entries) return failWith(errno == ENOENT ? ERROR_PATH_NOT_FOUND : errorOfErrno(errno));
    names = matchingNames(entries.get(), std::wstring(path.substr(split)), directory == "/");
    return true;
}
} // namespace

HANDLE WINAPI FindFirstFileW(LPCWSTR pattern, LPWIN32_FIND_DATAW data)
{
    std::string directory;
    std::vector<std::string> names;
    const std::wstring path = pattern ? pattern : L"";
    if (path.empty() || !data) return failWith(ERROR_PATH_NOT_FOUND), INVALID_HANDLE_VALUE;
    if (isSeparator(path.back())) return failWith(ERROR_FILE_NOT_FOUND), INVALID_HANDLE_VALUE;
    const bool isFound = hasWildcard(std::wstring_view(path).substr(nameStart(path)))
                             ? searchWildcard(path, directory, names)
                             : searchExact(pattern, directory, names);
    if (!isFound) return INVALID_HANDLE_VALUE;
    const auto search = std::make_shared<Search>(directory, std::move(names));
    if (!search->next(*data)) return failWith(ERROR_FILE_NOT_FOUND), INVALID_HANDLE_VALUE;
    return openHandle(search);
}

BOOL WINAPI FindNextFileW(HANDLE find, LPWIN32_FIND_DATAW data)
{
    const auto search = objectOf<Search>(find);
    if (!search) return failWith(ERROR_INVALID_HANDLE);
    if (!data) return failWith(ERROR_INVALID_PARAMETER);
    return search->next(*data) ? TRUE : failWith(ERROR_NO_MORE_FILES);
}

BOOL WINAPI FindClose(HANDLE find)
{
    const bool isOpen = objectOf<Search>(find) && closeHandle(find);
    return isOpen ? TRUE : failWith(ERROR_INVALID_HANDLE);
}
