#include "TempFolder.h"

#include "Headless.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <vector>

namespace
{
class Profile : public TempFolder
{
protected:
    std::wstring file(const std::wstring& name = L"a.ini") const { return path(name); }

    std::wstring read(const wchar_t* section, const wchar_t* key, const wchar_t* fallback = L"?",
                      DWORD size = 100) const
    {
        std::vector<wchar_t> buffer(size + 1, L'#');
        const DWORD length =
            GetPrivateProfileStringW(section, key, fallback, buffer.data(), size, file().c_str());
        EXPECT_EQ(buffer[size], L'#');
        return std::wstring(buffer.data(), length);
    }
    /// A list with '|' for each NUL that the result counts.
    std::wstring list(const wchar_t* section, DWORD size = 100) const
    {
        std::wstring names = read(section, nullptr, L"", size);
        for (wchar_t& c : names)
            if (c == L'\0') c = L'|';
        return names;
    }
    bool write(const wchar_t* section, const wchar_t* key, const wchar_t* value) const
    {
        return WritePrivateProfileStringW(section, key, value, file().c_str());
    }
    UINT number(const char* text) const
    {
        put("a.ini", std::string("[s]\nn=") + text + "\n");
        return GetPrivateProfileIntW(L"s", L"n", 77, file().c_str());
    }
};

TEST_F(Profile, ValueIsTrimmedAndLosesOnePairOfQuotes)
{
    put("a.ini", "early=1\n; [s]\n  [ S e ]  trailing\r\n ; k1=comment\n  K1 \t=  v = 1 ;x \t\n"
                 "k2=\" a \"\nk3='\"b\"'\nk4=\"c'\nk5=\"\nk1=second\nnovalue\nk6=\n\xD6\xD0=\xCE\xC4\n"
                 "[s e]\nk9=never\n[last\n[t]k=v\nk=end");
    EXPECT_EQ(read(L"s e", L" k1 "), L"v = 1 ;x");
    EXPECT_EQ(read(L"S E", L"k2"), L" a ");
    EXPECT_EQ(read(L"S E", L"k3"), L"\"b\"");
    EXPECT_EQ(read(L"S E", L"k4"), L"\"c'");
    EXPECT_EQ(read(L"S E", L"k5"), L"\"");
    EXPECT_EQ(read(L"S E", L"k6"), L"");
    EXPECT_EQ(read(L"S E", L"\u4E2D"), L"\u6587");
    EXPECT_EQ(GetLastError(), DWORD(NO_ERROR));
    EXPECT_EQ(read(L"t", L"k"), L"end");
    EXPECT_EQ(read(L"S E", L"novalue"), L"?");
    EXPECT_EQ(read(L"S E", L"k9"), L"?"); // only the first section of a name counts
    EXPECT_EQ(read(L"S E", L"none", L" d \t "), L" d");
    EXPECT_EQ(GetLastError(), DWORD(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(read(L"none", L"k", nullptr), L"");
}

TEST_F(Profile, SmallBufferTruncatesByTheRules)
{
    put("a.ini", "[one]\nkey=value\nk2=2\n[two]\n");
    EXPECT_EQ(read(L"one", L"key", L"", 5), L"valu");
    EXPECT_EQ(GetLastError(), DWORD(ERROR_MORE_DATA));
    EXPECT_EQ(read(L"one", L"key", L"", 6), L"value");
    EXPECT_EQ(read(L"one", L"key", L"", 1), L"");
    EXPECT_EQ(read(L"one", L"key", L"", 0), L"");
    EXPECT_EQ(list(nullptr), L"one|two|");
    EXPECT_EQ(list(L"one"), L"key|k2|");
    EXPECT_EQ(list(L"none"), L"");
    EXPECT_EQ(list(L"one", 8), L"key|k2|"); // fits: 7 counted, one more NUL
    for (DWORD size : {7u, 6u, 5u, 3u, 2u}) {
        wchar_t buffer[8];
        EXPECT_EQ(GetPrivateProfileStringW(L"one", nullptr, L"", buffer, size, file().c_str()), size - 2);
        EXPECT_EQ(buffer[size - 2], L'\0');
        EXPECT_EQ(buffer[size - 1], L'\0');
    }
    EXPECT_EQ(list(L"one", 1), L"");
    EXPECT_EQ(list(L"one", 0), L"");
}

TEST_F(Profile, SectionIsListedWithoutCommentsAndBlankLines)
{
    put("a.ini", "[s]\n; c\n\n k = \"v\" \nplain\n=x\n[t]\n");
    wchar_t buffer[64];
    const DWORD length = GetPrivateProfileSectionW(L"S", buffer, 64, file().c_str());
    EXPECT_EQ(std::wstring(buffer, length), std::wstring(L"k=\"v\"\0plain\0=x\0", 15));
    EXPECT_EQ(list(L"s"), L"k|");
    EXPECT_EQ(GetPrivateProfileSectionW(L"t", buffer, 64, file().c_str()), 0u);
    EXPECT_EQ(buffer[1], L'\0');
}

TEST_F(Profile, NumberEndsAtTheFirstOtherCharacter)
{
    EXPECT_EQ(number("12abc"), 12u);
    EXPECT_EQ(number("-5"), static_cast<UINT>(-5));
    EXPECT_EQ(number("0x1F"), 0u);
    EXPECT_EQ(number("abc"), 0u);
    EXPECT_EQ(number("\" 7\""), 0u);
    EXPECT_EQ(number("'7'"), 7u);
    EXPECT_EQ(number("4294967295"), 4294967295u);
    EXPECT_EQ(number(""), 77u);
    EXPECT_EQ(GetPrivateProfileIntW(L"s", L"none", -1, file().c_str()), static_cast<UINT>(-1));
}

TEST_F(Profile, WriteLeavesEveryOtherByteAlone)
{
    const std::string head = "\xFFodd\r\n;c \xD6\n[a]\n  Key\t= old ; x  \r\n;end\n\n \n", tail = "[b]\rk=1";
    put("a.ini", head + tail);
    EXPECT_TRUE(write(L"A", L"kEY", L"new"));
    EXPECT_EQ(get("a.ini"), "\xFFodd\r\n;c \xD6\n[a]\n  Key\t=new\r\n;end\n\n \n" + tail);
    EXPECT_TRUE(write(L"a", L"k2", L" \u4E2D "));
    EXPECT_EQ(get("a.ini"), "\xFFodd\r\n;c \xD6\n[a]\n  Key\t=new\r\n;end\nk2= \xD6\xD0 \n\n \n" + tail);
    EXPECT_TRUE(write(L"a", L"key", nullptr));
    EXPECT_TRUE(write(L"a", L"none", nullptr));
    EXPECT_TRUE(write(L"none", nullptr, nullptr));
    EXPECT_EQ(get("a.ini"), "\xFFodd\r\n;c \xD6\n[a]\n;end\nk2= \xD6\xD0 \n\n \n" + tail);
    EXPECT_TRUE(write(L"b", L"k2", L"2")); // the last line had no line break
    EXPECT_TRUE(write(L"a", nullptr, L"ignored"));
    EXPECT_EQ(get("a.ini"), "\xFFodd\r\n;c \xD6\n[b]\rk=1\rk2=2\r");
    EXPECT_TRUE(write(L" c ", L" k ", L""));
    EXPECT_EQ(get("a.ini"), "\xFFodd\r\n;c \xD6\n[b]\rk=1\rk2=2\r[c]\rk=\r");
}

TEST_F(Profile, SectionIsReplacedAsAWhole)
{
    put("a.ini", "[a]\nx=1\n;c\n\n[b]\ny=2\n");
    EXPECT_TRUE(WritePrivateProfileSectionW(L"A", L"p=1\0q=2\0", file().c_str()));
    EXPECT_TRUE(WritePrivateProfileSectionW(L"c", L"r=3\0", file().c_str()));
    EXPECT_EQ(get("a.ini"), "[a]\np=1\nq=2\n\n[b]\ny=2\n[c]\nr=3\n");
    EXPECT_TRUE(WritePrivateProfileSectionW(L"b", nullptr, file().c_str()));
    EXPECT_EQ(get("a.ini"), "[a]\np=1\nq=2\n\n[c]\nr=3\n");
}

TEST_F(Profile, Utf16FileIsReadAndWrittenAsSuch)
{
    const auto utf16 = [](const std::u16string& text) {
        std::string bytes = "\xFF\xFE";
        for (char16_t unit : text) {
            bytes.push_back(static_cast<char>(unit & 0xFF));
            bytes.push_back(static_cast<char>(unit >> 8));
        }
        return bytes;
    };
    put("a.ini", utf16(u"[\u4E2D]\r\nk=\U00020000\u0E01\r\n\xD800"));
    EXPECT_EQ(read(L"\u4E2D", L"k"), L"\U00020000\u0E01");
    EXPECT_TRUE(write(L"\u4E2D", L"\U00020001", L"\u00E9"));
    EXPECT_EQ(get("a.ini"), utf16(u"[\u4E2D]\r\nk=\U00020000\u0E01\r\n\xD800\r\n\U00020001=\u00E9\r\n"));
    put("a.ini", "\xFF\xFE");
    EXPECT_TRUE(write(L"s", L"k", L"v"));
    EXPECT_EQ(get("a.ini"), utf16(u"[s]\r\nk=v\r\n"));
    put("a.ini", "\xFF\xFE[\0s\0]\0\n\0k\0=\0v"); // an odd byte at the end of the file
    EXPECT_EQ(read(L"s", L"k"), L"?");
}

TEST_F(Profile, TrailByteThatLooksLikeABracketEndsNoHeader)
{
    put("a.ini", "[\x81\x5D]\r\nk=v\r\n"); // 0x815D is one character of GBK, U+4E20
    EXPECT_EQ(list(nullptr).size(), 2u);
    EXPECT_EQ(read(list(nullptr).substr(0, 1).c_str(), L"k"), L"v");
}

TEST_F(Profile, NewFileIsTextOfTheAnsiCodePage)
{
    EXPECT_TRUE(write(L"\u4E2D", L"k", L"\u6587"));
    EXPECT_EQ(get("a.ini"), "[\xD6\xD0]\r\nk=\xCE\xC4\r\n");
    headless::setAnsiCodePage(65001);
    EXPECT_TRUE(WritePrivateProfileStringW(L"\u4E2D", L"k", L"v", file(L"b.ini").c_str()));
    EXPECT_EQ(read(L"\u4E2D", L"k"), L"?"); // the same bytes are no longer that name
    headless::setAnsiCodePage(936);
    EXPECT_EQ(get("b.ini"), "[\xE4\xB8\xAD]\r\nk=v\r\n");
}

TEST_F(Profile, FailedWriteChangesNothing)
{
    put("a.ini", "[s]\nk=1\n");
    EXPECT_FALSE(WritePrivateProfileStringW(L"s", L"k", L"2", file(L"none\\a.ini").c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_PATH_NOT_FOUND));
    EXPECT_TRUE(SetFileAttributesW(file().c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_FALSE(write(L"s", L"k", L"2"));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_ACCESS_DENIED));
    EXPECT_TRUE(SetFileAttributesW(file().c_str(), FILE_ATTRIBUTE_NORMAL));
    const HANDLE open =
        CreateFileW(file().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_FALSE(write(L"s", nullptr, nullptr));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_SHARING_VIOLATION));
    CloseHandle(open);
    EXPECT_FALSE(write(nullptr, nullptr, nullptr));
    EXPECT_FALSE(WritePrivateProfileStringW(L"s", L"k", L"v", nullptr));
    EXPECT_EQ(get("a.ini"), "[s]\nk=1\n");
    WIN32_FIND_DATAW data;
    const HANDLE left = FindFirstFileW(file(L"a*").c_str(), &data);
    EXPECT_FALSE(FindNextFileW(left, &data)); // no temporary file stays behind
    EXPECT_TRUE(FindClose(left));
}

TEST_F(Profile, ReplacementKeepsPermissionsAndLinks)
{
    put("real.ini", "[s]\nk=1\n");
    chmod(host("real.ini").c_str(), 0640);
    ASSERT_EQ(symlink("real.ini", host("a.ini").c_str()), 0);
    EXPECT_TRUE(write(L"s", L"k", L"2"));
    struct stat info;
    EXPECT_EQ(lstat(host("a.ini").c_str(), &info), 0);
    EXPECT_TRUE(S_ISLNK(info.st_mode));
    EXPECT_EQ(stat(host("real.ini").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0640u);
    EXPECT_EQ(get("real.ini"), "[s]\nk=2\n");
}

TEST_F(Profile, ChangeByAnotherProgramIsSeenAtOnce)
{
    for (char digit = '0'; digit <= '9'; ++digit) { // the size stays, and so may the time stamp
        put("a.ini", std::string("[s]\nk=") + digit + "\n");
        EXPECT_EQ(read(L"s", L"k"), std::wstring(1, static_cast<wchar_t>(digit)));
    }
    usleep(50000);
    EXPECT_EQ(read(L"s", L"k"), L"9");
    const auto written = std::filesystem::last_write_time(host("a.ini"));
    put("a.ini", "[s]\nk=x\n");
    std::filesystem::last_write_time(host("a.ini"), written); // a program may set the time back
    EXPECT_EQ(read(L"s", L"k"), L"x");
}

TEST_F(Profile, FirstOfManyEqualNamesCountsAndTheyCostNoMore)
{
    std::string contents = "[s]\nFirst=1\n";
    for (int i = 0; i < 200000; ++i) // quadratic work would take minutes
        contents += i % 2 ? "\xD6\xD0=2\n" : "first=3\n";
    put("a.ini", contents + "[S]\nlast=4\n");
    EXPECT_EQ(read(L"s", L"FIRST"), L"1");
    EXPECT_EQ(read(L"s", L"\u4E2D"), L"2");
    EXPECT_EQ(read(L"s", L"last"), L"?");
}

TEST_F(Profile, ThousandReadsOfALargeFileCostAFewParses)
{
    std::string contents = "[big]\n";
    for (int i = 0; contents.size() < 10u << 20; ++i)
        contents += "key" + std::to_string(i) + "=a value of some length\n";
    put("a.ini", contents + "[last]\nk=v\n");
    const auto timed = [&](int reads) {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < reads; ++i)
            EXPECT_EQ(read(L"big", (L"key" + std::to_wstring(i * 200)).c_str()), L"a value of some length");
        return std::chrono::steady_clock::now() - start;
    };
    usleep(50000);
    const auto first = timed(1); // reads and parses
    EXPECT_LT(timed(1000), 10 * first);
}
} // namespace
