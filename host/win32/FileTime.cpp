#include "FileTime.h"

#include "errhandlingapi.h"
#include "timezoneapi.h"
#include "winerror.h"

#include <ctime>

namespace
{
using win32::ticksPerDay;
using win32::ticksPerSecond;

constexpr LONGLONG daysFrom1601To1970 = 134774;
constexpr LONGLONG ticksPerMillisecond = 10000;
constexpr int lastYear = 30827;

BOOL failed(DWORD error)
{
    SetLastError(error);
    return FALSE;
}

bool isDate(const SYSTEMTIME& time)
{
    return time.wYear >= 1601 && time.wYear <= lastYear && time.wMonth >= 1 && time.wMonth <= 12 &&
           time.wDay >= 1 && time.wDay <= win32::daysInMonth(time.wYear, time.wMonth) && time.wHour < 24 &&
           time.wMinute < 60 && time.wSecond < 60 && time.wMilliseconds < 1000;
}

// How far the local clock is ahead of UTC now, in ticks.
LONGLONG localShift()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local.tm_gmtoff * ticksPerSecond;
}

BOOL shift(const FILETIME* from, LPFILETIME to, LONGLONG ticks)
{
    if (!from || !to || win32::ticksOf(*from) < 0) return failed(ERROR_INVALID_PARAMETER);
    LONGLONG shifted = 0;
    if (__builtin_add_overflow(win32::ticksOf(*from), ticks, &shifted) || shifted < 0)
        return failed(ERROR_INVALID_PARAMETER);
    *to = win32::fileTimeOf(shifted);
    return TRUE;
}
} // namespace

namespace win32
{
// Days are counted from March of the year 0, so that the leap day ends a year; 400 years are 146097 days.
LONGLONG daysOf(LONGLONG year, int month, int day)
{
    const LONGLONG shifted = month > 2 ? year : year - 1;
    const LONGLONG era = (shifted >= 0 ? shifted : shifted - 399) / 400;
    const LONGLONG yearOfEra = shifted - era * 400;
    const LONGLONG dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

void dateOfDays(LONGLONG days, LONGLONG& year, int& month, int& day)
{
    const LONGLONG fromMarch = days + 719468;
    const LONGLONG era = (fromMarch >= 0 ? fromMarch : fromMarch - 146096) / 146097;
    const LONGLONG dayOfEra = fromMarch - era * 146097;
    const LONGLONG yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const LONGLONG dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const LONGLONG shiftedMonth = (5 * dayOfYear + 2) / 153;
    day = static_cast<int>(dayOfYear - (153 * shiftedMonth + 2) / 5 + 1);
    month = static_cast<int>(shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9);
    year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
}

int daysInMonth(LONGLONG year, int month)
{
    if (month == 2) return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}
} // namespace win32

BOOL WINAPI FileTimeToSystemTime(const FILETIME* fileTime, LPSYSTEMTIME systemTime)
{
    if (!fileTime || !systemTime || win32::ticksOf(*fileTime) < 0) return failed(ERROR_INVALID_PARAMETER);
    const LONGLONG ticks = win32::ticksOf(*fileTime);
    const LONGLONG days = ticks / ticksPerDay;
    const auto milliseconds = static_cast<int>(ticks % ticksPerDay / ticksPerMillisecond);
    LONGLONG year = 0;
    int month = 0, day = 0;
    win32::dateOfDays(days - daysFrom1601To1970, year, month, day);
    systemTime->wYear = static_cast<WORD>(year);
    systemTime->wMonth = static_cast<WORD>(month);
    systemTime->wDay = static_cast<WORD>(day);
    systemTime->wDayOfWeek = static_cast<WORD>((days + 1) % 7); // 1601-01-01 was a Monday
    systemTime->wHour = static_cast<WORD>(milliseconds / 3600000);
    systemTime->wMinute = static_cast<WORD>(milliseconds / 60000 % 60);
    systemTime->wSecond = static_cast<WORD>(milliseconds / 1000 % 60);
    systemTime->wMilliseconds = static_cast<WORD>(milliseconds % 1000);
    return TRUE;
}

BOOL WINAPI SystemTimeToFileTime(const SYSTEMTIME* time, LPFILETIME fileTime)
{
    if (!time || !fileTime || !isDate(*time)) return failed(ERROR_INVALID_PARAMETER);
    const LONGLONG days = win32::daysOf(time->wYear, time->wMonth, time->wDay) + daysFrom1601To1970;
    const LONGLONG seconds = time->wHour * 3600 + time->wMinute * 60 + time->wSecond;
    LONGLONG ticks = 0; // the last year is longer than the count
    if (__builtin_mul_overflow(days, ticksPerDay, &ticks) ||
        __builtin_add_overflow(ticks, seconds * ticksPerSecond + time->wMilliseconds * ticksPerMillisecond,
                               &ticks))
        return failed(ERROR_INVALID_PARAMETER);
    *fileTime = win32::fileTimeOf(ticks);
    return TRUE;
}

BOOL WINAPI FileTimeToLocalFileTime(const FILETIME* fileTime, LPFILETIME localTime)
{
    return shift(fileTime, localTime, localShift());
}

BOOL WINAPI LocalFileTimeToFileTime(const FILETIME* localTime, LPFILETIME fileTime)
{
    return shift(localTime, fileTime, -localShift());
}

LONG WINAPI CompareFileTime(const FILETIME* first, const FILETIME* second)
{
    const auto a = static_cast<ULONGLONG>(win32::ticksOf(*first)),
               b = static_cast<ULONGLONG>(win32::ticksOf(*second));
    return a < b ? -1 : a > b ? 1 : 0;
}
