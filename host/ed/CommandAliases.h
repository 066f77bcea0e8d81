#pragma once

#include <string>

namespace ed
{
/// A short name of a command at the command prompt; commands, LISP functions and earlier aliases of that name
/// win.
void addAlias(const std::wstring& alias, const std::wstring& command);
/// The command of an alias in any case; empty when there is none.
std::wstring commandOfAlias(const std::wstring& alias);
} // namespace ed
