#include "OleDate.h"

#include "FileTime.h"

#include <array>
#include <cmath>
#include <cwchar>
#include <optional>
#include <vector>

namespace
{
constexpr LONGLONG daysFrom1899To1970 = 25569;
constexpr LONGLONG firstDay = -657434; // 0100-01-01
constexpr LONGLONG lastDay = 2958465;  // 9999-12-31
constexpr LONGLONG secondsPerDay = 86400;
constexpr int firstYear = 100;
constexpr int lastYear = 9999;

struct Moment {
    LONGLONG day; // since 1899-12-30
    LONGLONG second;
};

// The fraction counts forward from the day's beginning, whatever the sign of the day.
std::optional<Moment> momentOf(DATE date)
{
    if (!(date > static_cast<DATE>(firstDay) - 1 && date < static_cast<DATE>(lastDay) + 1))
        return std::nullopt;
    const double whole = std::trunc(date);
    Moment moment{static_cast<LONGLONG>(whole),
                  std::llround(std::abs(date - whole) * static_cast<double>(secondsPerDay))};
    if (moment.second == secondsPerDay) moment = {moment.day + 1, 0};
    if (moment.day > lastDay) return std::nullopt;
    return moment;
}

DATE dateOf(const Moment& moment)
{
    const double fraction = static_cast<double>(moment.second) / static_cast<double>(secondsPerDay);
    const auto day = static_cast<double>(moment.day);
    return day < 0 ? day - fraction : day + fraction;
}

bool isTime(int hour, int minute, int second)
{
    return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
}

bool isDay(LONGLONG year, int month, int day)
{
    return year >= firstYear && year <= lastYear && month >= 1 && month <= 12 && day >= 1 &&
           day <= win32::daysInMonth(year, month);
}

// The numbers of a text with one of the separators between them; false for anything else.
bool split(std::wstring_view text, std::wstring_view separators, std::vector<int>& numbers)
{
    bool digit = false;
    for (wchar_t c : text) {
        if (c >= L'0' && c <= L'9') {
            if (!digit) numbers.push_back(0);
            numbers.back() = numbers.back() * 10 + (c - L'0');
            if (numbers.back() > lastYear) return false;
            digit = true;
        } else if (digit && separators.find(c) != separators.npos) {
            digit = false;
        } else {
            return false;
        }
    }
    return digit;
}

bool parseDay(std::wstring_view text, Moment& moment)
{
    std::vector<int> parts;
    if (!split(text, L"/-", parts) || parts.size() != 3) return false;
    const bool yearLast = parts[0] < firstYear && parts[2] >= firstYear;
    const std::array<int, 3> date = yearLast ? std::array<int, 3>{parts[2], parts[0], parts[1]}
                                             : std::array<int, 3>{parts[0], parts[1], parts[2]};
    if (!isDay(date[0], date[1], date[2])) return false;
    moment.day = win32::daysOf(date[0], date[1], date[2]) + daysFrom1899To1970;
    return true;
}

// Takes "AM" or "PM" off the end: 0 without, else 'A' or 'P'.
wchar_t takeHalf(std::wstring_view& text)
{
    if (text.size() < 3) return 0;
    const wchar_t half = static_cast<wchar_t>(text[text.size() - 2] & ~0x20),
                  last = static_cast<wchar_t>(text.back() & ~0x20);
    if (last != L'M' || (half != L'A' && half != L'P')) return 0;
    text.remove_suffix(2);
    while (!text.empty() && text.back() == L' ')
        text.remove_suffix(1);
    return half;
}

bool parseTime(std::wstring_view text, Moment& moment)
{
    std::vector<int> parts;
    const wchar_t half = takeHalf(text);
    if (!split(text, L":", parts) || parts.size() < 2 || parts.size() > 3) return false;
    parts.resize(3);
    if (half && (parts[0] < 1 || parts[0] > 12)) return false;
    const int hour = half ? parts[0] % 12 + (half == L'P' ? 12 : 0) : parts[0];
    moment.second = hour * 3600 + parts[1] * 60 + parts[2];
    return isTime(hour, parts[1], parts[2]);
}

std::wstring_view withoutBlanks(std::wstring_view text)
{
    const auto first = text.find_first_not_of(L' '), last = text.find_last_not_of(L' ');
    return first == text.npos ? std::wstring_view() : text.substr(first, last - first + 1);
}
} // namespace

namespace win32
{
bool isOleDate(DATE date)
{
    return momentOf(date).has_value();
}

std::wstring textOfDate(DATE date)
{
    SYSTEMTIME time{};
    if (!VariantTimeToSystemTime(date, &time)) return {};
    const Moment moment = *momentOf(date);
    wchar_t day[32] = L"", clock[32] = L"";
    std::swprintf(day, 32, L"%d/%d/%d", time.wYear, time.wMonth, time.wDay);
    std::swprintf(clock, 32, L"%d:%02d:%02d", time.wHour, time.wMinute, time.wSecond);
    if (moment.day == 0) return clock;
    return moment.second == 0 ? std::wstring(day) : std::wstring(day) + L" " + clock;
}

bool parseDate(std::wstring_view text, DATE& date)
{
    text = withoutBlanks(text);
    Moment moment{0, 0};
    const auto blank = text.find(L' ');
    const bool onlyTime = text.substr(0, blank).find(L':') != text.npos;
    const bool good = onlyTime
                          ? parseTime(text, moment)
                          : parseDay(text.substr(0, blank), moment) &&
                                (blank == text.npos || parseTime(withoutBlanks(text.substr(blank)), moment));
    if (good) date = dateOf(moment);
    return good;
}
} // namespace win32

INT WINAPI SystemTimeToVariantTime(const SYSTEMTIME* time, DOUBLE* date)
{
    if (!time || !date || !isDay(time->wYear, time->wMonth, time->wDay)) return FALSE;
    if (!isTime(time->wHour, time->wMinute, time->wSecond)) return FALSE;
    *date = dateOf({win32::daysOf(time->wYear, time->wMonth, time->wDay) + daysFrom1899To1970,
                    time->wHour * 3600 + time->wMinute * 60 + time->wSecond});
    return TRUE;
}

INT WINAPI VariantTimeToSystemTime(DOUBLE date, LPSYSTEMTIME time)
{
    const std::optional<Moment> moment = momentOf(date);
    if (!moment || !time) return FALSE;
    LONGLONG year = 0;
    int month = 0, day = 0;
    win32::dateOfDays(moment->day - daysFrom1899To1970, year, month, day);
    const auto second = static_cast<WORD>(moment->second % 60);
    *time = {static_cast<WORD>(year),
             static_cast<WORD>(month),
             static_cast<WORD>(((moment->day + 6) % 7 + 7) % 7), // 1899-12-30 was a Saturday
             static_cast<WORD>(day),
             static_cast<WORD>(moment->second / 3600),
             static_cast<WORD>(moment->second / 60 % 60),
             second,
             0};
    return TRUE;
}
