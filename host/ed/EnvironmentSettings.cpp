#include "acedvars.h"
#include "ProfileSettings.h"
#include "SupportFiles.h"

#include <cwchar>

namespace
{
constexpr const wchar_t* general = L"General";
constexpr const wchar_t* applicationData = L"AppData";

int copyOut(const std::optional<std::wstring>& text, ACHAR* to, std::size_t size)
{
    if (!text || text->size() >= size) return RTERROR;
    std::wmemcpy(to, text->c_str(), text->size() + 1);
    return RTNORM;
}

std::optional<std::wstring> ofProcess(const ACHAR* name)
{
    const DWORD size = GetEnvironmentVariableW(name, nullptr, 0);
    if (size == 0) return std::nullopt;
    std::wstring text(size, L'\0');
    text.resize(GetEnvironmentVariableW(name, &text[0], size));
    return text;
}
} // namespace

int acedGetEnv(const ACHAR* name, ACHAR* value, std::size_t size)
{
    if (!name || !*name || !value) return RTERROR;
    const std::optional<std::wstring> ofProfile = profile::read(general, name);
    if (ofProfile) return copyOut(ofProfile, value, size);
    const std::optional<std::wstring> setting = ofProcess(name);
    // Every profile has a support path.
    if (!setting && _wcsicmp(name, L"ACAD") == 0) return copyOut(std::wstring(), value, size);
    return copyOut(setting, value, size);
}

int acedSetEnv(const ACHAR* name, const ACHAR* value)
{
    return name && *name && value && profile::write(general, name, value) ? RTNORM : RTERROR;
}

int acedGetCfg(const ACHAR* name, ACHAR* value, std::size_t size)
{
    if (!name || !*name || !value) return RTERROR;
    return copyOut(profile::read(applicationData, name), value, size);
}

int acedSetCfg(const ACHAR* name, const ACHAR* value)
{
    return name && *name && value && profile::write(applicationData, name, value) ? RTNORM : RTERROR;
}

int acedFindFile(const ACHAR* name, ACHAR* result, std::size_t size)
{
    if (!name || !result) return RTERROR;
    const std::wstring path = ed::findSupportFile(name);
    return path.empty() ? RTERROR : copyOut(path, result, size);
}
