#pragma once

/// Runs commands that come from scripts, from standard input, or from a person at a terminal.

#include <string>

namespace console
{
/// Types a script file to its end. False when it cannot be read, or a line of it failed: that is told on
/// standard error.
bool runScript(const std::string& file);
/// Takes commands from standard input until it ends, or QUIT. At a terminal a fault is told, and it goes on.
bool runStandardInput();
} // namespace console
