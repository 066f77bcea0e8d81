/// HELP.

#include "Ask.h"
#include "CommandAliases.h"
#include "CommandLine.h"
#include "CommandTable.h"
#include "Faults.h"
#include "VariableStore.h"

namespace
{
void printLine(const commands::Command& command)
{
    constexpr std::size_t column = 12;
    std::wstring line = command.name;
    line.resize(std::max(column, line.size() + 1), L' ');
    const std::wstring aliases = command.aliases;
    ed::print(line + command.help + (aliases.empty() ? L"" : L" (" + aliases + L")") + L"\n");
}

void help()
{
    const std::optional<std::wstring> answer = commands::ask(L"Enter name of a command <all>: ");
    if (!answer) return;
    if (answer->empty()) {
        for (const auto& [name, command] : commands::table())
            printLine(command);
        return;
    }
    const std::wstring ofAlias = ed::commandOfAlias(*answer);
    const auto found = commands::table().find(ofAlias.empty() ? ed::upperCase(*answer) : ofAlias);
    if (found == commands::table().end()) return ed::fail(L"There is no help on \"" + *answer + L"\".");
    printLine(found->second);
}

[[maybe_unused]] const bool added = commands::add({
    {L"HELP", L"?", ACRX_CMD_TRANSPARENT, help, L"Tells what the commands do, all of them or one"},
});
} // namespace
