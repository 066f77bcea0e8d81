#include "CtransStr.h"

#include <cwchar>
#include <tuple>

namespace
{
bool isLeapYear(int year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int daysOfMonth(int year, int month)
{
    constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : days[month - 1];
}

bool isDay(const SYSTEMTIME& t)
{
    constexpr int firstYear = 1601; // of SYSTEMTIME
    return t.wYear >= firstYear && t.wMonth >= 1 && t.wMonth <= 12 && t.wDay >= 1 &&
           t.wDay <= daysOfMonth(t.wYear, t.wMonth);
}

bool isTimeOfDay(const SYSTEMTIME& t)
{
    return t.wHour < 24 && t.wMinute < 60 && t.wSecond < 60;
}

/// The day of the week, 0 for Sunday. The year is counted from March, so that the leap day is its last.
WORD dayOfWeek(int year, int month, int day)
{
    constexpr int monthOffset[] = {0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
    if (month < 3) --year;
    return static_cast<WORD>((year + year / 4 - year / 100 + year / 400 + monthOffset[month - 1] + day) % 7);
}

/// Reads a date and time from left to right. What a member cannot read it leaves.
class DateReader
{
public:
    explicit DateReader(const CString& text) : m_at(text.GetString()), m_end(m_at + text.GetLength()) {}

    bool readDateTime(SYSTEMTIME& t)
    {
        blanks();
        if (!readDate(t)) return false;
        const bool timeFollows = oneOf(L"T") || (blanks() && m_at != m_end);
        if (timeFollows && !readTime(t)) return false;
        blanks();
        return m_at == m_end;
    }
    bool namesTime() const { return m_timeRead; }

private:
    bool readDate(SYSTEMTIME& t)
    {
        if (!number(t.wYear, 4, 4)) return false;
        if (oneOf(L"年"))
            return number(t.wMonth, 1, 2) && oneOf(L"月") && number(t.wDay, 1, 2) && oneOf(L"日");
        return oneOf(L"-/.") && number(t.wMonth, 1, 2) && oneOf(L"-/.") && number(t.wDay, 1, 2);
    }
    bool readTime(SYSTEMTIME& t)
    {
        m_timeRead = true;
        if (!number(t.wHour, 1, 2) || !oneOf(L":") || !number(t.wMinute, 1, 2)) return false;
        if (!oneOf(L":")) return true;
        if (!number(t.wSecond, 1, 2)) return false;
        return !oneOf(L".") || number(t.wMilliseconds, 3, 3);
    }
    bool number(WORD& value, int leastDigits, int mostDigits)
    {
        int digits = 0;
        for (value = 0; digits < mostDigits && m_at != m_end && *m_at >= L'0' && *m_at <= L'9'; ++digits)
            value = static_cast<WORD>(value * 10 + (*m_at++ - L'0'));
        return digits >= leastDigits;
    }
    bool oneOf(const wchar_t* characters)
    {
        if (m_at == m_end || *m_at == 0 || !std::wcschr(characters, *m_at)) return false;
        ++m_at;
        return true;
    }
    bool blanks()
    {
        const wchar_t* const before = m_at;
        while (oneOf(L" \t"))
            continue;
        return m_at != before;
    }

    const wchar_t* m_at;
    const wchar_t* m_end;
    bool m_timeRead = false;
};

/// Reads a text as ParseTime does; `timeGiven` tells whether it names a time of the day.
bool readMoment(SYSTEMTIME& out, bool& timeGiven, const CString& text)
{
    SYSTEMTIME moment = {};
    DateReader reader(text);
    if (!reader.readDateTime(moment) || !isDay(moment) || !isTimeOfDay(moment)) return false;
    moment.wDayOfWeek = dayOfWeek(moment.wYear, moment.wMonth, moment.wDay);
    timeGiven = reader.namesTime();
    out = moment;
    return true;
}

auto dayKey(const SYSTEMTIME& t)
{
    return std::make_tuple(t.wYear, t.wMonth, t.wDay);
}

auto momentKey(const SYSTEMTIME& t)
{
    return std::make_tuple(t.wYear, t.wMonth, t.wDay, t.wHour, t.wMinute, t.wSecond, t.wMilliseconds);
}

SYSTEMTIME now()
{
    SYSTEMTIME moment = {};
    GetLocalTime(&moment);
    return moment;
}

CString dateText(const SYSTEMTIME& t)
{
    CString text;
    text.Format(L"%04d-%02d-%02d", t.wYear, t.wMonth, t.wDay);
    return text;
}
} // namespace

int CtransStr::ParseTime(SYSTEMTIME& out, const CString& text)
{
    bool timeGiven = false;
    return readMoment(out, timeGiven, text);
}

int CtransStr::IsOverTime(const CString& deadline)
{
    SYSTEMTIME end = {};
    bool timeGiven = false;
    if (!readMoment(end, timeGiven, deadline)) return 1;
    return timeGiven ? momentKey(now()) > momentKey(end) : dayKey(now()) > dayKey(end);
}

CString CtransStr::GetDate()
{
    return dateText(now());
}

CString CtransStr::GetDate(const CString& dateTime)
{
    SYSTEMTIME moment = {};
    return ParseTime(moment, dateTime) ? dateText(moment) : CString();
}

CString CtransStr::GetTime()
{
    const SYSTEMTIME t = now();
    CString text;
    text.Format(L"%02d:%02d:%02d", t.wHour, t.wMinute, t.wSecond);
    return text;
}

CString CtransStr::GenTimeZoneStr()
{
    Sleep(30);
    const SYSTEMTIME t = now();
    CString text;
    text.Format(L"%d%d%d%d%d%d%d", t.wYear, t.wMonth, t.wDay, t.wHour, t.wMinute, t.wSecond, t.wMilliseconds);
    return text;
}
