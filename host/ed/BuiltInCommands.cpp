/// The few commands of AutoCAD itself that work here.

#include "CommandLine.h"
#include "CommandStackAccess.h"
#include "Documents.h"
#include "VariablePrompt.h"
#include "acedmodules.h"
#include "acestext.h"

namespace
{
std::wstring ask(const wchar_t* prompt, ed::Reading reading)
{
    ed::print(prompt);
    const ed::Answer answer = ed::currentInput().next(reading);
    return answer.kind == ed::Answer::Kind::text ? answer.text : std::wstring();
}

void setvar()
{
    const std::wstring name = ask(L"Enter variable name: ", ed::Reading::token);
    if (!name.empty() && !ed::promptForVariable(name)) ed::print(L"Unknown variable name.\n");
}

/// A headless view always shows the drawing as it is.
void regenerate() { ed::print(L"Regenerating model.\n"); }
void redraw() {}

void arx()
{
    const std::wstring option = ask(L"Enter an option [Files/Load/Unload]: ", ed::Reading::token);
    const wchar_t key = option.empty() ? L'\0' : option[0];
    if (key == L'L' || key == L'l') acedArxLoad(ask(L"Enter the file to load: ", ed::Reading::word).c_str());
    if (key == L'U' || key == L'u') acedArxUnload(ask(L"Enter the file to unload: ", ed::Reading::word).c_str());
    if (key != L'F' && key != L'f') return;
    resbuf* names = acedArxLoaded();
    for (const resbuf* at = names; at; at = at->rbnext) ed::print(std::wstring(at->resval.rstring) + L"\n");
    acutRelRb(names);
}

void saveUnder(const std::wstring& name)
{
    const Acad::ErrorStatus status = documents::save(acDocManager->curDocument(), name);
    if (status != Acad::eOk) ed::print(std::wstring(L"The drawing is not saved: ") + acadErrorStatusText(status) + L"\n");
}

/// A drawing without a file asks for its name.
void quickSave()
{
    const bool named = acDocManager->curDocument()->isNamedDrawing();
    const std::wstring name = named ? L"" : ask(L"Save drawing as: ", ed::Reading::word);
    if (named || !name.empty()) saveUnder(name);
}

void saveAs()
{
    const std::wstring name = ask(L"Save drawing as: ", ed::Reading::word);
    if (!name.empty()) saveUnder(name);
}

/// Menus are not there: the group's name is taken and nothing unloaded.
void menuUnload()
{
    const std::wstring group = ask(L"Enter the name of a menu group to unload: ", ed::Reading::line);
    if (!group.empty()) ed::print(L"The menu group \"" + group + L"\" is not loaded.\n");
}

void add(const wchar_t* name, Adesk::Int32 flags, AcRxFunctionPtr function)
{
    ed::commandStack().addCommand(L"ACAD", name, name, flags, function);
}

[[maybe_unused]] const bool added = [] {
    add(L"SETVAR", ACRX_CMD_TRANSPARENT, setvar);
    add(L"REGEN", ACRX_CMD_TRANSPARENT, regenerate);
    add(L"REGENALL", ACRX_CMD_TRANSPARENT, regenerate);
    add(L"REDRAW", ACRX_CMD_TRANSPARENT, redraw);
    add(L"REDRAWALL", ACRX_CMD_TRANSPARENT, redraw);
    add(L"QSAVE", ACRX_CMD_MODAL, quickSave);
    add(L"SAVEAS", ACRX_CMD_MODAL, saveAs);
    add(L"ARX", ACRX_CMD_MODAL, arx);
    add(L"MENUUNLOAD", ACRX_CMD_MODAL, menuUnload);
    return true;
}();
} // namespace
