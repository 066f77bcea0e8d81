#pragma once

/// Texts between the terminal (UTF-8) and the host.

#include <windows.h>

#include <atlstr.h>

#include <string>

namespace console
{
CString wide(const std::string& utf8);
std::string utf8(const CString& text);
/// A path as this machine has it: "/x/y" for "Z:\x\y".
std::string nativePath(CString path);
} // namespace console
