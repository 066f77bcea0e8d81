#include "Errno.h"
#include "Path.h"
#include "ProfileStore.h"

#include "errhandlingapi.h"
#include "winerror.h"
#include "winprofile.h"

#include <algorithm>
#include <cwchar>
#include <mutex>

namespace
{
using namespace win32;

/// Held through each call: a write reads, changes and replaces the file.
std::mutex profileMutex;

std::shared_ptr<const ProfileFile> load(LPCWSTR file)
{
    if (!file) return failWith(ERROR_FILE_NOT_FOUND), nullptr;
    const std::string path = toHostPath(file);
    return path.empty() ? nullptr : loadProfile(path);
}

DWORD copyText(std::wstring_view text, LPWSTR buffer, DWORD size)
{
    if (size == 0 || !buffer) return 0;
    const std::size_t fitting = std::min<std::size_t>(text.size(), size - 1);
    text.copy(buffer, fitting);
    buffer[fitting] = L'\0';
    if (fitting < text.size()) SetLastError(ERROR_MORE_DATA);
    return static_cast<DWORD>(fitting);
}

/// `list` is names that each end with a NUL. The buffer ends with two even when it has been truncated.
DWORD copyList(std::wstring_view list, LPWSTR buffer, DWORD size)
{
    if (size == 0 || !buffer) return 0;
    if (size == 1 || list.empty()) {
        std::fill_n(buffer, std::min<DWORD>(size, 2), L'\0');
        return 0;
    }
    const std::size_t fitting = std::min<std::size_t>(list.size(), size - 1);
    list.copy(buffer, fitting);
    buffer[fitting] = L'\0';
    if (fitting == list.size()) return static_cast<DWORD>(fitting);
    buffer[size - 2] = L'\0';
    SetLastError(ERROR_MORE_DATA);
    return size - 2;
}

std::wstring sectionNames(const ProfileFile& file)
{
    std::wstring list;
    for (const ProfileSection& section : file.sections())
        if (!section.name.empty()) list += section.name + L'\0';
    return list;
}

std::wstring keyNames(const ProfileFile& file, const ProfileSection& section)
{
    std::wstring list;
    for (const ProfileEntry& entry : file.entries(section))
        if (entry.hasValue && entry.nameEnd > entry.nameBegin) list += file.name(entry) + L'\0';
    return list;
}

std::wstring sectionLines(const ProfileFile& file, const ProfileSection& section)
{
    std::wstring list;
    for (const ProfileEntry& entry : file.entries(section))
        list += file.name(entry) + (entry.hasValue ? L"=" + file.value(entry) : L"") + L'\0';
    return list;
}

std::wstring_view withoutQuotes(std::wstring_view value)
{
    const bool isQuoted = value.size() >= 2 && value.front() == value.back() &&
                          (value.front() == L'"' || value.front() == L'\'');
    return isQuoted ? value.substr(1, value.size() - 2) : value;
}

std::wstring_view withoutTrailingBlanks(std::wstring_view text)
{
    while (!text.empty() && (text.back() == L' ' || text.back() == L'\t'))
        text.remove_suffix(1);
    return text;
}

/// The value of a key; false, with the last error set, when there is none.
bool findValue(LPCWSTR section, LPCWSTR key, LPCWSTR file, std::wstring& value)
{
    const auto profile = load(file);
    const ProfileSection* found = profile ? profile->section(section) : nullptr;
    const ProfileEntry* entry = found ? profile->entry(*found, key) : nullptr;
    if (!entry || !entry->hasValue) return failWith(ERROR_FILE_NOT_FOUND);
    value = withoutQuotes(profile->value(*entry));
    SetLastError(NO_ERROR);
    return true;
}

std::vector<std::wstring> splitList(LPCWSTR list)
{
    std::vector<std::wstring> lines;
    for (; *list; list += lines.back().size() + 1)
        lines.emplace_back(list);
    return lines;
}

/// Writes what change(profile) gives. A file that does not exist counts as empty; `mayCreate` tells whether
/// there is anything to write then.
template <class Change>
BOOL update(LPCWSTR file, bool mayCreate, Change change)
{
    const std::string path = toHostPath(file);
    if (path.empty()) return FALSE;
    std::shared_ptr<const ProfileFile> profile = loadProfile(path);
    if (!profile) {
        if (GetLastError() != ERROR_FILE_NOT_FOUND) return FALSE;
        if (!mayCreate) return TRUE;
        profile = std::make_shared<const ProfileFile>();
    }
    return storeProfile(path, change(*profile));
}

UINT readNumber(std::wstring_view text)
{
    const bool isNegative = !text.empty() && text[0] == L'-';
    if (isNegative || (!text.empty() && text[0] == L'+')) text.remove_prefix(1);
    UINT number = 0;
    for (; !text.empty() && text[0] >= L'0' && text[0] <= L'9'; text.remove_prefix(1))
        number = number * 10 + static_cast<UINT>(text[0] - L'0');
    return isNegative ? 0 - number : number;
}
} // namespace

DWORD WINAPI GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR fallback, LPWSTR buffer,
                                      DWORD size, LPCWSTR file)
{
    if (!section) return GetPrivateProfileSectionNamesW(buffer, size, file);
    const std::lock_guard<std::mutex> lock(profileMutex);
    if (!key) {
        const auto profile = load(file);
        const ProfileSection* found = profile ? profile->section(section) : nullptr;
        return copyList(found ? keyNames(*profile, *found) : L"", buffer, size);
    }
    std::wstring value;
    if (findValue(section, key, file, value)) return copyText(value, buffer, size);
    return copyText(withoutTrailingBlanks(fallback ? fallback : L""), buffer, size);
}

UINT WINAPI GetPrivateProfileIntW(LPCWSTR section, LPCWSTR key, INT fallback, LPCWSTR file)
{
    if (!section || !key) return failWith(ERROR_INVALID_PARAMETER), static_cast<UINT>(fallback);
    const std::lock_guard<std::mutex> lock(profileMutex);
    std::wstring value;
    const bool isFound = findValue(section, key, file, value) && !value.empty();
    return isFound ? readNumber(value) : static_cast<UINT>(fallback);
}

DWORD WINAPI GetPrivateProfileSectionW(LPCWSTR section, LPWSTR buffer, DWORD size, LPCWSTR file)
{
    if (!section) return static_cast<DWORD>(failWith(ERROR_INVALID_PARAMETER));
    const std::lock_guard<std::mutex> lock(profileMutex);
    const auto profile = load(file);
    const ProfileSection* found = profile ? profile->section(section) : nullptr;
    return copyList(found ? sectionLines(*profile, *found) : L"", buffer, size);
}

DWORD WINAPI GetPrivateProfileSectionNamesW(LPWSTR buffer, DWORD size, LPCWSTR file)
{
    const std::lock_guard<std::mutex> lock(profileMutex);
    const auto profile = load(file);
    return copyList(profile ? sectionNames(*profile) : L"", buffer, size);
}

BOOL WINAPI WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR value, LPCWSTR file)
{
    if (!section) return failWith(ERROR_FILE_NOT_FOUND);
    if (!file) return failWith(ERROR_INVALID_PARAMETER);
    const std::lock_guard<std::mutex> lock(profileMutex);
    return update(file, key && value, [&](const ProfileFile& profile) {
        if (!key) return profile.withoutSection(section);
        return value ? profile.withValue(section, key, value) : profile.withoutKey(section, key);
    });
}

BOOL WINAPI WritePrivateProfileSectionW(LPCWSTR section, LPCWSTR lines, LPCWSTR file)
{
    if (!section || !file) return failWith(ERROR_INVALID_PARAMETER);
    const std::lock_guard<std::mutex> lock(profileMutex);
    return update(file, lines != nullptr, [&](const ProfileFile& profile) {
        return lines ? profile.withSection(section, splitList(lines)) : profile.withoutSection(section);
    });
}
