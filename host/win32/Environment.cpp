#include "Buffer.h"
#include "CaseMap.h"
#include "Errno.h"
#include "Text.h"

#include "errhandlingapi.h"
#include "winbase.h"
#include "winerror.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace
{
using namespace win32;

/// The name under which a variable is kept: as written when there is one, else the first that differs in
/// case only, else as written.
std::string storedName(std::wstring_view name)
{
    const std::string exact = toUtf8(name);
    if (std::getenv(exact.c_str())) return exact;
    for (char** entry = environ; entry && *entry; ++entry) {
        const char* end = std::strchr(*entry, '=');
        const std::string stored(*entry, end ? static_cast<std::size_t>(end - *entry) : std::strlen(*entry));
        const std::wstring wide = fromUtf8(stored);
        if (compareNoCase(wide.data(), wide.size(), name.data(), name.size()) == 0) return stored;
    }
    return exact;
}

const char* valueOf(std::wstring_view name)
{
    return std::getenv(storedName(name).c_str());
}

std::wstring expand(std::wstring_view text)
{
    std::wstring result;
    while (!text.empty()) {
        const std::size_t end = text[0] == L'%' ? text.find(L'%', 1) : std::wstring_view::npos;
        const char* value =
            end != std::wstring_view::npos && end > 1 ? valueOf(text.substr(1, end - 1)) : nullptr;
        if (value) result += fromUtf8(value);
        if (!value) result += text[0];
        text.remove_prefix(value ? end + 1 : 1);
    }
    return result;
}
} // namespace

DWORD WINAPI GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size)
{
    const char* value = name ? valueOf(name) : nullptr;
    if (!value) return static_cast<DWORD>(failWith(ERROR_ENVVAR_NOT_FOUND));
    SetLastError(NO_ERROR);
    return copyOut(fromUtf8(value), buffer, size);
}

BOOL WINAPI SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value)
{
    const std::wstring wanted = name ? name : L"";
    if (wanted.empty() || wanted.find(L'=') != std::wstring::npos) return failWith(ERROR_INVALID_PARAMETER);
    const std::string stored = storedName(wanted);
    if (value) return setenv(stored.c_str(), toUtf8(value).c_str(), 1) == 0;
    if (!std::getenv(stored.c_str())) return failWith(ERROR_ENVVAR_NOT_FOUND);
    return unsetenv(stored.c_str()) == 0;
}

DWORD WINAPI ExpandEnvironmentStringsW(LPCWSTR text, LPWSTR buffer, DWORD size)
{
    if (!text) return static_cast<DWORD>(failWith(ERROR_INVALID_PARAMETER));
    const std::wstring result = expand(text);
    copyOut(result, buffer, size);
    return static_cast<DWORD>(result.size() + 1);
}

void WINAPI OutputDebugStringW(LPCWSTR text)
{
    if (text && std::getenv("QM_DEBUG_OUTPUT")) std::fputs(toUtf8(text).c_str(), stderr);
}
