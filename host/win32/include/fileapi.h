#pragma once

/// Files, directories and paths.
///
/// Paths. Both '/' and '\' separate. Drive Z: is the root of this machine's file system; another drive
/// exists only while the environment variable QM_DRIVE_<letter> names a directory, its root. A path that
/// begins with a separator but names no drive starts at the root of Z:, one that begins with neither at the
/// current directory. Names are UTF-8 outside; a name that is not found as written is searched without
/// regard to case, directory by directory. Paths that are handed out are of drive Z: ("Z:\home\x"), but
/// GetFullPathNameW keeps the drive it is given. Names with < > : " | ? * or a control character
/// cannot be reached (ERROR_INVALID_NAME).
///
/// Attributes. FILE_ATTRIBUTE_READONLY is a file without any write permission; such a file is refused for
/// writing and deletion whoever asks. Directories are FILE_ATTRIBUTE_DIRECTORY, everything else NORMAL.
///
/// Sharing and locked ranges are enforced among the handles of this process.
///
/// Each function below that returns BOOL gives FALSE and sets the last error when it fails; its comment
/// names the codes that a caller may want to tell apart.

#include "windef.h"

#define GENERIC_READ 0x80000000u
#define GENERIC_WRITE 0x40000000u
#define GENERIC_EXECUTE 0x20000000u
#define GENERIC_ALL 0x10000000u
#define DELETE 0x00010000
#define FILE_READ_DATA 0x0001
#define FILE_WRITE_DATA 0x0002
#define FILE_APPEND_DATA 0x0004
#define FILE_READ_ATTRIBUTES 0x0080
#define FILE_WRITE_ATTRIBUTES 0x0100

#define FILE_SHARE_READ 0x00000001
#define FILE_SHARE_WRITE 0x00000002
#define FILE_SHARE_DELETE 0x00000004

#define CREATE_NEW 1
#define CREATE_ALWAYS 2
#define OPEN_EXISTING 3
#define OPEN_ALWAYS 4
#define TRUNCATE_EXISTING 5

#define FILE_ATTRIBUTE_READONLY 0x00000001
#define FILE_ATTRIBUTE_HIDDEN 0x00000002
#define FILE_ATTRIBUTE_SYSTEM 0x00000004
#define FILE_ATTRIBUTE_DIRECTORY 0x00000010
#define FILE_ATTRIBUTE_ARCHIVE 0x00000020
#define FILE_ATTRIBUTE_NORMAL 0x00000080
#define FILE_ATTRIBUTE_TEMPORARY 0x00000100
#define INVALID_FILE_ATTRIBUTES (static_cast<DWORD>(-1))

#define FILE_FLAG_WRITE_THROUGH 0x80000000u
#define FILE_FLAG_RANDOM_ACCESS 0x10000000u
#define FILE_FLAG_SEQUENTIAL_SCAN 0x08000000u
#define FILE_FLAG_DELETE_ON_CLOSE 0x04000000u
#define FILE_FLAG_BACKUP_SEMANTICS 0x02000000u

#define FILE_BEGIN 0
#define FILE_CURRENT 1
#define FILE_END 2
#define INVALID_SET_FILE_POINTER (static_cast<DWORD>(-1))
#define INVALID_FILE_SIZE (static_cast<DWORD>(0xFFFFFFFF))

#define DRIVE_UNKNOWN 0
#define DRIVE_NO_ROOT_DIR 1
#define DRIVE_FIXED 3

struct OVERLAPPED {
    ULONG_PTR Internal;
    ULONG_PTR InternalHigh;
    DWORD Offset;
    DWORD OffsetHigh;
    HANDLE hEvent;
};
using LPOVERLAPPED = OVERLAPPED*;

struct WIN32_FILE_ATTRIBUTE_DATA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
};
using LPWIN32_FILE_ATTRIBUTE_DATA = WIN32_FILE_ATTRIBUTE_DATA*;

enum GET_FILEEX_INFO_LEVELS { GetFileExInfoStandard };

struct WIN32_FIND_DATAW {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    WCHAR cFileName[MAX_PATH];
    WCHAR cAlternateFileName[14]; ///< always empty: there are no short names here
};
using WIN32_FIND_DATA = WIN32_FIND_DATAW;
using LPWIN32_FIND_DATAW = WIN32_FIND_DATAW*;
using LPWIN32_FIND_DATA = WIN32_FIND_DATAW*;

// Opening, reading, writing

/// Opens or creates a file. `disposition` is one of CREATE_NEW ... TRUNCATE_EXISTING (which needs
/// GENERIC_WRITE). `attributes`: FILE_ATTRIBUTE_READONLY takes effect on a new file once it is closed;
/// FILE_FLAG_DELETE_ON_CLOSE and FILE_FLAG_BACKUP_SEMANTICS (opens directories) work, other attributes and
/// flags change nothing. `security` and `pattern` are not used.
///
/// Returns the handle, or INVALID_HANDLE_VALUE. On success CREATE_ALWAYS and OPEN_ALWAYS set the last error
/// to ERROR_ALREADY_EXISTS when the file was there, every other success to 0. Errors: ERROR_FILE_NOT_FOUND,
/// ERROR_PATH_NOT_FOUND, ERROR_FILE_EXISTS (CREATE_NEW), ERROR_ACCESS_DENIED (a directory, a read-only file),
/// ERROR_SHARING_VIOLATION, ERROR_INVALID_PARAMETER, ERROR_INVALID_NAME.
HANDLE WINAPI CreateFileW(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                          DWORD disposition, DWORD attributes, HANDLE pattern);

/// Reads up to `count` bytes at the file's position, or at the offset of `overlapped`. At the end of the file
/// it succeeds with *done = 0 (ERROR_HANDLE_EOF and FALSE with `overlapped`). `done` may be null only with
/// `overlapped`. ERROR_LOCK_VIOLATION: another handle has locked some of the bytes.
BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD count, LPDWORD done, LPOVERLAPPED overlapped);

/// Writes in the same way. On failure *done tells how many bytes were written.
BOOL WINAPI WriteFile(HANDLE file, LPCVOID buffer, DWORD count, LPDWORD done, LPOVERLAPPED overlapped);

/// Moves the position; beyond the end is allowed. ERROR_NEGATIVE_SEEK leaves it where it was.
BOOL WINAPI SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, PLARGE_INTEGER position, DWORD method);

/// The same with halves: `high`, when given, is the upper half of the distance and receives that of the new
/// position. Returns the lower half. INVALID_SET_FILE_POINTER is a failure only when the last error is not
/// NO_ERROR. Without `high` a position of 4 GiB or more is ERROR_INVALID_PARAMETER.
DWORD WINAPI SetFilePointer(HANDLE file, LONG distance, PLONG high, DWORD method);

/// Cuts or extends (with zeros) the file at its position.
BOOL WINAPI SetEndOfFile(HANDLE file);

BOOL WINAPI GetFileSizeEx(HANDLE file, PLARGE_INTEGER size);

/// The lower half of the size; INVALID_FILE_SIZE is a failure only when the last error is not NO_ERROR.
DWORD WINAPI GetFileSize(HANDLE file, LPDWORD high);

/// Waits until what was written is on the disk. ERROR_ACCESS_DENIED without write access.
BOOL WINAPI FlushFileBuffers(HANDLE file);

/// Locks a range, which may lie beyond the end, for this handle alone. ERROR_LOCK_VIOLATION when one of
/// its bytes is locked.
BOOL WINAPI LockFile(HANDLE file, DWORD offset, DWORD offsetHigh, DWORD count, DWORD countHigh);

/// Unlocks exactly a range that was locked. ERROR_NOT_LOCKED when there is none.
BOOL WINAPI UnlockFile(HANDLE file, DWORD offset, DWORD offsetHigh, DWORD count, DWORD countHigh);

/// Times of an open file; null for those not wanted. The creation time is the last change where the file
/// system does not keep it, and cannot be set.
BOOL WINAPI GetFileTime(HANDLE file, LPFILETIME creation, LPFILETIME access, LPFILETIME write);
BOOL WINAPI SetFileTime(HANDLE file, const FILETIME* creation, const FILETIME* access, const FILETIME* write);

// Files by name

/// ERROR_ACCESS_DENIED for a directory or a read-only file, ERROR_SHARING_VIOLATION for a file that is open
/// without FILE_SHARE_DELETE.
BOOL WINAPI DeleteFileW(LPCWSTR path);

/// The attributes; INVALID_FILE_ATTRIBUTES when there is no such file or directory.
DWORD WINAPI GetFileAttributesW(LPCWSTR path);

/// Sets or clears FILE_ATTRIBUTE_READONLY of a file; other attributes change nothing.
BOOL WINAPI SetFileAttributesW(LPCWSTR path, DWORD attributes);

/// Attributes, times and size. `data` is a WIN32_FILE_ATTRIBUTE_DATA.
BOOL WINAPI GetFileAttributesExW(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data);

/// ERROR_ALREADY_EXISTS for any file or directory of that name, ERROR_PATH_NOT_FOUND without a parent.
BOOL WINAPI CreateDirectoryW(LPCWSTR path, LPSECURITY_ATTRIBUTES security);

/// ERROR_DIR_NOT_EMPTY, ERROR_DIRECTORY (no directory).
BOOL WINAPI RemoveDirectoryW(LPCWSTR path);

/// Finds the first entry whose name matches the last component of `pattern`, which may hold '*' and '?'.
/// Entries come in order of their names without regard to case, "." and ".." first when they match. Returns
/// INVALID_HANDLE_VALUE with ERROR_FILE_NOT_FOUND when none matches (or the pattern ends with a separator),
/// ERROR_PATH_NOT_FOUND when the directory is missing. The handle is for FindClose.
HANDLE WINAPI FindFirstFileW(LPCWSTR pattern, LPWIN32_FIND_DATAW data);
/// ERROR_NO_MORE_FILES after the last one.
BOOL WINAPI FindNextFileW(HANDLE find, LPWIN32_FIND_DATAW data);
BOOL WINAPI FindClose(HANDLE find);

// Paths

/// The absolute path, without looking anything up. Returns its length, or the size that is needed (with the
/// NUL) when `size` is too small; 0 with ERROR_INVALID_NAME for an empty path. `*filePart`, when asked for,
/// is the name in `buffer`, null when the path ends with a separator.
DWORD WINAPI GetFullPathNameW(LPCWSTR path, DWORD size, LPWSTR buffer, LPWSTR* filePart);

/// The directory for temporary files (TMPDIR, or /tmp), with a trailing backslash. Result as above.
DWORD WINAPI GetTempPathW(DWORD size, LPWSTR buffer);

/// Makes the name DIRECTORY\PPPXXXX.TMP from up to three characters of the prefix and the lower 16 bits of
/// `unique` in hexadecimal. With `unique` 0 a number that is free is taken and the empty file is created.
/// `buffer` has MAX_PATH characters. Returns the number, 0 on failure (ERROR_DIRECTORY: no such directory,
/// ERROR_BUFFER_OVERFLOW: the name would be too long).
UINT WINAPI GetTempFileNameW(LPCWSTR directory, LPCWSTR prefix, UINT unique, LPWSTR buffer);

/// DRIVE_FIXED for a drive that exists (null: the current one), else DRIVE_NO_ROOT_DIR.
UINT WINAPI GetDriveTypeW(LPCWSTR root);

// The names of a Unicode program.
#define CreateFile CreateFileW
#define DeleteFile DeleteFileW
#define GetFileAttributes GetFileAttributesW
#define SetFileAttributes SetFileAttributesW
#define GetFileAttributesEx GetFileAttributesExW
#define CreateDirectory CreateDirectoryW
#define RemoveDirectory RemoveDirectoryW
#define FindFirstFile FindFirstFileW
#define FindNextFile FindNextFileW
#define GetFullPathName GetFullPathNameW
#define GetTempPath GetTempPathW
#define GetTempFileName GetTempFileNameW
#define GetDriveType GetDriveTypeW
