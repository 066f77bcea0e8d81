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
