#include "CGTRegKey.h"

#include <vector>

namespace
{
constexpr DWORD longestName = 16384; // of a value; that of a key is 256

/// Collects the names that an enumerating function of the registry gives for 0, 1, 2 ...
template <class Enumerate>
LSTATUS collect(CStringArray& names, Enumerate enumerate)
{
    std::vector<wchar_t> name(longestName);
    CStringArray found;
    for (DWORD index = 0;; ++index) {
        DWORD length = longestName;
        const LSTATUS status = enumerate(index, name.data(), &length);
        if (status == ERROR_NO_MORE_ITEMS) break;
        if (status != ERROR_SUCCESS) return status;
        found.Add(CString(name.data(), static_cast<int>(length)));
    }
    names.Copy(found);
    return ERROR_SUCCESS;
}
} // namespace

int CGTRegKey::done(LSTATUS status) const
{
    m_error = status;
    return status == ERROR_SUCCESS;
}

int CGTRegKey::Open(HKEY root, const CGTStringW& path, bool readOnly)
{
    Close();
    return done(RegOpenKeyExW(root, path, 0, readOnly ? KEY_READ : KEY_READ | KEY_WRITE, &m_key));
}

int CGTRegKey::Create(HKEY root, const CGTStringW& path)
{
    Close();
    return done(RegCreateKeyExW(root, path, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE,
                                nullptr, &m_key, nullptr));
}

void CGTRegKey::Close()
{
    if (m_key) RegCloseKey(m_key);
    m_key = nullptr;
}

int CGTRegKey::ReadString(const CGTStringW& name, CGTStringW& value) const
{
    if (!m_key) return done(ERROR_INVALID_HANDLE);
    DWORD type = 0, bytes = 0;
    LSTATUS status = RegQueryValueExW(m_key, name, nullptr, &type, nullptr, &bytes);
    if (status == ERROR_SUCCESS && type != REG_SZ && type != REG_EXPAND_SZ) status = ERROR_FILE_NOT_FOUND;
    if (status != ERROR_SUCCESS) return done(status);
    // One more than is stored: a value need not have been written with its terminator.
    std::vector<wchar_t> text(bytes / sizeof(wchar_t) + 1);
    status = RegQueryValueExW(m_key, name, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &bytes);
    if (status == ERROR_SUCCESS) value = CGTStringW(text.data());
    return done(status);
}

int CGTRegKey::ReadDword(const CGTStringW& name, DWORD& value) const
{
    if (!m_key) return done(ERROR_INVALID_HANDLE);
    DWORD type = 0, read = 0, bytes = sizeof read;
    LSTATUS status = RegQueryValueExW(m_key, name, nullptr, &type, reinterpret_cast<BYTE*>(&read), &bytes);
    if (status == ERROR_SUCCESS && type != REG_DWORD) status = ERROR_FILE_NOT_FOUND;
    if (status == ERROR_SUCCESS) value = read;
    return done(status);
}

int CGTRegKey::WriteString(const CGTStringW& name, const CGTStringW& value)
{
    if (!m_key) return done(ERROR_INVALID_HANDLE);
    const size_t bytes = (static_cast<size_t>(value.GetLength()) + 1) * sizeof(wchar_t);
    return done(RegSetValueExW(m_key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.GetString()),
                               static_cast<DWORD>(bytes)));
}

int CGTRegKey::WriteDword(const CGTStringW& name, DWORD value)
{
    if (!m_key) return done(ERROR_INVALID_HANDLE);
    return done(
        RegSetValueExW(m_key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value));
}

int CGTRegKey::DeleteValue(const CGTStringW& name)
{
    return m_key ? done(RegDeleteValueW(m_key, name)) : done(ERROR_INVALID_HANDLE);
}

int CGTRegKey::DeleteKey(const CGTStringW& name)
{
    // An empty name would delete what is in this key itself.
    if (!m_key || name.IsEmpty()) return done(m_key ? ERROR_INVALID_PARAMETER : ERROR_INVALID_HANDLE);
    return done(RegDeleteTreeW(m_key, name));
}

int CGTRegKey::GetKeys(CStringArray& names) const
{
    if (!m_key) return done(ERROR_INVALID_HANDLE);
    return done(collect(names, [this](DWORD index, LPWSTR name, LPDWORD length) {
        return RegEnumKeyExW(m_key, index, name, length, nullptr, nullptr, nullptr, nullptr);
    }));
}

int CGTRegKey::GetValues(CStringArray& names) const
{
    if (!m_key) return done(ERROR_INVALID_HANDLE);
    return done(collect(names, [this](DWORD index, LPWSTR name, LPDWORD length) {
        return RegEnumValueW(m_key, index, name, length, nullptr, nullptr, nullptr, nullptr);
    }));
}
