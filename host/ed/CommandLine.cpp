#include "CommandLine.h"

#include "acedoutput.h"

#include <cstdio>
#include <utility>

namespace
{
struct CommandLineState {
    ed::CommandLineListener listener;
    std::wstring lastLine;
    bool isAtEnter = false; ///< the last thing on the line was Enter
};

CommandLineState& state()
{
    static CommandLineState one;
    return one;
}

void writeToStandardOutput(std::wstring_view text)
{
    const int units = static_cast<int>(text.size());
    std::string bytes(text.size() * 4, '\0');
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, &bytes[0], static_cast<int>(bytes.size()),
                                         nullptr, nullptr);
    std::fwrite(bytes.data(), 1, static_cast<std::size_t>(size), stdout);
}

void keepLastLine(std::wstring& line, std::wstring_view text)
{
    const std::size_t end = text.find_last_of(L'\n');
    if (end == std::wstring_view::npos)
        line += text;
    else
        line = text.substr(end + 1);
}
} // namespace

namespace ed
{
void print(std::wstring_view text)
{
    if (text.empty()) return;
    // Enter and the line feed that most prompts begin with are one step to the next line.
    if (std::exchange(state().isAtEnter, false) && text.front() == L'\n') text.remove_prefix(1);
    if (text.empty()) return;
    keepLastLine(state().lastLine, text);
    if (state().listener)
        state().listener(text);
    else
        writeToStandardOutput(text);
}

void echoAnswer(std::wstring_view text)
{
    print(text);
    print(L"\n");
    state().isAtEnter = true;
}

void beginLine()
{
    state().lastLine.clear();
    state().isAtEnter = true;
}

CommandLineListener setCommandLineListener(CommandLineListener listener)
{
    std::swap(state().listener, listener);
    state().isAtEnter = false;
    return listener;
}

const std::wstring& lastPrompt() { return state().lastLine; }
} // namespace ed

int acutPrintText(const ACHAR* text)
{
    if (!text) return RTERROR;
    ed::print(text);
    return RTNORM;
}

int acedPrompt(const ACHAR* text) { return acutPrintText(text); }

int acedAlert(const ACHAR* text)
{
    if (!text) return RTERROR;
    MessageBoxW(nullptr, text, L"AutoCAD Message", MB_OK | MB_ICONEXCLAMATION);
    return RTNORM;
}
