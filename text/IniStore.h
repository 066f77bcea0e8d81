#pragma once

/// Profile files on disk.

#include "IniContents.h"

#include <memory>

namespace inifile
{
/// The contents of a file as it is now; null when it cannot be opened or read, or has 2 GiB or more. What the
/// last call read is used again as long as size and times of the file are the same.
std::shared_ptr<const Contents> load(const CString& file);

/// The same for a file in an encoding that the system's profile functions do not know (UTF-8, or UTF-16 with
/// the high byte first, with their marks); null for every other file.
std::shared_ptr<const Contents> loadForeign(const CString& file);

/// Puts bytes in the place of a file in one step, or makes the file: whatever happens, there is the old one
/// or the new one. False when that fails; the file is then as it was.
bool store(const CString& file, const std::string& bytes);
} // namespace inifile
