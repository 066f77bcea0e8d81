#pragma once

/// What is written to AutoCAD's command line.

#include <functional>
#include <string>
#include <string_view>

namespace ed
{
/// Writes text to the command line: to the listener, or to standard output as UTF-8 when there is none.
void print(std::wstring_view text);
/// Shows an answer that was typed in advance, behind its prompt.
void echoAnswer(std::wstring_view text);
/// Someone pressed Enter at the terminal: what is written next begins a line.
void beginLine();

/// Takes what is written from now on; an empty function gives it back to standard output. Returns the one before.
using CommandLineListener = std::function<void(std::wstring_view text)>;
CommandLineListener setCommandLineListener(CommandLineListener listener);

/// The last line that was written: LASTPROMPT.
const std::wstring& lastPrompt();
} // namespace ed
