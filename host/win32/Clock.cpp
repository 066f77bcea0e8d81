#include "FileTime.h"

#include "profileapi.h"
#include "sysinfoapi.h"
#include "timezoneapi.h"

#include <ctime>

namespace
{
constexpr LONGLONG nanosecondsPerTick = 100;

timespec now(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return time;
}

LONGLONG ticksOf(const timespec& time)
{
    return time.tv_sec * win32::ticksPerSecond + time.tv_nsec / nanosecondsPerTick;
}

FILETIME present()
{
    return win32::fileTimeOf(ticksOf(now(CLOCK_REALTIME)) +
                             win32::secondsFrom1601To1970 * win32::ticksPerSecond);
}
} // namespace

void WINAPI GetSystemTimeAsFileTime(LPFILETIME time)
{
    *time = present();
}

void WINAPI GetSystemTimePreciseAsFileTime(LPFILETIME time)
{
    GetSystemTimeAsFileTime(time);
}

void WINAPI GetSystemTime(LPSYSTEMTIME time)
{
    const FILETIME utc = present();
    FileTimeToSystemTime(&utc, time);
}

void WINAPI GetLocalTime(LPSYSTEMTIME time)
{
    const FILETIME utc = present();
    FILETIME local{};
    FileTimeToLocalFileTime(&utc, &local);
    FileTimeToSystemTime(&local, time);
}

ULONGLONG WINAPI GetTickCount64()
{
    const timespec time = now(CLOCK_BOOTTIME);
    return static_cast<ULONGLONG>(time.tv_sec) * 1000 + static_cast<ULONGLONG>(time.tv_nsec) / 1000000;
}

DWORD WINAPI GetTickCount()
{
    return static_cast<DWORD>(GetTickCount64());
}

BOOL WINAPI QueryPerformanceCounter(PLARGE_INTEGER count)
{
    count->QuadPart = ticksOf(now(CLOCK_MONOTONIC));
    return TRUE;
}

BOOL WINAPI QueryPerformanceFrequency(PLARGE_INTEGER frequency)
{
    frequency->QuadPart = win32::ticksPerSecond;
    return TRUE;
}
