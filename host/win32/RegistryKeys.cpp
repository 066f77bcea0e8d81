#include "RegistryStore.h"

#include "winerror.h"

#include <algorithm>
#include <iterator>

namespace
{
using win32::RegistryKey;
using win32::RegistryKeyPtr;

constexpr std::size_t longestName = 255;

bool hasLongName(std::wstring_view path)
{
    std::size_t begin = 0;
    for (std::size_t i = 0; i <= path.size(); ++i) {
        if (i < path.size() && path[i] != L'\\') continue;
        if (i - begin > longestName) return true;
        begin = i + 1;
    }
    return false;
}

std::wstring_view pathOf(LPCWSTR path)
{
    return path ? std::wstring_view(path) : std::wstring_view();
}

LSTATUS open(HKEY handle, LPCWSTR path, REGSAM access, HKEY& result)
{
    const auto lock = win32::lockRegistry();
    RegistryKeyPtr key;
    if (const LSTATUS fault = win32::findOpenKey(handle, 0, key)) return fault;
    const RegistryKeyPtr found = win32::findKey(key, pathOf(path));
    if (!found) return ERROR_FILE_NOT_FOUND;
    result = win32::addOpenKey(found, access);
    return ERROR_SUCCESS;
}

// The file is written only when a key was made.
LSTATUS create(HKEY handle, LPCWSTR path, DWORD options, REGSAM access, HKEY& result, bool& made)
{
    const auto lock = win32::lockRegistry();
    RegistryKeyPtr key;
    if (const LSTATUS fault = win32::findOpenKey(handle, 0, key)) return fault;
    RegistryKeyPtr found = win32::findKey(key, pathOf(path));
    LSTATUS status = ERROR_SUCCESS;
    made = !found;
    if (made) {
        status = win32::findOpenKey(handle, KEY_CREATE_SUB_KEY, key);
        if (status == ERROR_SUCCESS) status = win32::registryIsWritable();
        if (status != ERROR_SUCCESS) return status;
        found = win32::makeKey(key, pathOf(path), (options & REG_OPTION_VOLATILE) != 0, made);
        status = win32::saveRegistry();
    }
    if (status == ERROR_SUCCESS) result = win32::addOpenKey(found, access);
    return status;
}

LSTATUS removeKey(HKEY handle, LPCWSTR path, bool withTree)
{
    const auto lock = win32::lockRegistry();
    RegistryKeyPtr key;
    if (const LSTATUS fault = win32::findOpenKey(handle, 0, key)) return fault;
    const RegistryKeyPtr found = win32::findKey(key, path);
    if (!found) return ERROR_FILE_NOT_FOUND;
    if (!withTree && !found->keys.empty()) return ERROR_ACCESS_DENIED;
    if (const LSTATUS fault = win32::registryIsWritable()) return fault;
    win32::deleteKey(key, path);
    return win32::saveRegistry();
}

LSTATUS emptyKey(HKEY handle)
{
    const auto lock = win32::lockRegistry();
    RegistryKeyPtr key;
    if (const LSTATUS fault = win32::findOpenKey(handle, KEY_SET_VALUE, key)) return fault;
    if (const LSTATUS fault = win32::registryIsWritable()) return fault;
    while (!key->keys.empty())
        win32::deleteKey(key, std::wstring(key->keys.begin()->first));
    key->values.clear();
    return win32::saveRegistry();
}

void put(LPDWORD target, std::size_t value)
{
    if (target) *target = static_cast<DWORD>(value);
}

template <class Map, class Size>
std::size_t largest(const Map& map, Size size)
{
    std::size_t most = 0;
    for (const auto& entry : map)
        most = std::max(most, size(entry));
    return most;
}
} // namespace

LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR path, DWORD, REGSAM access, PHKEY result)
{
    if (!result || hasLongName(pathOf(path))) return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    return open(key, path, access, *result);
}

LSTATUS WINAPI RegCreateKeyExW(HKEY key, LPCWSTR path, DWORD, LPWSTR, DWORD options, REGSAM access,
                               const SECURITY_ATTRIBUTES*, PHKEY result, LPDWORD disposition)
{
    if (!path || !result || hasLongName(path)) return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    bool made = false;
    const LSTATUS status = create(key, path, options, access, *result, made);
    if (status == ERROR_SUCCESS && disposition)
        *disposition = made ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
    return status;
}

LSTATUS WINAPI RegCloseKey(HKEY key)
{
    const auto lock = win32::lockRegistry();
    return win32::isPredefinedKey(key) || win32::removeOpenKey(key) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

LSTATUS WINAPI RegFlushKey(HKEY handle)
{
    const auto lock = win32::lockRegistry();
    RegistryKeyPtr key;
    const LSTATUS fault = win32::findOpenKey(handle, 0, key);
    return fault ? fault : win32::registryIsWritable() ? win32::registryIsWritable() : win32::saveRegistry();
}

LSTATUS WINAPI RegDeleteKeyW(HKEY key, LPCWSTR path)
{
    if (!path || !*path) return ERROR_INVALID_PARAMETER;
    return removeKey(key, path, false);
}

LSTATUS WINAPI RegDeleteTreeW(HKEY key, LPCWSTR path)
{
    return path && *path ? removeKey(key, path, true) : emptyKey(key);
}

LSTATUS WINAPI RegEnumKeyExW(HKEY handle, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD,
                             LPWSTR className, LPDWORD classSize, LPFILETIME written)
{
    const auto lock = win32::lockRegistry();
    RegistryKeyPtr key;
    if (const LSTATUS fault = win32::findOpenKey(handle, KEY_ENUMERATE_SUB_KEYS, key)) return fault;
    if (!name || !nameSize) return ERROR_INVALID_PARAMETER;
    if (index >= key->keys.size()) return ERROR_NO_MORE_ITEMS;
    const std::wstring& found =
        std::next(key->keys.begin(), static_cast<std::ptrdiff_t>(index))->second->name;
    if (*nameSize <= found.size()) return ERROR_MORE_DATA;
    name[found.copy(name, found.size())] = L'\0';
    put(nameSize, found.size());
    if (className && classSize && *classSize > 0) className[0] = L'\0';
    put(classSize, 0);
    if (written) *written = {};
    return ERROR_SUCCESS;
}

LSTATUS WINAPI RegQueryInfoKeyW(HKEY handle, LPWSTR className, LPDWORD classSize, LPDWORD, LPDWORD subkeys,
                                LPDWORD longestSubkey, LPDWORD longestClass, LPDWORD values,
                                LPDWORD longestValueName, LPDWORD largestData, LPDWORD securitySize,
                                LPFILETIME written)
{
    const auto lock = win32::lockRegistry();
    RegistryKeyPtr key;
    if (const LSTATUS fault = win32::findOpenKey(handle, KEY_QUERY_VALUE, key)) return fault;
    const auto nameLength = [](const auto& entry) { return entry.first.size(); };
    if (className && classSize && *classSize > 0) className[0] = L'\0';
    put(classSize, 0);
    put(subkeys, key->keys.size());
    put(longestSubkey, largest(key->keys, nameLength));
    put(longestClass, 0);
    put(values, key->values.size());
    put(longestValueName, largest(key->values, nameLength));
    put(largestData, largest(key->values, [](const auto& entry) { return entry.second.data.size(); }));
    put(securitySize, 0);
    if (written) *written = {};
    return ERROR_SUCCESS;
}
