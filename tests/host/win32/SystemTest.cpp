#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>
#include <thread>

TEST(Clocks, LocalTimeFollowsTheTimeZone)
{
    const char* before = std::getenv("TZ");
    const std::string zone = before ? before : "";
    setenv("TZ", "XYZ-05:30", 1);
    tzset();
    const FILETIME utc{0x12345678, 0x01D00000};
    FILETIME local{}, back{};
    EXPECT_TRUE(FileTimeToLocalFileTime(&utc, &local));
    const auto ticks = [](const FILETIME& t) {
        return static_cast<LONGLONG>(t.dwHighDateTime) << 32 | t.dwLowDateTime;
    };
    EXPECT_EQ(ticks(local) - ticks(utc), 198000000000); // five hours and a half
    EXPECT_TRUE(LocalFileTimeToFileTime(&local, &back));
    EXPECT_EQ(CompareFileTime(&back, &utc), 0);
    const FILETIME early{0, 0};
    EXPECT_FALSE(LocalFileTimeToFileTime(&early, &back));
    SYSTEMTIME here{}, there{};
    GetSystemTime(&there);
    GetLocalTime(&here);
    FILETIME a{}, b{};
    EXPECT_TRUE(SystemTimeToFileTime(&there, &a) && SystemTimeToFileTime(&here, &b));
    EXPECT_NEAR(static_cast<double>(ticks(b) - ticks(a)), 198000000000.0, 6e8);
    zone.empty() ? unsetenv("TZ") : setenv("TZ", zone.c_str(), 1);
    tzset();
}

TEST(Clocks, SleepLastsAsLongAsAsked)
{
    LARGE_INTEGER begin{}, end{}, frequency{};
    const ULONGLONG ticks = GetTickCount64();
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&begin);
    Sleep(30);
    QueryPerformanceCounter(&end);
    EXPECT_GE((end.QuadPart - begin.QuadPart) * 1000 / frequency.QuadPart, 30);
    EXPECT_GE(GetTickCount64() - ticks, 29u);
}

TEST(CriticalSection, OwnerEntersAgainAndOthersDoNot)
{
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    EnterCriticalSection(&section);
    EXPECT_TRUE(TryEnterCriticalSection(&section));
    LeaveCriticalSection(&section);
    BOOL entered = TRUE;
    std::thread([&] { entered = TryEnterCriticalSection(&section); }).join();
    EXPECT_FALSE(entered);
    LeaveCriticalSection(&section);
    std::thread([&] {
        entered = TryEnterCriticalSection(&section);
        if (entered) LeaveCriticalSection(&section);
    }).join();
    EXPECT_TRUE(entered);
    DeleteCriticalSection(&section);
}

TEST(UserName, SmallBufferIsToldTheSize)
{
    DWORD size = 0;
    EXPECT_FALSE(GetUserNameW(nullptr, &size));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    ASSERT_GT(size, 1u);
    std::wstring name(size, L'?');
    EXPECT_TRUE(GetUserNameW(name.data(), &size));
    EXPECT_EQ(name.find(L'\0'), size - 1);
    EXPECT_FALSE(GetComputerNameW(name.data(), &(size = 0)));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_BUFFER_OVERFLOW));
}

TEST(CoInitialize, CountsItsUsesAndKeepsItsModel)
{
    EXPECT_EQ(CoInitialize(nullptr), S_OK);
    EXPECT_EQ(CoInitialize(nullptr), S_FALSE);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), RPC_E_CHANGED_MODE);
    CoUninitialize();
    CoUninitialize();
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    CoUninitialize();
}
