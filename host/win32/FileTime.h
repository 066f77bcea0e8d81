#pragma once

#include "windef.h"

namespace win32
{
constexpr LONGLONG ticksPerSecond = 10000000; // of 100 nanoseconds
constexpr LONGLONG ticksPerDay = ticksPerSecond * 86400;
constexpr LONGLONG secondsFrom1601To1970 = 11644473600;

constexpr LONGLONG ticksOf(const FILETIME& time)
{
    return static_cast<LONGLONG>(static_cast<ULONGLONG>(time.dwHighDateTime) << 32 | time.dwLowDateTime);
}

constexpr FILETIME fileTimeOf(LONGLONG ticks)
{
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(static_cast<ULONGLONG>(ticks) >> 32)};
}

/// A Gregorian date as days since 1970-01-01, and back. The year may be negative.
LONGLONG daysOf(LONGLONG year, int month, int day);
void dateOfDays(LONGLONG days, LONGLONG& year, int& month, int& day);

int daysInMonth(LONGLONG year, int month);
} // namespace win32
