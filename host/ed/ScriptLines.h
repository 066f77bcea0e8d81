#pragma once

/// The lines of a script, whatever they are kept in.

#include <functional>
#include <optional>
#include <string>

namespace scripts
{
/// Gives the bytes of the next line without its end; false when there are no more.
using LineReader = std::function<bool(std::string& line)>;

/// Reads a whole file: UTF-8, UTF-16 with its mark, or the ANSI code page. Nothing when it cannot be read.
std::optional<LineReader> linesOfFile(const std::wstring& path);

/// A line as text: UTF-8 if it is that, else of the ANSI code page.
std::wstring textOfLine(const std::string& bytes);
} // namespace scripts
