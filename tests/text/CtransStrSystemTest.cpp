// Dates and file names, and what comes from the machine: its clock, its program file, its errors.

#include "QmCADLib.h"

#include "Headless.h"

#include <gtest/gtest.h>

#include <cwchar>

namespace
{
CString dayAndTime(const SYSTEMTIME& t)
{
    CString text;
    text.Format(L"%d-%d-%d %d:%d:%d.%d", t.wYear, t.wMonth, t.wDay, t.wHour, t.wMinute, t.wSecond,
                t.wMilliseconds);
    return text;
}

CString localNow(const wchar_t* format)
{
    SYSTEMTIME t = {};
    GetLocalTime(&t);
    CString text;
    text.Format(format, t.wYear, t.wMonth, t.wDay);
    return text;
}
} // namespace

TEST(CtransStrDate, ReadsTheUsualForms)
{
    const struct {
        const wchar_t *text, *moment;
    } cases[] = {
        {L"2024-02-29", L"2024-2-29 0:0:0.0"},
        {L" 2024/2/9 ", L"2024-2-9 0:0:0.0"},
        {L"2000.02.29 23:59", L"2000-2-29 23:59:0.0"},
        {L"2024年2月29日 7:05:09", L"2024-2-29 7:5:9.0"},
        {L"1601-01-01T00:00:00.125", L"1601-1-1 0:0:0.125"},
        {L"9999-12-31\t23:59:59", L"9999-12-31 23:59:59.0"},
    };
    for (const auto& each : cases) {
        SYSTEMTIME moment = {};
        EXPECT_EQ(CtransStr::ParseTime(moment, each.text), 1) << CStringA(each.text).GetString();
        EXPECT_STREQ(dayAndTime(moment), each.moment);
    }
}

TEST(CtransStrDate, RejectsWhatIsNotInTheCalendar)
{
    SYSTEMTIME moment = {};
    ASSERT_EQ(CtransStr::ParseTime(moment, L"2024-05-06 07:08:09"), 1);
    for (const wchar_t* none : {L"",
                                L"2023-02-29",
                                L"1900-02-29",
                                L"2024-04-31",
                                L"2024-13-01",
                                L"2024-00-10",
                                L"2024-01-00",
                                L"1600-01-01",
                                L"24-01-01",
                                L"02024-01-01",
                                L"2024-1",
                                L"2024-01-01x",
                                L"2024-01-0112:00",
                                L"2024-01-01 24:00",
                                L"2024-01-01 12:60",
                                L"2024-01-01 12:00:60",
                                L"2024-01-01 12",
                                L"2024-01-01 12:00:00.5",
                                L"2024-01-01T",
                                L"2024年1月1",
                                L"-2024-01-01",
                                L"2024-01-011"}) {
        EXPECT_EQ(CtransStr::ParseTime(moment, none), 0) << CStringA(none).GetString();
        EXPECT_STREQ(CtransStr::GetDate(none), L"");
    }
    EXPECT_STREQ(dayAndTime(moment), L"2024-5-6 7:8:9.0");
}

TEST(CtransStrDate, WeekdayFollowsTheCalendar)
{
    const struct {
        const wchar_t* date;
        int day; // 0 is Sunday; 1601-01-01 was a Monday, 1970-01-01 a Thursday, 2000-02-29 a Tuesday
    } cases[] = {
        {L"1601-01-01", 1}, {L"1970-01-01", 4}, {L"2000-02-29", 2}, {L"2000-03-01", 3}, {L"2024-12-29", 0}};
    for (const auto& each : cases) {
        SYSTEMTIME moment = {};
        CtransStr::ParseTime(moment, each.date);
        EXPECT_EQ(moment.wDayOfWeek, each.day) << CStringA(each.date).GetString();
    }
}

TEST(CtransStrDate, DeadlineWithoutTimeLastsAllDay)
{
    EXPECT_EQ(CtransStr::IsOverTime(L"1999-12-31"), 1);
    EXPECT_EQ(CtransStr::IsOverTime(L"9999-12-31"), 0);
    EXPECT_EQ(CtransStr::IsOverTime(L"no date"), 1);
    const CString today = CtransStr::GetDate();
    const int todayIsOver = CtransStr::IsOverTime(today);
    const int midnightIsOver = CtransStr::IsOverTime(today + L" 00:00:00");
    if (CtransStr::GetDate() == today) { // not around midnight
        EXPECT_EQ(todayIsOver, 0);
        EXPECT_EQ(midnightIsOver, 1);
    }
}

TEST(CtransStrDate, StampsComeFromTheLocalClock)
{
    const CString before = localNow(L"%04d-%02d-%02d");
    const CString date = CtransStr::GetDate();
    EXPECT_TRUE(date == before || date == localNow(L"%04d-%02d-%02d"));
    EXPECT_STREQ(CtransStr::GetDate(L"2024/2/9 10:00"), L"2024-02-09");
    int hour = -1, minute = -1, second = -1;
    const CString time = CtransStr::GetTime();
    ASSERT_EQ(std::swscanf(time.GetString(), L"%2d:%2d:%2d", &hour, &minute, &second), 3);
    EXPECT_EQ(time.GetLength(), 8);
    EXPECT_TRUE(hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60);

    const CString dayBefore = localNow(L"%d%d%d");
    const ULONGLONG start = GetTickCount64();
    const CString stamp = CtransStr::GenTimeZoneStr();
    EXPECT_GE(GetTickCount64() - start, 29u); // the tick counter may lag by one
    EXPECT_TRUE(stamp.Find(dayBefore) == 0 || stamp.Find(localNow(L"%d%d%d")) == 0);
    EXPECT_STRNE(stamp, CtransStr::GenTimeZoneStr());
}

TEST(CtransStrPath, NameStartsBehindTheLastSeparator)
{
    const struct {
        const wchar_t *path, *folder, *name, *prefix, *format;
    } cases[] = {
        {L"C:\\a.b\\图1.v2.dwg", L"C:\\a.b\\", L"图1.v2.dwg", L"图1.v2", L"dwg"},
        {L"/home/a/b", L"/home/a/", L"b", L"b", L""},
        {L"C:b.dxf", L"C:", L"b.dxf", L"b", L"dxf"},
        {L"C:\\a\\", L"C:\\a\\", L"", L"", L""},
        {L"name.", L"", L"name.", L"name", L""},
        {L".rc", L"", L".rc", L"", L"rc"},
        {L"", L"", L"", L"", L""},
    };
    for (const auto& each : cases) {
        EXPECT_STREQ(CtransStr::GetFilePath(each.path), each.folder);
        EXPECT_STREQ(CtransStr::GetFileName(each.path), each.name);
        EXPECT_STREQ(CtransStr::GetFilePrefix(each.path), each.prefix);
        EXPECT_STREQ(CtransStr::GetFileNameFormat(each.path), each.format);
    }
}

TEST(CtransStrPath, CommonFolderIsThatOfTheProgram)
{
    wchar_t file[4096] = {};
    ASSERT_GT(GetModuleFileNameW(nullptr, file, 4096), 0u);
    const CString folder = CtransStr::GetAppCommonDir();
    EXPECT_STREQ(folder + CtransStr::GetFileName(file), file);
    EXPECT_NE(std::wcschr(L"\\/", folder[folder.GetLength() - 1]), nullptr);
}

TEST(CtransStr, TemporaryTableNamesDiffer)
{
    const CString first = CtransStr::GetTempTableName();
    EXPECT_EQ(first.GetLength(), 36);
    EXPECT_STREQ(first.Left(4), L"TMP_");
    EXPECT_STREQ(first.Mid(4).SpanIncluding(L"0123456789ABCDEF"), first.Mid(4));
    EXPECT_STRNE(first, CtransStr::GetTempTableName());
    headless::failNextGuid();
    EXPECT_STREQ(CtransStr::GetTempTableName().Left(6), L"TMP_" + localNow(L"%d").Left(2));
}

TEST(CtransStr, ErrorMessageNamesCodeAndReason)
{
    SetLastError(0);
    EXPECT_STREQ(CtransStr::ErrorMessage(), L"错误码为0,系统无法找到错误原因！");
    wchar_t reason[256] = {};
    ASSERT_GT(FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                             ERROR_FILE_NOT_FOUND, 0, reason, 256, nullptr),
              0u);
    SetLastError(ERROR_FILE_NOT_FOUND);
    EXPECT_STREQ(CtransStr::ErrorMessage(), CString(L"2错误原因：") + reason);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    SetLastError(0xE0001234); // bit 29 marks codes of applications, for which the system has no text
    EXPECT_STREQ(CtransStr::ErrorMessage(), L"3758101044错误原因：未知错误！");
    EXPECT_EQ(GetLastError(), 0xE0001234);
}
