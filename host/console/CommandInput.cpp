#include "CommandInput.h"

#include "CommandLine.h"
#include "CommandRunner.h"
#include "ConsoleText.h"
#include "ProgramEnd.h"
#include "Script.h"
#include "Terminal.h"
#include "UserBreak.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <unistd.h>

namespace console
{
namespace
{
/// True when a script stopped at a fault, which is told.
bool tellFault()
{
    const std::optional<scripts::Fault> fault = scripts::takeFault();
    if (!fault) return false;
    std::fflush(stdout);
    const std::string place = nativePath(fault->file.c_str()) + ":" + std::to_string(fault->line);
    std::fprintf(stderr, "%s: %s\n", place.c_str(), utf8(fault->reason.c_str()).c_str());
    return true;
}

/// Runs the script that was started.
bool runToEnd()
{
    const ed::Typist before = ed::setTypist(scripts::nextLine);
    ed::runPending(true);
    ed::setTypist(before);
    ed::print(L"\n");
    return !tellFault();
}

/// Someone at a terminal, and the scripts that he starts.
class Person
{
public:
    Person() : mTerminal(historyFile())
    {
        ed::setCommandLineListener([this](std::wstring_view text) { mTerminal.write(text); });
        ed::setBreakSource(Terminal::isInterrupted);
    }
    ~Person()
    {
        ed::setBreakSource(nullptr);
        ed::setCommandLineListener(nullptr);
        mTerminal.flush();
    }
    Person(const Person&) = delete;
    Person& operator=(const Person&) = delete;

    std::optional<ed::TypedKeys> type()
    {
        if (mTerminal.takeInterrupt()) return interrupt();
        if (std::optional<ed::TypedKeys> line = scripts::nextLine()) return line;
        tellFault();
        const std::optional<std::wstring> line = mTerminal.readLine();
        if (!line) return end();
        mEnds = 0;
        return ed::TypedKeys{*line, false};
    }

private:
    static std::string historyFile()
    {
        const char* home = std::getenv("HOME");
        return std::string(home ? home : ".") + "/.arxhost_history";
    }

    static ed::TypedKeys interrupt()
    {
        scripts::stop();
        return {L"\x3", false};
    }

    /// ^D cancels a question, and at the command prompt it is QUIT; a terminal that is gone gives no more
    /// than that.
    std::optional<ed::TypedKeys> end()
    {
        ed::beginLine();
        if (++mEnds > 3 || ed::commandActivity() != 0) return std::nullopt;
        return mEnds > 1 ? std::nullopt : std::optional<ed::TypedKeys>({L"QUIT\n", true});
    }

    Terminal mTerminal;
    int mEnds = 0;
};

bool runTerminal()
{
    Person person;
    const ed::Typist before = ed::setTypist([&] { return person.type(); });
    ed::runPending(true);
    ed::setTypist(before);
    return true;
}

bool readLine(std::string& line)
{
    return static_cast<bool>(std::getline(std::cin, line));
}
} // namespace

bool runScript(const std::string& file)
{
    if (scripts::start(static_cast<const wchar_t*>(wide(file)))) return runToEnd();
    std::fprintf(stderr, "arxhost: %s: the script cannot be read\n", file.c_str());
    return false;
}

bool runStandardInput()
{
    if (isatty(STDIN_FILENO) && isatty(STDOUT_FILENO)) return runTerminal();
    scripts::start(L"standard input", readLine);
    return runToEnd();
}
} // namespace console
