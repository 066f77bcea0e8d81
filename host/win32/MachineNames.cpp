#include "Text.h"

#include "errhandlingapi.h"
#include "sysinfoapi.h"
#include "winerror.h"

#include <climits>
#include <pwd.h>
#include <unistd.h>

namespace
{
// Gives the name with its terminator, or the size it needs.
bool copyName(const std::wstring& name, LPWSTR buffer, LPDWORD size, DWORD error)
{
    const auto needed = static_cast<DWORD>(name.size() + 1);
    const bool fits = buffer && *size >= needed;
    if (fits) name.copy(buffer, name.size());
    if (fits) buffer[name.size()] = L'\0';
    if (!fits) SetLastError(error);
    *size = needed;
    return fits;
}

std::string machineName()
{
    char name[HOST_NAME_MAX + 1] = "";
    gethostname(name, HOST_NAME_MAX);
    const std::string whole = name;
    return whole.substr(0, whole.find('.'));
}

// A user without an entry in the list of users is called by his number.
std::string userName()
{
    char buffer[4096];
    passwd entry{};
    passwd* found = nullptr;
    getpwuid_r(geteuid(), &entry, buffer, sizeof buffer, &found);
    return found ? found->pw_name : std::to_string(geteuid());
}
} // namespace

BOOL WINAPI GetComputerNameW(LPWSTR buffer, LPDWORD size)
{
    if (!size || !copyName(win32::fromUtf8(machineName()), buffer, size, ERROR_BUFFER_OVERFLOW)) return FALSE;
    --*size;
    return TRUE;
}

BOOL WINAPI GetUserNameW(LPWSTR buffer, LPDWORD size)
{
    return size && copyName(win32::fromUtf8(userName()), buffer, size, ERROR_INSUFFICIENT_BUFFER);
}
