#include "TempFolder.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
class FileCalls : public TempFolder
{
protected:
    HANDLE open(const std::wstring& name, DWORD access, DWORD disposition, DWORD share = 0,
                DWORD flags = 0) const
    {
        SetLastError(12345);
        return CreateFileW(path(name).c_str(), access, share, nullptr, disposition, flags, nullptr);
    }
    /// Opens and closes again; the last error that opening left, with failures as negative numbers.
    int outcome(const std::wstring& name, DWORD access, DWORD disposition, DWORD share = 0,
                DWORD flags = 0) const
    {
        const HANDLE file = open(name, access, disposition, share, flags);
        const int error = static_cast<int>(GetLastError());
        if (file == INVALID_HANDLE_VALUE) return -error;
        EXPECT_TRUE(CloseHandle(file));
        return error;
    }
    std::vector<std::wstring> list(const std::wstring& pattern) const
    {
        std::vector<std::wstring> names;
        WIN32_FIND_DATAW data;
        const HANDLE find = FindFirstFileW(path(pattern).c_str(), &data);
        if (find == INVALID_HANDLE_VALUE) return names;
        do
            names.push_back(data.cFileName);
        while (FindNextFileW(find, &data));
        EXPECT_EQ(GetLastError(), DWORD(ERROR_NO_MORE_FILES));
        EXPECT_TRUE(FindClose(find));
        return names;
    }
};

using Names = std::vector<std::wstring>;

// Columns as in the documentation of CreateFileW: what each disposition does with and without the file.
TEST_F(FileCalls, DispositionDecidesWhatAnExistingFileMeans)
{
    EXPECT_EQ(outcome(L"a", GENERIC_WRITE, OPEN_EXISTING), -ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(outcome(L"a", GENERIC_WRITE, TRUNCATE_EXISTING), -ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(outcome(L"none\\a", GENERIC_WRITE, CREATE_ALWAYS), -ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(outcome(L"a", GENERIC_WRITE, CREATE_NEW), NO_ERROR);
    EXPECT_EQ(outcome(L"a", GENERIC_WRITE, CREATE_NEW), -ERROR_FILE_EXISTS);
    EXPECT_EQ(outcome(L"b", GENERIC_WRITE, CREATE_ALWAYS), NO_ERROR);
    EXPECT_EQ(outcome(L"c", GENERIC_READ, OPEN_ALWAYS), NO_ERROR);
    put("a", "contents");
    EXPECT_EQ(outcome(L"a", GENERIC_READ, OPEN_ALWAYS), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(get("a"), "contents");
    EXPECT_EQ(outcome(L"a", GENERIC_READ, TRUNCATE_EXISTING), -ERROR_INVALID_PARAMETER);
    EXPECT_EQ(get("a"), "contents");
    EXPECT_EQ(outcome(L"a", GENERIC_WRITE, TRUNCATE_EXISTING), NO_ERROR);
    EXPECT_EQ(get("a"), "");
    put("a", "contents");
    EXPECT_EQ(outcome(L"a", GENERIC_WRITE, CREATE_ALWAYS), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(get("a"), "");
    EXPECT_EQ(outcome(L"a", GENERIC_READ, 9), -ERROR_INVALID_PARAMETER);
    EXPECT_EQ(outcome(L"a?", GENERIC_WRITE, CREATE_ALWAYS), -ERROR_INVALID_NAME);
    EXPECT_EQ(outcome(L".", GENERIC_READ, OPEN_EXISTING), -ERROR_ACCESS_DENIED);
    EXPECT_EQ(outcome(L".", GENERIC_READ, OPEN_EXISTING, 0, FILE_FLAG_BACKUP_SEMANTICS), NO_ERROR);
}

TEST_F(FileCalls, ShareModeHoldsInBothDirections)
{
    const HANDLE reader = open(L"a", GENERIC_READ, OPEN_ALWAYS, FILE_SHARE_READ);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    put("a", "contents");
    EXPECT_EQ(outcome(L"a", GENERIC_READ, OPEN_EXISTING, FILE_SHARE_READ), NO_ERROR);
    EXPECT_EQ(outcome(L"a", GENERIC_READ, OPEN_EXISTING, FILE_SHARE_WRITE), -ERROR_SHARING_VIOLATION);
    EXPECT_EQ(outcome(L"a", GENERIC_WRITE, CREATE_ALWAYS, FILE_SHARE_READ), -ERROR_SHARING_VIOLATION);
    EXPECT_EQ(get("a"), "contents");                      // the refused CREATE_ALWAYS has not emptied it
    EXPECT_EQ(outcome(L"a", 0, OPEN_EXISTING), NO_ERROR); // asks for attributes only
    EXPECT_FALSE(DeleteFileW(path(L"a").c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_SHARING_VIOLATION));
    EXPECT_FALSE(MoveFileW(path(L"a").c_str(), path(L"b").c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_SHARING_VIOLATION));
    EXPECT_TRUE(CloseHandle(reader));
    EXPECT_EQ(outcome(L"a", GENERIC_WRITE, CREATE_ALWAYS), ERROR_ALREADY_EXISTS);
    EXPECT_TRUE(DeleteFileW(path(L"a").c_str()));
    EXPECT_FALSE(CloseHandle(reader));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_HANDLE));
}

TEST_F(FileCalls, ReadWriteAndSeekKeepOnePosition)
{
    const HANDLE file = open(L"a", GENERIC_READ | GENERIC_WRITE, CREATE_NEW);
    DWORD done = 99;
    EXPECT_TRUE(WriteFile(file, "0123456789", 10, &done, nullptr));
    EXPECT_EQ(done, 10u);
    EXPECT_EQ(SetFilePointer(file, -4, nullptr, FILE_END), 6u);
    char bytes[8] = {};
    EXPECT_TRUE(ReadFile(file, bytes, 8, &done, nullptr));
    EXPECT_EQ(std::string(bytes, done), "6789");
    EXPECT_TRUE(ReadFile(file, bytes, 8, &done, nullptr));
    EXPECT_EQ(done, 0u);
    EXPECT_EQ(SetFilePointer(file, -11, nullptr, FILE_CURRENT), INVALID_SET_FILE_POINTER);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_NEGATIVE_SEEK));
    OVERLAPPED at = {};
    at.Offset = 2;
    EXPECT_TRUE(ReadFile(file, bytes, 2, &done, &at));
    EXPECT_EQ(std::string(bytes, done), "23");
    at.Offset = 10;
    EXPECT_FALSE(ReadFile(file, bytes, 2, &done, &at));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_HANDLE_EOF));
    EXPECT_EQ(SetFilePointer(file, 3, nullptr, FILE_BEGIN), 3u);
    EXPECT_TRUE(SetEndOfFile(file));
    EXPECT_EQ(GetFileSize(file, nullptr), 3u);
    LONG high = 1; // 4 GiB: the halves of a large position
    EXPECT_EQ(SetFilePointer(file, 5, &high, FILE_BEGIN), 5u);
    EXPECT_EQ(high, 1);
    LARGE_INTEGER zero = {}, position;
    EXPECT_TRUE(SetFilePointerEx(file, zero, &position, FILE_CURRENT));
    EXPECT_EQ(position.QuadPart, 0x100000005LL);
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_CURRENT), INVALID_SET_FILE_POINTER);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_TRUE(FlushFileBuffers(file) && CloseHandle(file));
    EXPECT_EQ(get("a"), "012");
}

TEST_F(FileCalls, HandleWithoutTheAccessIsRefused)
{
    put("a", "x");
    const HANDLE file = open(L"a", GENERIC_READ, OPEN_EXISTING);
    DWORD done;
    EXPECT_FALSE(WriteFile(file, "y", 1, &done, nullptr));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_ACCESS_DENIED));
    EXPECT_FALSE(SetEndOfFile(file));
    EXPECT_FALSE(ReadFile(file, nullptr, 1, &done, nullptr));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
    HANDLE twin;
    EXPECT_TRUE(DuplicateHandle(GetCurrentProcess(), file, GetCurrentProcess(), &twin, 0, FALSE,
                                DUPLICATE_SAME_ACCESS));
    EXPECT_TRUE(CloseHandle(file));
    char byte;
    EXPECT_TRUE(ReadFile(twin, &byte, 1, &done, nullptr)); // the file lives as long as its last handle
    EXPECT_EQ(byte, 'x');
    EXPECT_TRUE(CloseHandle(twin));
    EXPECT_FALSE(ReadFile(twin, &byte, 1, &done, nullptr));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_HANDLE));
    const HANDLE appender = open(L"a", FILE_APPEND_DATA, OPEN_EXISTING);
    EXPECT_EQ(SetFilePointer(appender, 0, nullptr, FILE_BEGIN), 0u);
    EXPECT_TRUE(WriteFile(appender, "y", 1, &done, nullptr) && CloseHandle(appender));
    EXPECT_EQ(get("a"), "xy");
}

TEST_F(FileCalls, LockedRangeKeepsOtherHandlesOut)
{
    put("a", "0123456789");
    const DWORD all = FILE_SHARE_READ | FILE_SHARE_WRITE;
    const HANDLE one = open(L"a", GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING, all);
    const HANDLE two = open(L"a", GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING, all);
    char bytes[4];
    DWORD done;
    EXPECT_TRUE(LockFile(one, 2, 0, 2, 0));
    EXPECT_TRUE(ReadFile(two, bytes, 2, &done, nullptr));
    EXPECT_FALSE(WriteFile(two, "xx", 1, &done, nullptr));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_LOCK_VIOLATION));
    EXPECT_TRUE(ReadFile(one, bytes, 4, &done, nullptr));
    EXPECT_FALSE(LockFile(two, 3, 0, 1, 0));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_LOCK_VIOLATION));
    EXPECT_FALSE(UnlockFile(one, 2, 0, 1, 0));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_NOT_LOCKED));
    EXPECT_TRUE(CloseHandle(one)); // gives its locks back
    EXPECT_TRUE(LockFile(two, 3, 0, 1, 0) && CloseHandle(two));
}

TEST_F(FileCalls, ReadOnlyFileIsNeitherWrittenNorDeleted)
{
    put("a", "x");
    const std::wstring file = path(L"a");
    EXPECT_EQ(GetFileAttributesW(file.c_str()), DWORD(FILE_ATTRIBUTE_NORMAL));
    EXPECT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(GetFileAttributesW(file.c_str()), DWORD(FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(outcome(L"a", GENERIC_WRITE, OPEN_EXISTING), -ERROR_ACCESS_DENIED);
    EXPECT_FALSE(DeleteFileW(file.c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_ACCESS_DENIED));
    put("b", "y");
    EXPECT_FALSE(MoveFileExW(path(L"b").c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING));
    EXPECT_FALSE(CopyFileW(path(L"b").c_str(), file.c_str(), FALSE));
    EXPECT_EQ(get("a"), "x");
    EXPECT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL) && DeleteFileW(file.c_str()));
    EXPECT_EQ(GetFileAttributesW(file.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(FileCalls, MoveTakesAFreeNameAndReplacesOnDemand)
{
    put("a", "a");
    put("B", "b");
    EXPECT_FALSE(MoveFileW(path(L"a").c_str(), path(L"b").c_str())); // "B" has the name, in another case
    EXPECT_EQ(GetLastError(), DWORD(ERROR_ALREADY_EXISTS));
    EXPECT_TRUE(MoveFileW(path(L"B").c_str(), path(L"b").c_str()));
    EXPECT_EQ(list(L"*"), (Names{L".", L"..", L"a", L"b"}));
    EXPECT_TRUE(MoveFileExW(path(L"a").c_str(), path(L"B").c_str(), MOVEFILE_REPLACE_EXISTING));
    EXPECT_EQ(list(L"*"), (Names{L".", L"..", L"B"}));
    EXPECT_EQ(get("B"), "a");
    EXPECT_FALSE(MoveFileW(path(L"none").c_str(), path(L"c").c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_FILE_NOT_FOUND));
    EXPECT_FALSE(MoveFileW(path(L"B").c_str(), path(L"none\\c").c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_PATH_NOT_FOUND));
    EXPECT_TRUE(CopyFileW(path(L"B").c_str(), path(L"c").c_str(), TRUE));
    EXPECT_FALSE(CopyFileW(path(L"B").c_str(), path(L"c").c_str(), TRUE));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_FILE_EXISTS));
    put("c", "longer than before");
    EXPECT_TRUE(CopyFileW(path(L"B").c_str(), path(L"c").c_str(), FALSE));
    EXPECT_EQ(get("c"), "a");
}

TEST_F(FileCalls, ReplaceKeepsTheOldContentsAsBackup)
{
    put("a", "old");
    put("new", "new");
    put("bak", "older");
    EXPECT_FALSE(ReplaceFileW(path(L"none").c_str(), path(L"new").c_str(), nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_FILE_NOT_FOUND));
    EXPECT_TRUE(
        ReplaceFileW(path(L"a").c_str(), path(L"new").c_str(), path(L"bak").c_str(), 0, nullptr, nullptr));
    EXPECT_EQ(get("a") + get("bak") + get("new"), "newold(missing)");
}

TEST_F(FileCalls, DirectoriesAreMadeAndRemovedOneByOne)
{
    EXPECT_TRUE(CreateDirectoryW(path(L"d").c_str(), nullptr));
    EXPECT_FALSE(CreateDirectoryW(path(L"D").c_str(), nullptr));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_ALREADY_EXISTS));
    EXPECT_FALSE(CreateDirectoryW(path(L"x\\y").c_str(), nullptr));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_PATH_NOT_FOUND));
    put("d/a", "12345");
    EXPECT_FALSE(RemoveDirectoryW(path(L"d").c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_DIR_NOT_EMPTY));
    EXPECT_FALSE(RemoveDirectoryW(path(L"d\\a").c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_DIRECTORY));
    EXPECT_FALSE(DeleteFileW(path(L"d").c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_ACCESS_DENIED));
    EXPECT_EQ(GetFileAttributesW(path(L"d\\").c_str()), DWORD(FILE_ATTRIBUTE_DIRECTORY));
    WIN32_FILE_ATTRIBUTE_DATA data;
    EXPECT_TRUE(GetFileAttributesExW(path(L"d/A").c_str(), GetFileExInfoStandard, &data));
    EXPECT_EQ(data.nFileSizeLow, 5u);
    EXPECT_TRUE(DeleteFileW(path(L"d\\a").c_str()) && RemoveDirectoryW(path(L"d").c_str()));
}

TEST_F(FileCalls, FileTimesAreTicksSince1601)
{
    const HANDLE file = open(L"a", GENERIC_READ | GENERIC_WRITE, CREATE_NEW);
    const ULONGLONG moment = 125911584001234567ULL; // 2000-01-01 00:00:00 UTC is 125911584000000000
    const FILETIME set = {static_cast<DWORD>(moment), static_cast<DWORD>(moment >> 32)};
    EXPECT_TRUE(SetFileTime(file, nullptr, nullptr, &set));
    FILETIME written, read;
    EXPECT_TRUE(GetFileTime(file, nullptr, &read, &written) && CloseHandle(file));
    EXPECT_EQ(written.dwLowDateTime, set.dwLowDateTime);
    EXPECT_EQ(written.dwHighDateTime, set.dwHighDateTime);
    EXPECT_NE(read.dwHighDateTime, set.dwHighDateTime); // was not asked for
}

TEST_F(FileCalls, WildcardsFollowTheOldRules)
{
    for (const char* name : {"a.txt", "B.TXT", "c", "ab.c.d", "\xE4\xB8\xAD.txt"})
        put(name, "");
    EXPECT_EQ(list(L"*.txt"), (Names{L"a.txt", L"B.TXT", L"\u4E2D.txt"}));
    EXPECT_EQ(list(L"*.*").size(), 7u); // all, "." and ".." too
    EXPECT_EQ(list(L"c.*"), (Names{L"c"}));
    EXPECT_EQ(list(L"?.txt").size(), 3u);
    EXPECT_EQ(list(L"a???.*"), (Names{L"a.txt", L"ab.c.d"}));
    EXPECT_EQ(list(L"*c*d"), (Names{L"ab.c.d"}));
    EXPECT_EQ(list(L"A.TXT"), (Names{L"a.txt"}));
    EXPECT_EQ(list(L"*."), (Names{L"c"}));
    EXPECT_EQ(list(L"*.exe"), Names());
    EXPECT_EQ(GetLastError(), DWORD(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(list(L"none\\*"), Names());
    EXPECT_EQ(GetLastError(), DWORD(ERROR_PATH_NOT_FOUND));
    EXPECT_FALSE(FindClose(INVALID_HANDLE_VALUE));
}
} // namespace
