#include "FileClock.h"

namespace
{
constexpr LONGLONG ticksPerSecond = 10000000;
constexpr LONGLONG secondsFrom1601To1970 = 11644473600;
} // namespace

namespace win32
{
FILETIME toFileTime(const timespec& time)
{
    const auto ticks =
        static_cast<ULONGLONG>((time.tv_sec + secondsFrom1601To1970) * ticksPerSecond + time.tv_nsec / 100);
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

timespec fromFileTime(const FILETIME& time)
{
    const auto ticks = static_cast<LONGLONG>(ULONGLONG(time.dwHighDateTime) << 32 | time.dwLowDateTime);
    timespec result;
    result.tv_sec = ticks / ticksPerSecond - secondsFrom1601To1970;
    result.tv_nsec = ticks % ticksPerSecond * 100;
    return result;
}
} // namespace win32
