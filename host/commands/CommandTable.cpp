#include "CommandTable.h"

#include "CommandAliases.h"
#include "CommandStackAccess.h"

#include <sstream>

namespace
{
std::map<std::wstring, commands::Command>& known()
{
    static auto& all = *new std::map<std::wstring, commands::Command>;
    return all;
}
} // namespace

namespace commands
{
bool add(std::initializer_list<Command> all)
{
    for (const Command& command : all) {
        ed::commandStack().addCommand(L"ACAD", command.name, command.name, command.flags, command.function);
        known().emplace(command.name, command);
        std::wistringstream aliases(command.aliases);
        for (std::wstring alias; aliases >> alias;)
            ed::addAlias(alias, command.name);
    }
    return true;
}

const std::map<std::wstring, Command>& table()
{
    return known();
}
} // namespace commands
