#pragma once

/// What may stand next at the command line.

#include <string>
#include <vector>

namespace console
{
struct Completion {
    std::size_t begin = 0;           ///< where the word begins in the line
    std::vector<std::wstring> words; ///< what it may become, sorted
    std::wstring common;             ///< the beginning that all of them share
};

/// `line` is what stands behind the prompt, up to the cursor. Commands and system variables at the command
/// prompt; else the keywords in the prompt's brackets, names of variables or of files, by what the prompt
/// asks for.
Completion complete(const std::wstring& prompt, const std::wstring& line);
} // namespace console
