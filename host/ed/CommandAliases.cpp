#include "CommandAliases.h"

#include "LispFunctions.h"

namespace
{
std::map<std::wstring, std::wstring, ed::NoCase>& aliases()
{
    static auto& all = *new std::map<std::wstring, std::wstring, ed::NoCase>;
    return all;
}
} // namespace

namespace ed
{
void addAlias(const std::wstring& alias, const std::wstring& command)
{
    aliases().emplace(alias, command);
}

std::wstring commandOfAlias(const std::wstring& alias)
{
    const auto found = aliases().find(alias);
    return found == aliases().end() ? std::wstring() : found->second;
}
} // namespace ed
