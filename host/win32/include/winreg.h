#pragma once

/// The registry: a tree of keys with values, kept in memory.
///
/// When the environment variable QM_REGISTRY names a file, the tree is read from it at first use and written
/// back, whole and in one step, after every change: ".reg" text of version 5, written as UTF-16 with a
/// byte-order mark, read in UTF-8 too. A file that is no such text, or has a line that is not understood, is
/// never written over: reading works with what was understood, changes fail with ERROR_REGISTRY_CORRUPT.
/// Processes do not see each other's changes after that first use.
///
/// Names are found without regard to case. The functions return the error code and leave the last error
/// alone: ERROR_INVALID_HANDLE for what is no key, ERROR_KEY_DELETED for one that is gone,
/// ERROR_ACCESS_DENIED for an operation that the key was not opened for, ERROR_REGISTRY_IO_FAILED when the
/// file cannot be written (the change then holds for this process only).
///
/// Texts (REG_SZ, REG_EXPAND_SZ, REG_MULTI_SZ) are made of the platform's wchar_t; sizes are in bytes of it.

#include "windef.h"

using REGSAM = DWORD;
using LSTATUS = LONG;
using PHKEY = HKEY*;

#define HKEY_CLASSES_ROOT (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0x80000000)))
#define HKEY_CURRENT_USER (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0x80000001)))
#define HKEY_LOCAL_MACHINE (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0x80000002)))
#define HKEY_USERS (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0x80000003)))
#define HKEY_CURRENT_CONFIG (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0x80000005)))

#define REG_NONE 0
#define REG_SZ 1
#define REG_EXPAND_SZ 2
#define REG_BINARY 3
#define REG_DWORD 4
#define REG_DWORD_LITTLE_ENDIAN 4
#define REG_DWORD_BIG_ENDIAN 5
#define REG_LINK 6
#define REG_MULTI_SZ 7
#define REG_QWORD 11

#define KEY_QUERY_VALUE 0x0001
#define KEY_SET_VALUE 0x0002
#define KEY_CREATE_SUB_KEY 0x0004
#define KEY_ENUMERATE_SUB_KEYS 0x0008
#define KEY_NOTIFY 0x0010
#define KEY_WOW64_64KEY 0x0100
#define KEY_WOW64_32KEY 0x0200
#define KEY_READ 0x20019
#define KEY_WRITE 0x20006
#define KEY_EXECUTE KEY_READ
#define KEY_ALL_ACCESS 0xF003F
#define MAXIMUM_ALLOWED 0x02000000

#define REG_OPTION_NON_VOLATILE 0
#define REG_OPTION_VOLATILE 1
#define REG_CREATED_NEW_KEY 1
#define REG_OPENED_EXISTING_KEY 2

#define RRF_RT_REG_NONE 0x00000001
#define RRF_RT_REG_SZ 0x00000002
#define RRF_RT_REG_EXPAND_SZ 0x00000004
#define RRF_RT_REG_BINARY 0x00000008
#define RRF_RT_REG_DWORD 0x00000010
#define RRF_RT_REG_MULTI_SZ 0x00000020
#define RRF_RT_REG_QWORD 0x00000040
#define RRF_RT_DWORD (RRF_RT_REG_BINARY | RRF_RT_REG_DWORD)
#define RRF_RT_QWORD (RRF_RT_REG_BINARY | RRF_RT_REG_QWORD)
#define RRF_RT_ANY 0x0000FFFF
#define RRF_NOEXPAND 0x10000000
#define RRF_ZEROONFAILURE 0x20000000

/// Opens a key below another one; a null or empty path is that key once more. A name holds at most 255
/// characters. ERROR_FILE_NOT_FOUND when it is not there. On failure *result is null.
LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR path, DWORD options, REGSAM access, PHKEY result);

/// Opens a key, and makes it with all above it when it is not there. A volatile key, with all below it, is
/// not saved.
LSTATUS WINAPI RegCreateKeyExW(HKEY key, LPCWSTR path, DWORD reserved, LPWSTR className, DWORD options,
                               REGSAM access, const SECURITY_ATTRIBUTES* security, PHKEY result,
                               LPDWORD disposition);
LSTATUS WINAPI RegCloseKey(HKEY key);
LSTATUS WINAPI RegFlushKey(HKEY key);

/// Deletes a key and its values. ERROR_ACCESS_DENIED while it has keys below it.
LSTATUS WINAPI RegDeleteKeyW(HKEY key, LPCWSTR path);
/// Deletes a key with all below it; a null path empties the key itself.
LSTATUS WINAPI RegDeleteTreeW(HKEY key, LPCWSTR path);

/// Reads a value; a null or empty name is the key's default value. `size` comes with the size of the buffer
/// and goes with that of the value. A null buffer asks for the size; too small a one is ERROR_MORE_DATA and
/// nothing is written. A text is given as it was set, with or without terminator.
LSTATUS WINAPI RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                LPDWORD size);

/// Reads a value of a key below: only of the types in `flags` (else ERROR_UNSUPPORTED_TYPE), texts always
/// terminated, REG_EXPAND_SZ expanded and given as REG_SZ unless RRF_NOEXPAND. With RRF_ZEROONFAILURE a
/// failure fills the buffer with zeros.
LSTATUS WINAPI RegGetValueW(HKEY key, LPCWSTR path, LPCWSTR name, DWORD flags, LPDWORD type, PVOID data,
                            LPDWORD size);

LSTATUS WINAPI RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                              DWORD size);
LSTATUS WINAPI RegDeleteValueW(HKEY key, LPCWSTR name);

/// The key or value of an index, in alphabetical order; ERROR_NO_MORE_ITEMS behind the last. `nameSize` is in
/// characters: of the buffer before, of the name without terminator after. ERROR_MORE_DATA when the name or
/// the data does not fit. The time of a key is not kept: `written` becomes 0.
LSTATUS WINAPI RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD reserved,
                             LPWSTR className, LPDWORD classSize, LPFILETIME written);
LSTATUS WINAPI RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD reserved,
                             LPDWORD type, LPBYTE data, LPDWORD size);

/// How many keys and values there are, and the longest of each: names in characters without terminator, data
/// in bytes. Each result may be null; those of class, security and time become 0.
LSTATUS WINAPI RegQueryInfoKeyW(HKEY key, LPWSTR className, LPDWORD classSize, LPDWORD reserved,
                                LPDWORD subkeys, LPDWORD longestSubkey, LPDWORD longestClass, LPDWORD values,
                                LPDWORD longestValueName, LPDWORD largestData, LPDWORD securitySize,
                                LPFILETIME written);

#define RegOpenKeyEx RegOpenKeyExW
#define RegCreateKeyEx RegCreateKeyExW
#define RegDeleteKey RegDeleteKeyW
#define RegDeleteTree RegDeleteTreeW
#define RegQueryValueEx RegQueryValueExW
#define RegGetValue RegGetValueW
#define RegSetValueEx RegSetValueExW
#define RegDeleteValue RegDeleteValueW
#define RegEnumKeyEx RegEnumKeyExW
#define RegEnumValue RegEnumValueW
#define RegQueryInfoKey RegQueryInfoKeyW
