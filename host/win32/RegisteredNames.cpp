#include "NameTable.h"

#include "errhandlingapi.h"
#include "winerror.h"
#include "winuser.h"

UINT WINAPI RegisterWindowMessageW(LPCWSTR name)
{
    if (!name || !*name) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const UINT number = win32::numberOfName(name);
    if (!number) SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return number;
}

UINT WINAPI RegisterClipboardFormatW(LPCWSTR name)
{
    return RegisterWindowMessageW(name);
}

int WINAPI GetClipboardFormatNameW(UINT format, LPWSTR buffer, int size)
{
    const std::wstring name = win32::nameOfNumber(format);
    if (name.empty() || !buffer || size <= 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const std::size_t copied = name.copy(buffer, static_cast<std::size_t>(size) - 1);
    buffer[copied] = L'\0';
    return static_cast<int>(copied);
}
