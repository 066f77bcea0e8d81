#pragma once

#include "windef.h"

#include <string>
#include <string_view>

namespace win32
{
/// A module's name as it is looked for: with ".dll" when it has no extension, without a dot at its end.
std::wstring moduleName(std::wstring_view name);

/// Whether a name says in which directory the file is.
bool namesDirectory(std::wstring_view name);

/// The file of a module that is not loaded, by the rules of LoadLibraryExW: a path of this machine, or a name
/// without directory for a library that the system's own search shall find. Empty when there is none.
std::string findModuleFile(const std::wstring& name, DWORD flags);

/// The program's own file, on this machine.
std::string programPath();
} // namespace win32
