#include "Script.h"

#include "Faults.h"

#include <utility>

namespace
{
struct State {
    std::wstring file;
    scripts::LineReader lines; ///< empty when there is no script
    std::size_t line = 0;
    bool isRunning = false;
    bool isFile = false;
    std::optional<scripts::Fault> fault;
};

State& state()
{
    static State one;
    return one;
}

void begin(const std::wstring& name, scripts::LineReader lines, bool isFile)
{
    state().file = name;
    state().lines = std::move(lines);
    state().line = 0;
    state().isRunning = true;
    state().isFile = isFile;
}

void finish()
{
    state().lines = nullptr;
    state().isRunning = false;
}

bool readLine(std::string& line)
{
    if (!state().lines(line)) return false;
    ++state().line;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return true;
}
} // namespace

namespace scripts
{
bool start(const std::wstring& path)
{
    std::optional<LineReader> lines = linesOfFile(path);
    if (lines) begin(path, std::move(*lines), true);
    return lines.has_value();
}

void start(const std::wstring& name, LineReader lines)
{
    begin(name, std::move(lines), false);
}

std::optional<ed::TypedKeys> nextLine()
{
    // A command that has failed gets no more answers.
    if (!state().isRunning || ed::hasFailed()) return std::nullopt;
    std::string line;
    while (readLine(line)) {
        if (line.empty() || line[0] != ';') return ed::TypedKeys{textOfLine(line) + L"\n", true};
    }
    finish();
    return std::nullopt;
}

bool isRunning()
{
    return state().isRunning;
}

void stop()
{
    state().isRunning = false;
}

void stop(const std::wstring& reason)
{
    stop();
    if (!state().file.empty()) state().fault = Fault{state().file, state().line, reason};
}

bool resume()
{
    state().isRunning = static_cast<bool>(state().lines);
    return state().isRunning;
}

bool repeat()
{
    return state().isFile && start(std::wstring(state().file));
}

std::optional<Fault> takeFault()
{
    return std::exchange(state().fault, std::nullopt);
}

void forget()
{
    state() = State();
}
} // namespace scripts
