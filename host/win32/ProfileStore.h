#pragma once

#include "ProfileFile.h"

#include "windef.h"

#include <memory>

namespace win32
{
/// The parsed file of a path. The last few files are kept, and parsed again when the file under the path is
/// another one or has changed. Null with the last error set when there is no such file.
/// Calls are made by one thread at a time, which also alone uses the result.
std::shared_ptr<const ProfileFile> loadProfile(const std::string& hostPath);

/// Puts `bytes` in the place of the file in one step, or makes the file. FALSE with the last error set; the
/// file is then as it was.
BOOL storeProfile(const std::string& hostPath, const std::string& bytes);
} // namespace win32
