#include "ProfileSettings.h"

#include "rxregsvc.h"

namespace
{
std::wstring keyOf(const std::wstring& section)
{
    return profile::productKey() + L"\\Profiles\\<<Unnamed Profile>>\\" + section;
}

/// An open registry key, closed at the end.
class Key
{
public:
    explicit Key(const std::wstring& path, bool make)
    {
        if (make)
            RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &mKey, nullptr);
        else
            RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &mKey);
    }
    ~Key()
    {
        if (mKey) RegCloseKey(mKey);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    HKEY get() const { return mKey; }

private:
    HKEY mKey = nullptr;
};
} // namespace

namespace profile
{
const std::wstring& productKey()
{
    static const std::wstring key = L"Software\\Autodesk\\AutoCAD\\R24.0\\ACAD-4101:804";
    return key;
}

std::optional<std::wstring> read(const std::wstring& section, const std::wstring& name)
{
    const Key key(keyOf(section), false);
    DWORD type = 0, size = 0;
    if (!key.get() || RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
        return std::nullopt;
    std::wstring text(size / sizeof(wchar_t) + 1, L'\0');
    size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (type != REG_SZ ||
        RegQueryValueExW(key.get(), name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(&text[0]), &size) !=
            ERROR_SUCCESS)
        return std::nullopt;
    return std::wstring(text.c_str());
}

bool write(const std::wstring& section, const std::wstring& name, const std::wstring& text)
{
    const Key key(keyOf(section), true);
    const auto* bytes = reinterpret_cast<const BYTE*>(text.c_str());
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return key.get() && RegSetValueExW(key.get(), name.c_str(), 0, REG_SZ, bytes, size) == ERROR_SUCCESS;
}

void clear(const std::wstring& section) { RegDeleteTreeW(HKEY_CURRENT_USER, keyOf(section).c_str()); }
} // namespace profile

const wchar_t* acrxProductKey() { return profile::productKey().c_str(); }
