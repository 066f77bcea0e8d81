#pragma once

/// Paths taken apart and put together, and files by wide paths.

#include "windef.h"

#include "crtstring.h"

#include <cstdio>

#define _MAX_PATH 260
#define _MAX_DRIVE 3
#define _MAX_DIR 256
#define _MAX_FNAME 256
#define _MAX_EXT 256

/// The parts of a path: drive with its colon, directory with its last separator, name, extension with its
/// dot. Both separators are known. A part that is not wanted is null (and of size 0). What is longer than the
/// _MAX_ sizes is cut.
void _wsplitpath(const wchar_t* path, wchar_t* drive, wchar_t* directory, wchar_t* name, wchar_t* extension);
void _splitpath(const char* path, char* drive, char* directory, char* name, char* extension);
/// EINVAL for a null path, a null part with a size or a part of size 0; ERANGE, and all parts emptied, when
/// one does not fit.
errno_t _wsplitpath_s(const wchar_t* path, wchar_t* drive, std::size_t driveSize, wchar_t* directory,
                      std::size_t directorySize, wchar_t* name, std::size_t nameSize, wchar_t* extension,
                      std::size_t extensionSize);
errno_t _splitpath_s(const char* path, char* drive, std::size_t driveSize, char* directory,
                     std::size_t directorySize, char* name, std::size_t nameSize, char* extension,
                     std::size_t extensionSize);

/// The path of its parts, null ones left out. A colon behind the drive letter, a backslash behind the
/// directory and a dot before the extension are put in where they are missing. Cut at _MAX_PATH.
void _wmakepath(wchar_t* path, const wchar_t* drive, const wchar_t* directory, const wchar_t* name,
                const wchar_t* extension);
void _makepath(char* path, const char* drive, const char* directory, const char* name, const char* extension);
/// EINVAL for a null path or size 0; ERANGE, and an empty path, when it does not fit.
errno_t _wmakepath_s(wchar_t* path, std::size_t size, const wchar_t* drive, const wchar_t* directory,
                     const wchar_t* name, const wchar_t* extension);
errno_t _makepath_s(char* path, std::size_t size, const char* drive, const char* directory, const char* name,
                    const char* extension);

template <std::size_t Drive, std::size_t Directory, std::size_t Name, std::size_t Extension>
errno_t _wsplitpath_s(const wchar_t* path, wchar_t (&drive)[Drive], wchar_t (&directory)[Directory],
                      wchar_t (&name)[Name], wchar_t (&extension)[Extension])
{
    return _wsplitpath_s(path, drive, Drive, directory, Directory, name, Name, extension, Extension);
}
template <std::size_t Size>
errno_t _wmakepath_s(wchar_t (&path)[Size], const wchar_t* drive, const wchar_t* directory,
                     const wchar_t* name, const wchar_t* extension)
{
    return _wmakepath_s(path, Size, drive, directory, name, extension);
}

/// Opens the file of a Windows path; null with errno on failure. The mode is that of fopen. Streams are not
/// translated: a text stream keeps its line feeds, and a mode with an encoding ("ccs=") is EINVAL.
FILE* _wfopen(const wchar_t* path, const wchar_t* mode);
errno_t _wfopen_s(FILE** file, const wchar_t* path, const wchar_t* mode);
errno_t fopen_s(FILE** file, const char* path, const char* mode);

/// 0 when the file or directory is there and may be read (4), written (2), both (6); 0 asks for nothing more.
/// Otherwise -1, or the error code, with errno: ENOENT, EACCES, EINVAL for another mode.
int _waccess(const wchar_t* path, int mode);
errno_t _waccess_s(const wchar_t* path, int mode);
int _access(const char* path, int mode);
/// 0, or -1 with errno.
int _wremove(const wchar_t* path);
