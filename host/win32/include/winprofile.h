#pragma once

/// Private profile (INI) files.
///
/// A file is lines of text: "[section]", "key=value", comments that begin with ';', blank lines. Section and
/// key names are found without regard to case, the first one counts when there are several; blanks around
/// names and values do not count. A line without '=' is kept and shown by GetPrivateProfileSectionW, but has
/// no value. A file that begins with a UTF-16LE byte-order mark is UTF-16, every other one text in the ANSI
/// code page; new files are of the latter kind. A change by another program is seen by the next call.
///
/// Writing changes the lines named below and leaves every other byte of the file as it was; line ends follow
/// the neighbouring line, CR LF in a new file. The file is replaced in one step by a new one that was written
/// beside it. When that fails (no such directory, a read-only file, a file that is open here without sharing,
/// a full disk) the call gives FALSE, sets the last error, and nothing has changed.
///
/// A file name without a directory means the current directory. A null file name is ERROR_FILE_NOT_FOUND when
/// reading and ERROR_INVALID_PARAMETER when writing: there is no system-wide file.

#include "windef.h"

/// Copies the value of a key, without one pair of quotation marks ("..." or '...') around it; without the
/// key, section or file, `fallback` (null: "") less its trailing blanks.
///
/// Returns the number of characters without the NUL; `size` - 1, with a truncated text and the last error
/// ERROR_MORE_DATA, when it does not fit. The last error is ERROR_FILE_NOT_FOUND when the fallback was
/// taken. With a null section the result is the list of section names, with a null key that of the keys of
/// the section, each with its NUL, another NUL at the end, which the returned number leaves out; a list that
/// does not fit is truncated, still ends with two NULs, and gives `size` - 2.
DWORD WINAPI GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR fallback, LPWSTR buffer,
                                      DWORD size, LPCWSTR file);

/// The value as a decimal number: an optional sign and the digits after it, up to the first other character;
/// 0 when there is no digit (hexadecimal is not read), a negative one as its two's complement. `fallback`
/// when the key is missing or its value empty.
UINT WINAPI GetPrivateProfileIntW(LPCWSTR section, LPCWSTR key, INT fallback, LPCWSTR file);

/// The lines of a section as "key=value" (blanks around '=' dropped, quotation marks kept) without comments
/// and blank lines, as a list with the result rules above. An absent section or file gives 0.
DWORD WINAPI GetPrivateProfileSectionW(LPCWSTR section, LPWSTR buffer, DWORD size, LPCWSTR file);

/// The names of all sections in the order of the file, as a list.
DWORD WINAPI GetPrivateProfileSectionNamesW(LPWSTR buffer, DWORD size, LPCWSTR file);

/// Sets a value: the text behind the '=' of the key's line is replaced, a new key comes at the end of its
/// section (before the blank lines there), a new section at the end of the file, a new file is made. A null
/// value deletes the key's line, a null key the section with all its lines; deleting what is not there
/// succeeds. All three null: FALSE and nothing is done.
BOOL WINAPI WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR value, LPCWSTR file);

/// Replaces the lines of a section (comments too) by `lines`, a list of "key=value" texts, each with its NUL,
/// that ends with an empty one. Null deletes the section.
BOOL WINAPI WritePrivateProfileSectionW(LPCWSTR section, LPCWSTR lines, LPCWSTR file);

// The names of a Unicode program.
#define GetPrivateProfileString GetPrivateProfileStringW
#define GetPrivateProfileInt GetPrivateProfileIntW
#define GetPrivateProfileSection GetPrivateProfileSectionW
#define GetPrivateProfileSectionNames GetPrivateProfileSectionNamesW
#define WritePrivateProfileString WritePrivateProfileStringW
#define WritePrivateProfileSection WritePrivateProfileSectionW
