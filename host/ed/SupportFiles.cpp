#include "SupportFiles.h"

#include "acedvars.h"
#include "Documents.h"

namespace
{
std::wstring folderOf(const std::wstring& path)
{
    const std::size_t at = path.find_last_of(L"\\/");
    return at == std::wstring::npos ? std::wstring() : path.substr(0, at);
}

std::wstring programFolder()
{
    wchar_t path[MAX_PATH];
    return GetModuleFileNameW(nullptr, path, MAX_PATH) ? folderOf(path) : std::wstring();
}

bool isFile(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::wstring fullPath(const std::wstring& path)
{
    wchar_t full[MAX_PATH * 4];
    const DWORD size = GetFullPathNameW(path.c_str(), MAX_PATH * 4, full, nullptr);
    return size && size < MAX_PATH * 4 ? std::wstring(full) : path;
}

std::vector<std::wstring> searched()
{
    std::vector<std::wstring> folders = {L"."};
    if (const DocumentState* state = documents::current()) folders.push_back(folderOf(state->fileName));
    const std::vector<std::wstring> support = ed::supportFolders();
    folders.insert(folders.end(), support.begin(), support.end());
    folders.push_back(programFolder());
    return folders;
}
} // namespace

namespace ed
{
std::vector<std::wstring> supportFolders()
{
    std::vector<std::wstring> folders;
    std::wstring path(32768, L'\0');
    if (acedGetEnv(L"ACAD", &path[0], path.size()) != RTNORM) return folders;
    path.resize(std::wcslen(path.c_str()));
    for (std::size_t from = 0; from <= path.size();) {
        const std::size_t to = std::min(path.find(L';', from), path.size());
        if (to > from) folders.push_back(path.substr(from, to - from));
        from = to + 1;
    }
    return folders;
}

std::wstring findSupportFile(const std::wstring& name)
{
    if (name.empty()) return {};
    if (name.find_first_of(L"\\/:") != std::wstring::npos)
        return isFile(name) ? fullPath(name) : std::wstring();
    for (const std::wstring& folder : searched()) {
        if (folder.empty()) continue;
        const std::wstring path = folder + L"\\" + name;
        if (isFile(path)) return fullPath(path);
    }
    return {};
}
} // namespace ed
