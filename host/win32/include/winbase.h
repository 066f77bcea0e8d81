#pragma once

/// Moving files, the environment, memory, counters, and the texts of error codes.

#include "windef.h"

#include <cstdarg>

// Files

#define MOVEFILE_REPLACE_EXISTING 0x00000001
#define MOVEFILE_COPY_ALLOWED 0x00000002
#define MOVEFILE_WRITE_THROUGH 0x00000008

#define REPLACEFILE_WRITE_THROUGH 0x00000001
#define REPLACEFILE_IGNORE_MERGE_ERRORS 0x00000002

/// Renames a file or directory; across file systems a file is copied and deleted. ERROR_ALREADY_EXISTS when
/// the new name is taken (another case of the old name is not), ERROR_SHARING_VIOLATION when the file is open
/// without FILE_SHARE_DELETE. A failure leaves both names as they were.
BOOL WINAPI MoveFileW(LPCWSTR from, LPCWSTR to);

/// The same with flags. MOVEFILE_REPLACE_EXISTING replaces a file in one step: readers see the old or the new
/// one, whole. A directory or a read-only file is not replaced (ERROR_ACCESS_DENIED). Without
/// MOVEFILE_COPY_ALLOWED a move across file systems fails with ERROR_NOT_SAME_DEVICE. Unknown flags are
/// ERROR_INVALID_PARAMETER.
BOOL WINAPI MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags);

/// Puts `replacement` in the place of `replaced`, which must exist and whose attributes stay; the old
/// contents become `backup` when that is not null (an older backup is replaced). On failure the replaced
/// file stands under its name: ERROR_FILE_NOT_FOUND, ERROR_UNABLE_TO_REMOVE_REPLACED (no backup could be
/// made), ERROR_UNABLE_TO_MOVE_REPLACEMENT.
BOOL WINAPI ReplaceFileW(LPCWSTR replaced, LPCWSTR replacement, LPCWSTR backup, DWORD flags, LPVOID exclude,
                         LPVOID reserved);

/// Copies contents, attributes and the time of the last change. With `failIfExists` an existing file is
/// ERROR_FILE_EXISTS; a read-only one is ERROR_ACCESS_DENIED. A copy that fails half way is removed.
BOOL WINAPI CopyFileW(LPCWSTR from, LPCWSTR to, BOOL failIfExists);

// Process

/// The pseudo handle of this process.
HANDLE WINAPI GetCurrentProcess();

/// The current directory, without a trailing backslash unless it is a root. Returns its length, or the size
/// that is needed (with the NUL) when `size` is too small.
DWORD WINAPI GetCurrentDirectoryW(DWORD size, LPWSTR buffer);

/// ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_DIRECTORY (it is a file).
BOOL WINAPI SetCurrentDirectoryW(LPCWSTR path);

/// The value of a variable, whose name is found without regard to case. Returns its length, or the size that
/// is needed (with the NUL) when `size` is too small; 0 with ERROR_ENVVAR_NOT_FOUND when there is none, 0
/// with NO_ERROR when it is empty.
DWORD WINAPI GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size);

/// Sets a variable of this process, or removes it when `value` is null (ERROR_ENVVAR_NOT_FOUND when it is
/// not there). ERROR_INVALID_PARAMETER for a name that is empty or holds '='.
BOOL WINAPI SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value);

/// Replaces each %NAME% by the variable's value; an unknown name stays as it is. Returns the size of the
/// result with its NUL; when that is more than `size` the buffer is not usable. 0 on failure.
DWORD WINAPI ExpandEnvironmentStringsW(LPCWSTR text, LPWSTR buffer, DWORD size);

/// Writes the text to standard error when the environment variable QM_DEBUG_OUTPUT is set; nothing else.
void WINAPI OutputDebugStringW(LPCWSTR text);

// Memory

#define LMEM_FIXED 0x0000
#define LMEM_MOVEABLE 0x0002
#define LMEM_ZEROINIT 0x0040
#define LPTR (LMEM_FIXED | LMEM_ZEROINIT)
#define LHND (LMEM_MOVEABLE | LMEM_ZEROINIT)
#define GMEM_FIXED 0x0000
#define GMEM_MOVEABLE 0x0002
#define GMEM_ZEROINIT 0x0040
#define GMEM_MODIFY 0x0080
#define GMEM_SHARE 0x2000
#define GMEM_DDESHARE 0x2000
#define GPTR (GMEM_FIXED | GMEM_ZEROINIT)
#define GHND (GMEM_MOVEABLE | GMEM_ZEROINIT)
#define GMEM_LOCKCOUNT 0x00FF
#define GMEM_INVALID_HANDLE 0x8000

/// Allocates memory. A fixed block's handle is its address, a movable one's (GMEM_MOVEABLE) is not:
/// GlobalLock gives the address. Null with ERROR_NOT_ENOUGH_MEMORY. Blocks of Local and Global functions are
/// alike.
HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T bytes);

/// The address of a block. A movable block is held in place until as many GlobalUnlock calls; at most 255.
/// Null with ERROR_INVALID_HANDLE.
LPVOID WINAPI GlobalLock(HGLOBAL block);

/// Takes one lock back. TRUE while locks are left; FALSE with NO_ERROR when none is, with ERROR_NOT_LOCKED
/// when there was none. TRUE for a fixed block.
BOOL WINAPI GlobalUnlock(HGLOBAL block);

/// The size in bytes as it was asked for; 0 with ERROR_INVALID_HANDLE.
SIZE_T WINAPI GlobalSize(HGLOBAL block);

/// Changes the size; contents stay up to the smaller one, with GMEM_ZEROINIT the rest is zero. The handle
/// of a movable block stays; a fixed block may get another one, and only with GMEM_MOVEABLE. Null on failure:
/// the block stays as it was.
HGLOBAL WINAPI GlobalReAlloc(HGLOBAL block, SIZE_T bytes, UINT flags);

/// Frees a block, locked or not. Null, or the handle with ERROR_INVALID_HANDLE. Null is freed at no cost.
HGLOBAL WINAPI GlobalFree(HGLOBAL block);

/// The number of locks of a movable block; GMEM_INVALID_HANDLE for what is no block.
UINT WINAPI GlobalFlags(HGLOBAL block);

HLOCAL WINAPI LocalAlloc(UINT flags, SIZE_T bytes);
LPVOID WINAPI LocalLock(HLOCAL block);
BOOL WINAPI LocalUnlock(HLOCAL block);
SIZE_T WINAPI LocalSize(HLOCAL block);
HLOCAL WINAPI LocalReAlloc(HLOCAL block, SIZE_T bytes, UINT flags);
HLOCAL WINAPI LocalFree(HLOCAL block);

// Counters that threads share. Increment and Decrement return the new value, the others the old one.

inline LONG InterlockedIncrement(LONG volatile* value)
{
    return __atomic_add_fetch(value, 1, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedDecrement(LONG volatile* value)
{
    return __atomic_sub_fetch(value, 1, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedExchange(LONG volatile* value, LONG now)
{
    return __atomic_exchange_n(value, now, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedExchangeAdd(LONG volatile* value, LONG more)
{
    return __atomic_fetch_add(value, more, __ATOMIC_SEQ_CST);
}
/// Stores `now` where the value is `expected`.
inline LONG InterlockedCompareExchange(LONG volatile* value, LONG now, LONG expected)
{
    __atomic_compare_exchange_n(value, &expected, now, false, __ATOMIC_SEQ_CST, __ATOMIC_SEQ_CST);
    return expected;
}
inline LONG64 InterlockedIncrement64(LONG64 volatile* value)
{
    return __atomic_add_fetch(value, 1, __ATOMIC_SEQ_CST);
}
inline LONG64 InterlockedDecrement64(LONG64 volatile* value)
{
    return __atomic_sub_fetch(value, 1, __ATOMIC_SEQ_CST);
}
inline PVOID InterlockedExchangePointer(PVOID volatile* value, PVOID now)
{
    return __atomic_exchange_n(value, now, __ATOMIC_SEQ_CST);
}
inline PVOID InterlockedCompareExchangePointer(PVOID volatile* value, PVOID now, PVOID expected)
{
    __atomic_compare_exchange_n(value, &expected, now, false, __ATOMIC_SEQ_CST, __ATOMIC_SEQ_CST);
    return expected;
}

// Texts of error codes

#define FORMAT_MESSAGE_MAX_WIDTH_MASK 0x000000FF
#define FORMAT_MESSAGE_ALLOCATE_BUFFER 0x00000100
#define FORMAT_MESSAGE_IGNORE_INSERTS 0x00000200
#define FORMAT_MESSAGE_FROM_STRING 0x00000400
#define FORMAT_MESSAGE_FROM_SYSTEM 0x00001000
#define FORMAT_MESSAGE_ARGUMENT_ARRAY 0x00002000

/// Formats a message: the English text of an error code or HRESULT (FORMAT_MESSAGE_FROM_SYSTEM), which ends
/// with a line break, or the text `source` (FORMAT_MESSAGE_FROM_STRING). `language` is not used.
///
/// Unless FORMAT_MESSAGE_IGNORE_INSERTS is given, %n stands for the n-th argument (1 to 99), by default a
/// wide string; %n!format! prints it as printf's %format does (d, i, u, x, X, o, c, s, S with flags, width,
/// precision, h, l, ll, I64). %0 ends the text without a line break, %% %. %! %n %r %t are that
/// character, a line break, a carriage return, a tab, "% " a blank. Arguments come from the va_list
/// `arguments` points to, or with FORMAT_MESSAGE_ARGUMENT_ARRAY from the array of DWORD_PTR it is.
///
/// Returns the number of characters without the NUL. With FORMAT_MESSAGE_ALLOCATE_BUFFER `buffer` is the
/// address of a pointer to memory for LocalFree, and `size` the least size. 0 on failure, with no buffer:
/// ERROR_MR_MID_NOT_FOUND (no text for the code), ERROR_INSUFFICIENT_BUFFER, ERROR_INVALID_PARAMETER.
/// FORMAT_MESSAGE_MAX_WIDTH_MASK turns the line breaks of the text into blanks; other widths are not
/// supported.
DWORD WINAPI FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD language, LPWSTR buffer,
                            DWORD size, va_list* arguments);

// The names of a Unicode program.
#define MoveFile MoveFileW
#define MoveFileEx MoveFileExW
#define ReplaceFile ReplaceFileW
#define CopyFile CopyFileW
#define GetCurrentDirectory GetCurrentDirectoryW
#define SetCurrentDirectory SetCurrentDirectoryW
#define GetEnvironmentVariable GetEnvironmentVariableW
#define SetEnvironmentVariable SetEnvironmentVariableW
#define ExpandEnvironmentStrings ExpandEnvironmentStringsW
#define OutputDebugString OutputDebugStringW
#define FormatMessage FormatMessageW
