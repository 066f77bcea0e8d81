/// ARX, and MENUUNLOAD, which modules call at their end.

#include "acedmodules.h"
#include "acutads.h"
#include "Ask.h"
#include "CommandLine.h"
#include "CommandStackAccess.h"
#include "CommandTable.h"
#include "Faults.h"

namespace
{
void printModules()
{
    resbuf* names = acedArxLoaded();
    if (!names) ed::print(L"No ObjectARX applications are loaded.\n");
    for (const resbuf* at = names; at; at = at->rbnext)
        ed::print(L"  " + std::wstring(at->resval.rstring) + L"\n");
    acutRelRb(names);
}

/// The commands of modules; those of AutoCAD are in HELP.
void printCommands()
{
    const std::unique_ptr<AcEdCommandIterator> walk(ed::commandStack().iterator());
    std::wstring group;
    for (; !walk->done(); walk->next()) {
        if (std::wstring(L"ACAD") == walk->commandGroup()) continue;
        if (group != walk->commandGroup()) ed::print((group = walk->commandGroup()) + L"\n");
        const std::wstring global = walk->command()->globalName(), local = walk->command()->localName();
        ed::print(L"  " + global + (local == global ? L"" : L"  (" + local + L")") + L"\n");
    }
    if (group.empty()) ed::print(L"No ObjectARX application has commands.\n");
}

void load()
{
    const std::optional<std::wstring> name = commands::askFile(L"Enter the file to load: ");
    if (!name || name->empty()) return;
    if (acedArxLoad(name->c_str()) != RTNORM) return ed::fail();
    ed::print(*name + L" is loaded.\n");
}

void unload()
{
    const std::optional<std::wstring> name = commands::askFile(L"Enter the file to unload: ");
    if (!name || name->empty()) return;
    if (!acrxAppIsLoaded(name->c_str())) return ed::fail(L"\"" + *name + L"\" is not loaded.");
    if (acedArxUnload(name->c_str()) != RTNORM) return ed::fail();
    ed::print(*name + L" is unloaded.\n");
}

void arx()
{
    const std::optional<std::wstring> option = commands::askKeyword(
        L"Enter an option [?/Load/Unload/Commands]: ", L"? Files Load Unload Commands", L"?");
    if (!option) return;
    if (*option == L"Load") return load();
    if (*option == L"Unload") return unload();
    if (*option == L"Commands") return printCommands();
    printModules();
}

/// Menus are not there: the group's name is taken and nothing unloaded.
void menuUnload()
{
    const std::optional<std::wstring> group =
        commands::ask(L"Enter the name of a menu group to unload: ", ed::Reading::line);
    if (group && !group->empty()) ed::print(L"The menu group \"" + *group + L"\" is not loaded.\n");
}

[[maybe_unused]] const bool added = commands::add({
    {L"ARX", L"", ACRX_CMD_MODAL, arx, L"Lists, loads and unloads modules (.arx), and lists their commands"},
    {L"MENUUNLOAD", L"", ACRX_CMD_MODAL, menuUnload,
     L"Takes the name of a menu group; there are no menus here"},
});
} // namespace
