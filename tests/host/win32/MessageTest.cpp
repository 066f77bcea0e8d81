#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace
{
constexpr DWORD fromString = FORMAT_MESSAGE_FROM_STRING;

std::wstring format(const wchar_t* source, ...)
{
    va_list arguments;
    va_start(arguments, source);
    wchar_t buffer[256];
    const DWORD length = FormatMessageW(fromString, source, 0, 0, buffer, 256, &arguments);
    va_end(arguments);
    return std::wstring(buffer, length);
}

TEST(FormatMessage, SystemTextEndsWithALineBreak)
{
    LPWSTR text = nullptr;
    const DWORD flags =
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    ASSERT_GT(FormatMessageW(flags, nullptr, 2, 0, reinterpret_cast<LPWSTR>(&text), 0, nullptr), 0u);
    EXPECT_STREQ(text, L"The system cannot find the file specified.\r\n");
    EXPECT_EQ(LocalFree(text), nullptr);
    wchar_t buffer[64];
    const DWORD plain = FORMAT_MESSAGE_FROM_SYSTEM;
    EXPECT_EQ(FormatMessageW(plain, nullptr, static_cast<DWORD>(E_INVALIDARG), 0, buffer, 64, nullptr), 29u);
    EXPECT_EQ(FormatMessageW(plain | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr, 5, 0, buffer, 64, nullptr), 18u);
    EXPECT_STREQ(buffer, L"Access is denied. ");
    EXPECT_EQ(FormatMessageW(plain, nullptr, 193, 0, buffer, 64, nullptr), 0u); // %1 without arguments
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(FormatMessageW(plain, nullptr, 0xDEAD, 0, buffer, 64, nullptr), 0u);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_MR_MID_NOT_FOUND));
    EXPECT_EQ(FormatMessageW(plain, nullptr, 5, 0, buffer, 19, nullptr), 0u);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(FormatMessageW(plain, nullptr, 5, 0, buffer, 20, nullptr), 19u);
}

TEST(FormatMessage, InsertsTakeArgumentsByNumber)
{
    EXPECT_EQ(format(L"%2 %1!5d!|%1!-5d!|%3!05x!%%", -3, L"two", 255), L"two    -3|-3   |000ff%");
    EXPECT_EQ(format(L"%1!*.*s! %4!*s!|", 4, 2, L"Bill", 6, L"Bob"),
              L"  Bi    Bob|"); // the documented sample
    EXPECT_EQ(format(L"%1!S!%2!c!%3!I64d!%4!lu!", "\xD6\xD0", L'x', 1LL << 40, 4000000000u),
              L"\u4E2Dx10995116277764000000000");
    EXPECT_EQ(format(L"a%nb%t%!%0never"), L"a\r\nb\t!");
    EXPECT_EQ(format(L"%1!6hs!|%2!ls!|%2!.1s!", "n", L"wide"), L"     n|wide|w");
    EXPECT_EQ(format(L"%1!d", 1), L"");
    EXPECT_EQ(format(L"%1!q!", 1), L"");
    EXPECT_EQ(format(L"%"), L"");
}

TEST(FormatMessage, ArgumentArrayAndIgnoredInserts)
{
    const DWORD_PTR arguments[] = {reinterpret_cast<DWORD_PTR>(L"one"), 2};
    wchar_t buffer[32];
    auto* list = reinterpret_cast<va_list*>(const_cast<DWORD_PTR*>(arguments));
    EXPECT_EQ(FormatMessageW(fromString | FORMAT_MESSAGE_ARGUMENT_ARRAY, L"%2!d!%1", 0, 0, buffer, 32, list),
              4u);
    EXPECT_STREQ(buffer, L"2one");
    EXPECT_EQ(
        FormatMessageW(fromString | FORMAT_MESSAGE_IGNORE_INSERTS, L"%1!d! %n", 0, 0, buffer, 32, nullptr),
        8u);
    EXPECT_STREQ(buffer, L"%1!d! %n");
    EXPECT_EQ(FormatMessageW(fromString, nullptr, 0, 0, buffer, 32, nullptr), 0u);
}

TEST(GlobalMemory, MovableBlockKeepsItsHandleAndCountsLocks)
{
    const HGLOBAL block = GlobalAlloc(GHND, 4);
    auto* bytes = static_cast<char*>(GlobalLock(block));
    ASSERT_NE(bytes, nullptr);
    EXPECT_EQ(std::memcmp(bytes, "\0\0\0\0", 4), 0);
    std::memcpy(bytes, "abcd", 4);
    GlobalLock(block);
    EXPECT_EQ(GlobalFlags(block) & GMEM_LOCKCOUNT, 2u);
    EXPECT_TRUE(GlobalUnlock(block));
    EXPECT_FALSE(GlobalUnlock(block));
    EXPECT_EQ(GetLastError(), DWORD(NO_ERROR));
    EXPECT_FALSE(GlobalUnlock(block));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_NOT_LOCKED));
    EXPECT_EQ(GlobalReAlloc(block, 100000, GMEM_ZEROINIT), block);
    EXPECT_EQ(GlobalSize(block), 100000u);
    bytes = static_cast<char*>(GlobalLock(block));
    EXPECT_EQ(std::string(bytes, 5), std::string("abcd\0", 5));
    EXPECT_EQ(bytes[99999], '\0');
    EXPECT_EQ(GlobalFree(block), nullptr);
    EXPECT_EQ(GlobalFree(block), block);
    EXPECT_EQ(GlobalLock(block), nullptr);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_HANDLE));
}

TEST(GlobalMemory, FixedBlockIsItsAddress)
{
    const HLOCAL block = LocalAlloc(LPTR, 3);
    EXPECT_EQ(LocalLock(block), block);
    EXPECT_EQ(LocalSize(block), 3u);
    EXPECT_EQ(LocalReAlloc(block, 6, 0), nullptr); // may not move
    EXPECT_EQ(LocalReAlloc(block, 2, 0), block);
    EXPECT_EQ(LocalSize(block), 2u);
    EXPECT_EQ(LocalFree(block), nullptr);
    EXPECT_EQ(LocalFree(nullptr), nullptr);
    EXPECT_EQ(GlobalAlloc(0, SIZE_T(-1) / 2), nullptr);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_NOT_ENOUGH_MEMORY));
}
} // namespace
