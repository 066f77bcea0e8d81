#include "TempFolder.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace
{
class Paths : public TempFolder
{
};

std::wstring full(const wchar_t* path)
{
    wchar_t buffer[MAX_PATH] = L"";
    GetFullPathNameW(path, MAX_PATH, buffer, nullptr);
    return buffer;
}

TEST_F(Paths, FullPathIsWindowsShapedAndWithoutDots)
{
    EXPECT_EQ(full(L"/usr//lib/./x/../y"), L"Z:\\usr\\lib\\y");
    EXPECT_EQ(full(L"c:\\a/b\\"), L"c:\\a\\b\\");
    EXPECT_EQ(full(L"\\..\\.."), L"Z:\\");
    EXPECT_EQ(full(L"Z:\\a\\name. . "), L"Z:\\a\\name");
    EXPECT_EQ(full(L""), L"");
    const std::wstring here = full(L".");
    EXPECT_EQ(full(L"x.txt"), here + L"\\x.txt");
    EXPECT_EQ(full(L"z:x.txt"), here + L"\\x.txt");
    EXPECT_EQ(full(L"c:x.txt"), L"c:\\x.txt");
}

TEST_F(Paths, BufferResultsAreLengthOrNeededSize)
{
    wchar_t buffer[8] = L"#######";
    wchar_t* name = buffer;
    EXPECT_EQ(GetFullPathNameW(L"/a/b.c", 7, buffer, &name), 9u); // Z:\a\b.c and the NUL
    EXPECT_EQ(name, nullptr);
    EXPECT_EQ(buffer[0], L'#');
    EXPECT_EQ(GetFullPathNameW(L"/a/b", 8, buffer, &name), 6u);
    EXPECT_STREQ(name, L"b");
    EXPECT_EQ(GetFullPathNameW(L"/a/", 8, buffer, &name), 5u);
    EXPECT_EQ(name, nullptr);
    EXPECT_EQ(GetFullPathNameW(L"/a", 0, nullptr, nullptr), 5u);
}

TEST_F(Paths, NameIsFoundWithoutRegardToCaseButExactFirst)
{
    ASSERT_TRUE(CreateDirectoryW(path(L"Folder").c_str(), nullptr));
    put("Folder/\xC3\x84pfel.TXT", "upper");
    EXPECT_NE(GetFileAttributesW(path(L"fOLDER/\u00E4PFEL.txt").c_str()), INVALID_FILE_ATTRIBUTES);
    put("Folder/\xC3\xA4pfel.txt", "lower, longer");
    WIN32_FILE_ATTRIBUTE_DATA data;
    EXPECT_TRUE(GetFileAttributesExW(path(L"Folder/\u00E4pfel.txt").c_str(), GetFileExInfoStandard, &data));
    EXPECT_EQ(data.nFileSizeLow, 13u);
    // A new file goes into the directory that exists, under the name as written.
    const HANDLE file =
        CreateFileW(path(L"FOLDER\\New").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(get("Folder/New"), "");
}

TEST_F(Paths, OtherDrivesExistOnlyWhenTheEnvironmentNamesThem)
{
    put("a.txt", "");
    EXPECT_EQ(GetFileAttributesW(L"Q:\\a.txt"), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(GetDriveTypeW(L"Q:\\"), UINT(DRIVE_NO_ROOT_DIR));
    setenv("QM_DRIVE_Q", host("").c_str(), 1);
    EXPECT_EQ(GetFileAttributesW(L"q:/A.TXT"), DWORD(FILE_ATTRIBUTE_NORMAL));
    EXPECT_EQ(GetDriveTypeW(L"Q:\\"), UINT(DRIVE_FIXED));
    unsetenv("QM_DRIVE_Q");
}

TEST_F(Paths, CurrentDirectoryIsTheBaseOfRelativePaths)
{
    wchar_t before[MAX_PATH], now[MAX_PATH];
    ASSERT_GT(GetCurrentDirectoryW(MAX_PATH, before), 0u);
    put("file", "");
    ASSERT_TRUE(SetCurrentDirectoryW(path(L"").c_str()));
    GetCurrentDirectoryW(MAX_PATH, now);
    EXPECT_EQ(std::wstring(now) + L"\\", path(L""));
    EXPECT_EQ(GetFileAttributesW(L"FILE"), DWORD(FILE_ATTRIBUTE_NORMAL));
    EXPECT_FALSE(SetCurrentDirectoryW(L"file"));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_DIRECTORY));
    EXPECT_TRUE(SetCurrentDirectoryW(before));
}

TEST_F(Paths, TempFileNamesAreNewAndCreated)
{
    wchar_t one[MAX_PATH], two[MAX_PATH];
    EXPECT_NE(GetTempFileNameW(path(L"").c_str(), L"prefix", 0, one), 0u);
    EXPECT_NE(GetTempFileNameW(path(L"").c_str(), L"prefix", 0, two), 0u);
    EXPECT_STRNE(one, two);
    EXPECT_EQ(GetFileAttributesW(two), DWORD(FILE_ATTRIBUTE_NORMAL));
    EXPECT_EQ(GetTempFileNameW(path(L"").c_str(), nullptr, 0x1ABC, one), 0x1ABCu);
    EXPECT_EQ(one, path(L"1ABC.TMP"));
    EXPECT_EQ(GetFileAttributesW(one), INVALID_FILE_ATTRIBUTES); // a given number is not looked at
    EXPECT_EQ(GetTempFileNameW(path(L"none").c_str(), L"p", 0, one), 0u);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_DIRECTORY));
}

TEST(Environment, NamesAreFoundInAnyCase)
{
    wchar_t value[16] = L"#";
    ASSERT_TRUE(SetEnvironmentVariableW(L"Qm_Test", L"v\u4E2D"));
    EXPECT_EQ(GetEnvironmentVariableW(L"QM_TEST", value, 16), 2u);
    EXPECT_STREQ(value, L"v\u4E2D");
    EXPECT_EQ(GetEnvironmentVariableW(L"Qm_Test", value, 2), 3u);
    EXPECT_EQ(ExpandEnvironmentStringsW(L"<%qm_test%|%no%|%>", value, 16), 12u);
    EXPECT_STREQ(value, L"<v\u4E2D|%no%|%>");
    EXPECT_TRUE(SetEnvironmentVariableW(L"QM_TEST", nullptr));
    EXPECT_EQ(GetEnvironmentVariableW(L"Qm_Test", value, 16), 0u);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_ENVVAR_NOT_FOUND));
    EXPECT_FALSE(SetEnvironmentVariableW(L"a=b", L""));
}
} // namespace
