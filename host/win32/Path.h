#pragma once

#include "windef.h"

#include <sys/stat.h>

#include <string>
#include <string_view>

namespace win32
{
/// The one place that knows how a Windows path and a path of this machine belong together; the rule is in
/// fileapi.h.

/// The absolute path of a Windows path, as GetFullPathNameW gives it: drive, backslashes, no "." or "..",
/// no trailing dots or blanks. Nothing is looked up. Empty for an empty path.
std::wstring fullPath(std::wstring_view windowsPath);

/// The path of the file or directory on this machine, found without regard to case where the exact name
/// is missing; components that do not exist stay as written. Empty, with the last error set, for a null or
/// empty path (ERROR_PATH_NOT_FOUND), an unknown drive (ERROR_PATH_NOT_FOUND), or a name with a character
/// that no file name may have (ERROR_INVALID_NAME).
std::string toHostPath(const wchar_t* windowsPath);

/// The same, and what stat() tells of the file there. False when there is none: then the path is empty, with
/// the last error set as above, or errno says why.
bool findHostFile(const wchar_t* windowsPath, std::string& path, struct stat& info);

/// The same as toHostPath, but the last component stays as written even if a name in another case exists.
std::string toNewHostPath(const wchar_t* windowsPath);

/// The path as it is handed out: on drive Z:, with backslashes. A relative path stays relative.
std::wstring toWindowsPath(const std::string& hostPath);

/// The directory that is the root of a drive, without a trailing separator ("" for Z:).
/// False when there is no such drive.
bool driveRoot(wchar_t letter, std::string& root);

constexpr bool isSeparator(wchar_t c)
{
    return c == L'\\' || c == L'/';
}

/// The position behind the last separator: where the name starts.
std::size_t nameStart(std::wstring_view path);
} // namespace win32
