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
