#include "CIniFile.h"
#include "CStringShell.h"

#include <vector>

namespace
{
/// What GetPrivateProfileStringW gives, with as much room as it needs. A list does not fit while its result
/// is two short of the room, a value while it is one short.
std::vector<wchar_t> profileText(LPCWSTR section, LPCWSTR key, LPCWSTR fallback, LPCWSTR file)
{
    const DWORD spare = section && key ? 1 : 2;
    std::vector<wchar_t> buffer(256);
    for (;;) {
        const DWORD size = static_cast<DWORD>(buffer.size());
        const DWORD length = GetPrivateProfileStringW(section, key, fallback, buffer.data(), size, file);
        if (length < size - spare) {
            buffer.resize(length);
            return buffer;
        }
        buffer.resize(buffer.size() * 4);
    }
}

int splitList(const std::vector<wchar_t>& list, CStringArray& names)
{
    names.RemoveAll();
    for (size_t start = 0; start < list.size();) {
        const CString name(list.data() + start);
        names.Add(name);
        start += static_cast<size_t>(name.GetLength()) + 1;
    }
    return static_cast<int>(names.GetSize());
}

/// Without a folder Windows would look for the file in its own one.
CGTStringW absolute(const CGTStringW& path)
{
    if (path.FindOneOf(L"\\/:") >= 0 || path.IsEmpty()) return path;
    return CGTStringW(L".\\") + path;
}
} // namespace

CIniFile::CIniFile(const CGTStringW& path) : m_path(absolute(path)) {}

CGTStringW CIniFile::ReadString(const CGTStringW& section, const CGTStringW& key,
                                const CGTStringW& fallback) const
{
    const std::vector<wchar_t> text = profileText(section, key, fallback, m_path);
    return CGTStringW(text.data(), static_cast<int>(text.size()));
}

int CIniFile::ReadInt(const CGTStringW& section, const CGTStringW& key, int fallback) const
{
    return static_cast<int>(GetPrivateProfileIntW(section, key, fallback, m_path));
}

double CIniFile::ReadDouble(const CGTStringW& section, const CGTStringW& key, double fallback) const
{
    double value = fallback;
    CStringShell::ToDouble(ReadString(section, key), value);
    return value;
}

int CIniFile::WriteString(const CGTStringW& section, const CGTStringW& key, const CGTStringW& value)
{
    return WritePrivateProfileStringW(section, key, value, m_path) != FALSE;
}

int CIniFile::WriteInt(const CGTStringW& section, const CGTStringW& key, int value)
{
    return WriteString(section, key, CStringShell::FromInt(value));
}

int CIniFile::WriteDouble(const CGTStringW& section, const CGTStringW& key, double value)
{
    return WriteString(section, key, CStringShell::FromDouble(value));
}

int CIniFile::DeleteKey(const CGTStringW& section, const CGTStringW& key)
{
    return WritePrivateProfileStringW(section, key, nullptr, m_path) != FALSE;
}

int CIniFile::DeleteSection(const CGTStringW& section)
{
    return WritePrivateProfileStringW(section, nullptr, nullptr, m_path) != FALSE;
}

int CIniFile::GetSections(CStringArray& names) const
{
    return splitList(profileText(nullptr, nullptr, L"", m_path), names);
}

int CIniFile::GetKeys(const CGTStringW& section, CStringArray& names) const
{
    return splitList(profileText(section, nullptr, L"", m_path), names);
}
