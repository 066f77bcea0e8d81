#include "errhandlingapi.h"

namespace
{
thread_local DWORD lastError = 0;
}

DWORD WINAPI GetLastError() { return lastError; }

void WINAPI SetLastError(DWORD code) { lastError = code; }
