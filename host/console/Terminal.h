#pragma once

/// The command line at a terminal: lines are edited, remembered and completed.

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace console
{
class Terminal
{
public:
    /// Takes standard input and output, which are a terminal; reads the history from `historyFile`, which may
    /// be missing.
    explicit Terminal(const std::string& historyFile);
    /// Writes the history.
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// Shows text. The beginning of a line is held back: it is the prompt if a question follows.
    void write(std::wstring_view text);
    /// Shows what is held back.
    void flush();

    /// Whether ^C was pressed while no line was edited, since it was taken last.
    static bool isInterrupted();
    /// The same, and takes it.
    bool takeInterrupt();
    /// One line with its Enter; "\x3" for Esc (^C, now or since the last line); nothing at the end (^D on an
    /// empty line).
    std::optional<std::wstring> readLine();

private:
    struct Editor;
    std::unique_ptr<Editor> mEditor;
};
} // namespace console
