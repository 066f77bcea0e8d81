/// SETVAR, and the regenerations.

#include "acutads.h"
#include "Ask.h"
#include "CommandLine.h"
#include "CommandTable.h"
#include "Faults.h"
#include "VariablePrompt.h"
#include "VariableStore.h"

namespace
{
void listVariables()
{
    const std::optional<std::wstring> answer = commands::ask(L"Enter variable(s) to list <*>: ");
    if (!answer) return;
    const std::wstring pattern = answer->empty() ? L"*" : ed::upperCase(*answer);
    for (const std::wstring& name : ed::variableNames()) {
        if (acutWcMatch(name.c_str(), pattern.c_str()) == RTNORM) ed::print(ed::variableLine(name));
    }
}

void setvar()
{
    const std::optional<std::wstring> name = commands::ask(L"Enter variable name or [?]: ");
    if (!name || name->empty()) return;
    if (*name == L"?") return listVariables();
    if (!ed::promptForVariable(*name))
        ed::fail(L"Unknown variable name \"" + *name + L"\".  Type SETVAR ? for a list of them.");
}

/// A headless view always shows the drawing as it is.
void regenerate()
{
    ed::print(L"Regenerating model.\n");
}
void redraw() {}

[[maybe_unused]] const bool added = commands::add({
    {L"SETVAR", L"SET", ACRX_CMD_TRANSPARENT, setvar, L"Shows and sets a system variable; ? lists them"},
    {L"REGEN", L"RE", ACRX_CMD_TRANSPARENT, regenerate,
     L"Shows the drawing anew; here it always is as it should be"},
    {L"REGENALL", L"REA", ACRX_CMD_TRANSPARENT, regenerate, L"The same for all viewports"},
    {L"REDRAW", L"R", ACRX_CMD_TRANSPARENT, redraw, L"Draws the view anew; there is nothing to be done here"},
    {L"REDRAWALL", L"RA", ACRX_CMD_TRANSPARENT, redraw, L"The same for all viewports"},
});
} // namespace
