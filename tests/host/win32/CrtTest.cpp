#include <tchar.h>
#include <windows.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>

TEST(CheckedCopy, WhatDoesNotFitEmptiesTheTarget)
{
    wchar_t to[4] = L"old";
    EXPECT_EQ(wcscpy_s(to, L"abc"), 0);
    EXPECT_STREQ(to, L"abc");
    EXPECT_EQ(wcscat_s(to, L"d"), ERANGE);
    EXPECT_STREQ(to, L"");
    EXPECT_EQ(wcscpy_s(to, L"abcd"), ERANGE);
    EXPECT_EQ(wcsncpy_s(to, L"abcd", 3), 0);
    EXPECT_STREQ(to, L"abc");
    EXPECT_EQ(wcsncpy_s(to, L"abcd", _TRUNCATE), STRUNCATE);
    EXPECT_STREQ(to, L"abc");
    EXPECT_EQ(wcsncpy_s(to, L"x", _TRUNCATE), 0);
    EXPECT_EQ(wcsncat_s(to, L"yzz", 2), 0);
    EXPECT_STREQ(to, L"xyz");
    EXPECT_EQ(wcsncat_s(to, L"w", _TRUNCATE), STRUNCATE);
    EXPECT_STREQ(to, L"xyz");
}

TEST(CheckedCopy, InvalidArgumentsAreReported)
{
    char to[4] = "abc";
    EXPECT_EQ(strcpy_s(to, nullptr), EINVAL);
    EXPECT_STREQ(to, "");
    EXPECT_EQ(strcpy_s(nullptr, 4, "a"), EINVAL);
    EXPECT_EQ(strcpy_s(to, 0, "a"), EINVAL);
    std::memset(to, 'x', sizeof to);
    EXPECT_EQ(strcat_s(to, "a"), EINVAL) << "no terminator to append at";
    EXPECT_EQ(strncpy_s(nullptr, 0, nullptr, 0), 0);
    int source = 7, target = 1;
    EXPECT_EQ(memcpy_s(&target, 2, &source, sizeof source), ERANGE);
    EXPECT_EQ(target, 0);
    EXPECT_EQ(memcpy_s(&target, sizeof target, &source, sizeof source), 0);
    EXPECT_EQ(target, 7);
    wchar_t unterminated[2] = {L'a', L'b'};
    EXPECT_EQ(_wcsupr_s(unterminated, 2), EINVAL);
}

TEST(CaseOfText, ComparesInLowerCase)
{
    EXPECT_EQ(_wcsicmp(L"ÄPFEL图", L"äpfel图"), 0);
    EXPECT_LT(_wcsicmp(L"_", L"A"), 0) << "the underscore is behind Z and before a";
    EXPECT_EQ(_wcsnicmp(L"abcX", L"ABCY", 3), 0);
    EXPECT_GT(_stricmp("b", "A"), 0);
    EXPECT_LT(_stricmp("", "\xff"), 0);
    wchar_t text[] = L"éa图";
    EXPECT_STREQ(_wcsupr(text), L"ÉA图");
    EXPECT_STREQ(_wcsrev(text), L"图AÉ");
}

TEST(NumberText, StopsAtTheFirstCharacterThatDoesNotBelong)
{
    EXPECT_EQ(_wtoi(L"2.5"), 2);
    EXPECT_EQ(_wtoi(L" \t-17x"), -17);
    EXPECT_EQ(_wtoi(L"+3"), 3);
    EXPECT_EQ(_wtoi(L"- 3"), 0);
    EXPECT_EQ(_wtoi(L""), 0);
    EXPECT_EQ(_ttoi(nullptr), 0);
    EXPECT_EQ(_wtof(L" 2.5e1mm"), 25);
    EXPECT_EQ(_wtof(L"-.5图"), -0.5);
    EXPECT_EQ(_wtof(L"x"), 0);
    EXPECT_TRUE(std::isinf(_wtof(L"1e999")));
}

TEST(NumberText, TooLargeIsTheLargest)
{
    EXPECT_EQ(_wtol(L"2147483647"), 2147483647);
    EXPECT_EQ(_wtol(L"2147483648"), 2147483647);
    EXPECT_EQ(_wtol(L"-99999999999"), -2147483647 - 1);
    EXPECT_EQ(_wtoi64(L"-9223372036854775808"), INT64_MIN);
    errno = 0;
    EXPECT_EQ(_wtoi64(L"9223372036854775808"), INT64_MAX);
    EXPECT_EQ(errno, ERANGE);
}

TEST(NumberText, IsWrittenInAnyBase)
{
    wchar_t text[34];
    EXPECT_STREQ(_itow(-255, text, 10), L"-255");
    EXPECT_STREQ(_itow(-255, text, 16), L"ffffff01");
    EXPECT_EQ(_i64tow_s(-1, text, 2), ERANGE) << "64 digits";
    EXPECT_STREQ(text, L"");
    EXPECT_EQ(_itow_s(35, text, 36), 0);
    EXPECT_STREQ(text, L"z");
    EXPECT_EQ(_itow_s(1, text, 37), EINVAL);
    char small[3];
    EXPECT_EQ(_itoa_s(-10, small, 10), ERANGE);
    EXPECT_EQ(_itoa_s(-9, small, 10), 0);
    EXPECT_STREQ(small, "-9");
}

TEST(SplitPath, TakesPathsApartAndTogether)
{
    struct {
        const wchar_t *path, *drive, *directory, *name, *extension;
    } const cases[] = {
        {L"C:\\图 纸\\a.b.dwg", L"C:", L"\\图 纸\\", L"a.b", L".dwg"},
        {L"/home/x.y/file", L"", L"/home/x.y/", L"file", L""},
        {L"file.", L"", L"", L"file", L"."},
        {L"D:.rc", L"D:", L"", L"", L".rc"},
        {L"", L"", L"", L"", L""},
    };
    for (const auto& c : cases) {
        wchar_t drive[_MAX_DRIVE], directory[_MAX_DIR], name[_MAX_FNAME], extension[_MAX_EXT],
            path[_MAX_PATH];
        ASSERT_EQ(_wsplitpath_s(c.path, drive, directory, name, extension), 0);
        EXPECT_STREQ(drive, c.drive);
        EXPECT_STREQ(directory, c.directory);
        EXPECT_STREQ(name, c.name);
        EXPECT_STREQ(extension, c.extension);
        ASSERT_EQ(_wmakepath_s(path, drive, directory, name, extension), 0);
        EXPECT_STREQ(path, c.path);
    }
    wchar_t path[12];
    EXPECT_EQ(_wmakepath_s(path, L"c", L"dir", L"name", L"e"), ERANGE);
    EXPECT_STREQ(path, L"");
    EXPECT_EQ(_wmakepath_s(path, L"c", L"dir", L"n", L"e"), 0);
    EXPECT_STREQ(path, L"c:dir\\n.e");
    wchar_t name[3] = L"xy";
    EXPECT_EQ(_wsplitpath_s(L"c:\\long.x", nullptr, 0, nullptr, 0, name, 3, nullptr, 0), ERANGE);
    EXPECT_STREQ(name, L"");
}

TEST(WideFiles, OpenByWindowsPaths)
{
    const std::string directory = testing::TempDir();
    const std::wstring path = std::wstring(directory.begin(), directory.end()) + L"crt\\..\\图.txt";
    FILE* file = nullptr;
    ASSERT_EQ(_wfopen_s(&file, path.c_str(), L"wt"), 0);
    std::fputs("line\n", file);
    std::fclose(file);
    EXPECT_EQ(_waccess(path.c_str(), 6), 0);
    EXPECT_EQ(_waccess_s(path.c_str(), 1), EINVAL);
    file = _wfopen(path.c_str(), L"rb");
    ASSERT_NE(file, nullptr);
    char line[10] = "";
    EXPECT_STREQ(std::fgets(line, sizeof line, file), "line\n");
    std::fclose(file);
    EXPECT_EQ(_wfopen(path.c_str(), L"r, ccs=UTF-8"), nullptr);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(_wremove(path.c_str()), 0);
    EXPECT_EQ(_waccess_s(path.c_str(), 0), ENOENT);
}
