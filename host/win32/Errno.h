#pragma once

#include "windef.h"

#include <string>

namespace win32
{
/// The error code that stands for a value of errno; ERROR_GEN_FAILURE when none does.
DWORD errorOfErrno(int error);

/// The same for a failure to reach `path`: a missing directory is ERROR_PATH_NOT_FOUND, a missing file in
/// a directory that is there ERROR_FILE_NOT_FOUND.
DWORD errorOfPath(int error, const std::string& path);

/// Sets the last error and gives FALSE.
BOOL failWith(DWORD code);
} // namespace win32
