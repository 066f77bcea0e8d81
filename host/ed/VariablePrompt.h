#pragma once

#include <string>

namespace ed
{
/// "NAME = value", with "(read only)" behind it for one that is; empty for an unknown name.
std::wstring variableLine(const std::wstring& name);
/// Asks for the value of a system variable that was named at the command prompt, and sets it. False for an unknown name.
bool promptForVariable(const std::wstring& name);
} // namespace ed
