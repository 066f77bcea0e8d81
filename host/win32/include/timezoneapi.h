#pragma once

#include "windef.h"

// Between a count of 100 nanoseconds since 1601-01-01 and a date. Dates are Gregorian, of the years 1601 to
// 30827. Each is FALSE with ERROR_INVALID_PARAMETER, and leaves its result as it was, for a count above
// 0x7FFFFFFFFFFFFFFF or a date that does not exist.

BOOL WINAPI FileTimeToSystemTime(const FILETIME* fileTime, LPSYSTEMTIME systemTime);

/// The day of the week is not looked at.
BOOL WINAPI SystemTimeToFileTime(const SYSTEMTIME* systemTime, LPFILETIME fileTime);

/// Between UTC and the local time of the environment's time zone, with the shift that holds today: daylight
/// saving time counts as it does now, not as it did on that date.
BOOL WINAPI FileTimeToLocalFileTime(const FILETIME* fileTime, LPFILETIME localTime);
BOOL WINAPI LocalFileTimeToFileTime(const FILETIME* localTime, LPFILETIME fileTime);

/// -1, 0 or 1: the first is earlier, the same or later.
LONG WINAPI CompareFileTime(const FILETIME* first, const FILETIME* second);
