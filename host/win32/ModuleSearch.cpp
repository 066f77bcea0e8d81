#include "ModuleSearch.h"

#include "Path.h"
#include "Text.h"

#include "errhandlingapi.h"
#include "libloaderapi.h"
#include "winbase.h"
#include "winerror.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <dlfcn.h>
#include <mutex>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace
{
constexpr DWORD searchFlags = LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_APPLICATION_DIR |
                              LOAD_LIBRARY_SEARCH_USER_DIRS | LOAD_LIBRARY_SEARCH_SYSTEM32 |
                              LOAD_LIBRARY_SEARCH_DEFAULT_DIRS;

std::mutex directoryMutex;
std::optional<std::wstring>& dllDirectory()
{
    static auto& directory = *new std::optional<std::wstring>;
    return directory;
}

std::optional<std::wstring> chosenDirectory()
{
    const std::lock_guard lock(directoryMutex);
    return dllDirectory();
}

bool isFile(const std::string& path)
{
    struct stat status {
    };
    return !path.empty() && stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::wstring programDirectory()
{
    const std::string path = win32::programPath();
    return win32::toWindowsPath(path.substr(0, path.rfind('/')));
}

void addPathVariable(std::vector<std::wstring>& directories)
{
    const char* variable = std::getenv("PATH");
    const std::string all = variable ? variable : "";
    for (std::size_t from = 0; from < all.size();) {
        const std::size_t to = std::min(all.find(':', from), all.size());
        if (to > from) directories.push_back(win32::toWindowsPath(all.substr(from, to - from)));
        from = to + 1;
    }
}

std::vector<std::wstring> usualDirectories()
{
    std::vector<std::wstring> directories{programDirectory()};
    const std::optional<std::wstring> chosen = chosenDirectory();
    if (chosen && !chosen->empty()) directories.push_back(*chosen);
    if (!chosen) directories.emplace_back(L".");
    addPathVariable(directories);
    return directories;
}

std::vector<std::wstring> chosenDirectories(DWORD flags)
{
    std::vector<std::wstring> directories;
    const std::optional<std::wstring> chosen = chosenDirectory();
    const bool all = (flags & LOAD_LIBRARY_SEARCH_DEFAULT_DIRS) != 0;
    if (all || (flags & LOAD_LIBRARY_SEARCH_APPLICATION_DIR)) directories.push_back(programDirectory());
    if ((all || (flags & LOAD_LIBRARY_SEARCH_USER_DIRS)) && chosen && !chosen->empty())
        directories.push_back(*chosen);
    return directories;
}

// The loader's own search takes a name without a directory: it stands for the system's directories.
std::string systemLibrary(const std::wstring& name)
{
    const std::string narrow = win32::toUtf8(name);
    void* found = dlopen(narrow.c_str(), RTLD_LAZY | RTLD_LOCAL);
    if (!found) return {};
    dlclose(found);
    return narrow;
}

bool usesSystem(DWORD flags)
{
    return !(flags & searchFlags) ||
           (flags & (LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS));
}
} // namespace

namespace win32
{
std::wstring moduleName(std::wstring_view name)
{
    const std::wstring_view last = name.substr(nameStart(name));
    if (!last.empty() && last.back() == L'.') return std::wstring(name.substr(0, name.size() - 1));
    return std::wstring(name) + (last.find(L'.') == last.npos ? L".dll" : L"");
}

bool namesDirectory(std::wstring_view name)
{
    return nameStart(name) > 0;
}

std::string findModuleFile(const std::wstring& name, DWORD flags)
{
    if (namesDirectory(name)) {
        const std::string path = toHostPath(name.c_str());
        return isFile(path) ? path : std::string();
    }
    const bool restricted = (flags & searchFlags) != 0;
    for (const std::wstring& directory : restricted ? chosenDirectories(flags) : usualDirectories()) {
        const std::string path = toHostPath((directory + L"\\" + name).c_str());
        if (isFile(path)) return path;
    }
    return usesSystem(flags) ? systemLibrary(name) : std::string();
}

std::string programPath()
{
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    return std::string(path, length > 0 ? static_cast<std::size_t>(length) : 0);
}
} // namespace win32

BOOL WINAPI SetDllDirectoryW(LPCWSTR path)
{
    const std::lock_guard lock(directoryMutex);
    if (path)
        dllDirectory() = path;
    else
        dllDirectory().reset();
    return TRUE;
}

DWORD WINAPI GetDllDirectoryW(DWORD size, LPWSTR buffer)
{
    const std::wstring directory = chosenDirectory().value_or(L"");
    const auto length = static_cast<DWORD>(directory.size());
    if (!buffer || size <= length) return length + 1;
    buffer[directory.copy(buffer, length)] = L'\0';
    return length;
}
