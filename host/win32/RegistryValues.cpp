#include "RegistryStore.h"

#include "winbase.h"
#include "winerror.h"

#include <cstring>
#include <iterator>

namespace
{
using win32::RegistryKeyPtr;
using win32::RegistryValue;

std::wstring_view nameOf(LPCWSTR name)
{
    return name ? std::wstring_view(name) : std::wstring_view();
}

bool isText(DWORD type)
{
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

// Copies a value out; a null buffer only asks for its size.
LSTATUS copyOut(const RegistryValue& value, LPDWORD type, void* data, LPDWORD size)
{
    const auto needed = static_cast<DWORD>(value.data.size());
    const DWORD given = data && size ? *size : needed;
    if (type) *type = value.type;
    if (size) *size = needed;
    if (given < needed) return ERROR_MORE_DATA;
    if (data && needed > 0) std::memcpy(data, value.data.data(), needed);
    return ERROR_SUCCESS;
}

LSTATUS find(const RegistryKeyPtr& key, LPCWSTR name, RegistryValue& value)
{
    const auto found = key->values.find(nameOf(name));
    if (found == key->values.end()) return ERROR_FILE_NOT_FOUND;
    value = found->second;
    return ERROR_SUCCESS;
}

LSTATUS findBelow(HKEY handle, LPCWSTR path, LPCWSTR name, RegistryValue& value)
{
    const auto lock = win32::lockRegistry();
    RegistryKeyPtr key;
    if (const LSTATUS fault = win32::findOpenKey(handle, KEY_QUERY_VALUE, key)) return fault;
    key = win32::findKey(key, nameOf(path));
    return key ? find(key, name, value) : ERROR_FILE_NOT_FOUND;
}

std::wstring textOf(const RegistryValue& value)
{
    std::wstring text(value.data.size() / sizeof(wchar_t), L'\0');
    if (!text.empty()) std::memcpy(text.data(), value.data.data(), text.size() * sizeof(wchar_t));
    return text;
}

void setText(RegistryValue& value, const std::wstring& text)
{
    value.data.resize(text.size() * sizeof(wchar_t));
    if (!text.empty()) std::memcpy(value.data.data(), text.data(), value.data.size());
}

// One null ends a text, two end a list of texts.
void terminate(RegistryValue& value)
{
    std::wstring text = textOf(value);
    const std::size_t wanted = value.type == REG_MULTI_SZ ? 2 : 1;
    std::size_t nulls = 0;
    while (nulls < wanted && nulls < text.size() && text[text.size() - 1 - nulls] == L'\0')
        ++nulls;
    text.append(wanted - nulls, L'\0');
    setText(value, text);
}

void expand(RegistryValue& value)
{
    const std::wstring text = textOf(value);
    std::wstring expanded(ExpandEnvironmentStringsW(text.c_str(), nullptr, 0), L'\0');
    ExpandEnvironmentStringsW(text.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
    value.type = REG_SZ;
    setText(value, expanded);
}

DWORD flagOf(DWORD type)
{
    switch (type) {
    case REG_NONE:
        return RRF_RT_REG_NONE;
    case REG_SZ:
        return RRF_RT_REG_SZ;
    case REG_EXPAND_SZ:
        return RRF_RT_REG_EXPAND_SZ;
    case REG_BINARY:
        return RRF_RT_REG_BINARY;
    case REG_DWORD:
        return RRF_RT_REG_DWORD;
    case REG_MULTI_SZ:
        return RRF_RT_REG_MULTI_SZ;
    case REG_QWORD:
        return RRF_RT_REG_QWORD;
    default:
        return 0;
    }
}

// Binary data passes as a number when it has the number's size.
bool isWanted(const RegistryValue& value, DWORD flags)
{
    const DWORD types = flags & RRF_RT_ANY;
    if (types == RRF_RT_ANY) return true;
    if (value.type == REG_BINARY && types == RRF_RT_DWORD) return value.data.size() == sizeof(DWORD);
    if (value.type == REG_BINARY && types == RRF_RT_QWORD) return value.data.size() == sizeof(ULONGLONG);
    return (flagOf(value.type) & types) != 0;
}

LSTATUS getValue(HKEY key, LPCWSTR path, LPCWSTR name, DWORD flags, LPDWORD type, void* data, LPDWORD size)
{
    RegistryValue value;
    if (const LSTATUS fault = findBelow(key, path, name, value)) return fault;
    if (isText(value.type)) terminate(value);
    if (value.type == REG_EXPAND_SZ && !(flags & RRF_NOEXPAND)) expand(value);
    if (!isWanted(value, flags)) return ERROR_UNSUPPORTED_TYPE;
    return copyOut(value, type, data, size);
}
} // namespace

LSTATUS WINAPI RegQueryValueExW(HKEY handle, LPCWSTR name, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size)
{
    if (data && !size) return ERROR_INVALID_PARAMETER;
    RegistryValue value;
    const LSTATUS status = findBelow(handle, nullptr, name, value);
    return status == ERROR_SUCCESS ? copyOut(value, type, data, size) : status;
}

LSTATUS WINAPI RegGetValueW(HKEY key, LPCWSTR path, LPCWSTR name, DWORD flags, LPDWORD type, PVOID data,
                            LPDWORD size)
{
    const bool expandsOnly =
        (flags & RRF_RT_REG_EXPAND_SZ) && !(flags & RRF_NOEXPAND) && (flags & RRF_RT_ANY) != RRF_RT_ANY;
    if ((data && !size) || expandsOnly) return ERROR_INVALID_PARAMETER;
    const DWORD given = data ? *size : 0;
    const LSTATUS status = getValue(key, path, name, flags, type, data, size);
    if (status != ERROR_SUCCESS && data && (flags & RRF_ZEROONFAILURE)) std::memset(data, 0, given);
    return status;
}

LSTATUS WINAPI RegSetValueExW(HKEY handle, LPCWSTR name, DWORD, DWORD type, const BYTE* data, DWORD size)
{
    if (!data && size > 0) return ERROR_INVALID_PARAMETER;
    const auto lock = win32::lockRegistry();
    RegistryKeyPtr key;
    if (const LSTATUS fault = win32::findOpenKey(handle, KEY_SET_VALUE, key)) return fault;
    if (const LSTATUS fault = win32::registryIsWritable()) return fault;
    key->values[std::wstring(nameOf(name))] = {type, std::vector<BYTE>(data, data + size)};
    return win32::saveRegistry();
}

LSTATUS WINAPI RegDeleteValueW(HKEY handle, LPCWSTR name)
{
    const auto lock = win32::lockRegistry();
    RegistryKeyPtr key;
    if (const LSTATUS fault = win32::findOpenKey(handle, KEY_SET_VALUE, key)) return fault;
    const auto found = key->values.find(nameOf(name));
    if (found == key->values.end()) return ERROR_FILE_NOT_FOUND;
    if (const LSTATUS fault = win32::registryIsWritable()) return fault;
    key->values.erase(found);
    return win32::saveRegistry();
}

LSTATUS WINAPI RegEnumValueW(HKEY handle, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD, LPDWORD type,
                             LPBYTE data, LPDWORD size)
{
    const auto lock = win32::lockRegistry();
    RegistryKeyPtr key;
    if (const LSTATUS fault = win32::findOpenKey(handle, KEY_QUERY_VALUE, key)) return fault;
    if (!name || !nameSize || (data && !size)) return ERROR_INVALID_PARAMETER;
    if (index >= key->values.size()) return ERROR_NO_MORE_ITEMS;
    const auto& [found, value] = *std::next(key->values.begin(), static_cast<std::ptrdiff_t>(index));
    if (*nameSize <= found.size()) return ERROR_MORE_DATA;
    name[found.copy(name, found.size())] = L'\0';
    *nameSize = static_cast<DWORD>(found.size());
    return copyOut(value, type, data, size);
}
