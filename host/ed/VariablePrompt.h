#pragma once

#include <string>

namespace ed
{
/// Asks for the value of a system variable that was named at the command prompt, and sets it. False for an unknown name.
bool promptForVariable(const std::wstring& name);
} // namespace ed
