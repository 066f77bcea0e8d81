#pragma once

#include <string>

namespace commands
{
bool isFile(const std::wstring& path);
/// The full path of a name, with the extension that drawings have here.
std::wstring drawingPath(std::wstring name);
/// Asks before another file is replaced, unless EXPERT says that the user knows.
bool mayReplace(const std::wstring& path);
} // namespace commands
