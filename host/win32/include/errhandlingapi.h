#pragma once

#include "windef.h"

/// The calling thread's last error code, as the last failing call of this interface left it.
DWORD WINAPI GetLastError();

/// Sets the calling thread's last error code.
void WINAPI SetLastError(DWORD code);
