#pragma once

#include "windef.h"

/// The local time, and Coordinated Universal Time, of now.
void WINAPI GetLocalTime(LPSYSTEMTIME time);
void WINAPI GetSystemTime(LPSYSTEMTIME time);

/// The present time in units of 100 nanoseconds since 1601-01-01 UTC.
void WINAPI GetSystemTimeAsFileTime(LPFILETIME time);
void WINAPI GetSystemTimePreciseAsFileTime(LPFILETIME time);

/// Milliseconds since the machine started; the first wraps around after 49.7 days.
DWORD WINAPI GetTickCount();
ULONGLONG WINAPI GetTickCount64();

/// The name of the machine, up to its first dot, and of the user. `size` comes with the size of the buffer in
/// characters; it goes with the length of the name, for GetUserNameW with the terminator. When the buffer is
/// too small it goes with the size that is needed: ERROR_BUFFER_OVERFLOW for the machine,
/// ERROR_INSUFFICIENT_BUFFER for the user.
BOOL WINAPI GetComputerNameW(LPWSTR buffer, LPDWORD size);
BOOL WINAPI GetUserNameW(LPWSTR buffer, LPDWORD size);

#define MAX_COMPUTERNAME_LENGTH 15
#define GetComputerName GetComputerNameW
#define GetUserName GetUserNameW
