#pragma once

/// The script that types at the command line. There is one at a time, as in AutoCAD: one that starts another
/// is over.

#include "ScriptLines.h"
#include "Typist.h"

#include <optional>
#include <string>

namespace scripts
{
/// Where and why a script stopped.
struct Fault {
    std::wstring file;
    std::size_t line = 0; ///< counted from 1
    std::wstring reason;
};

/// Types a file from its beginning. False when it cannot be read: what ran before goes on then.
bool start(const std::wstring& path);
/// Types lines that come from elsewhere; `name` stands for the file in messages. They cannot be repeated.
void start(const std::wstring& name, LineReader lines);

/// The next line with its Enter, for the typist; nothing when no script runs. Lines that begin with a
/// semicolon are comments.
std::optional<ed::TypedKeys> nextLine();
bool isRunning();

/// Stops in the middle: the user pressed Esc, or a line was wrong. resume() goes on with the line behind.
void stop();
void stop(const std::wstring& reason);
/// RESUME and RSCRIPT; false when there is nothing to go on with or to repeat.
bool resume();
bool repeat();

/// The fault that stopped a script since the last call.
std::optional<Fault> takeFault();
/// As at the start of the program.
void forget();
} // namespace scripts
