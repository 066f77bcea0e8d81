/// NEW, OPEN, QSAVE, SAVE, SAVEAS, CLOSE and QUIT.

#include "Ask.h"
#include "CommandTable.h"
#include "Documents.h"
#include "DrawingName.h"
#include "EditorEvents.h"
#include "Faults.h"
#include "FileReason.h"
#include "ProgramEnd.h"

#include <algorithm>

namespace
{
using commands::ask;
using commands::askFile;
using commands::askWhether;
using commands::drawingPath;
using commands::mayReplace;
using Text = std::optional<std::wstring>;

void tell(const wchar_t* what, const std::wstring& file, Acad::ErrorStatus status)
{
    if (status == Acad::eOk) return;
    ed::fail(std::wstring(what) + L" \"" + file + L"\": " + commands::fileReason(status) + L".");
}

/// Does what makes another drawing the current one; the rest of what was typed goes on there.
Acad::ErrorStatus switchDrawing(const std::function<Acad::ErrorStatus()>& open)
{
    AcApDocument* const before = acDocManager->curDocument();
    const Acad::ErrorStatus status = open();
    DocumentState* old = documents::stateOf(before);
    DocumentState* now = documents::current();
    if (old && now && old != now) old->input.handOver(now->input);
    return status;
}

void newDrawing()
{
    const Text name = askFile(L"Enter template file name or [. (for none)] <.>: ");
    if (!name) return;
    const bool none = name->empty() || *name == L".";
    tell(L"Cannot open the template", *name,
         switchDrawing([&] { return acDocManager->appContextNewDocument(none ? nullptr : name->c_str()); }));
}

void open()
{
    const Text name = askFile(L"Enter name of drawing to open: ");
    if (!name || name->empty()) return;
    tell(L"Cannot open", *name,
         switchDrawing([&] { return acDocManager->appContextOpenDocument(name->c_str()); }));
}

Text askSaveName()
{
    const AcApDocument* document = acDocManager->curDocument();
    const bool named = document->isNamedDrawing();
    const Text name =
        askFile(L"Save drawing as" + (named ? L" <" + std::wstring(document->fileName()) + L">: " : L": "));
    if (!name || (name->empty() && !named)) return std::nullopt;
    const std::wstring path = name->empty() ? std::wstring(document->fileName()) : drawingPath(*name);
    return mayReplace(path) ? Text(path) : std::nullopt;
}

void saveUnder(const std::wstring& path)
{
    const std::wstring shown = path.empty() ? std::wstring(acDocManager->curDocument()->fileName()) : path;
    tell(L"Cannot save", shown, documents::save(acDocManager->curDocument(), path));
}

void quickSave()
{
    if (acDocManager->curDocument()->isNamedDrawing()) return saveUnder(L"");
    if (const Text path = askSaveName()) saveUnder(*path);
}

void saveAs()
{
    if (const Text path = askSaveName()) saveUnder(*path);
}

/// A drawing that has a name keeps it: another name makes a copy.
void save()
{
    AcApDocument* document = acDocManager->curDocument();
    const Text path = askSaveName();
    if (!path) return;
    if (!document->isNamedDrawing() || *path == document->fileName()) return saveUnder(*path);
    tell(L"Cannot save", *path, documents::write(document, *path, [&] {
             return document->database()->saveAs(path->c_str(), true);
         }));
}

bool isChanged(const AcApDocument* document)
{
    return documents::stateOf(document)->dbmod != 0;
}

constexpr const wchar_t* discard = L"Really want to discard all changes to drawing? <N> ";

/// There is a drawing always: behind the last one comes a new one.
void closeDrawing()
{
    AcApDocument* const document = acDocManager->curDocument();
    if (isChanged(document) && !askWhether(discard)) return;
    switchDrawing([] {
        const bool last = acDocManager->documentCount() == 1;
        return last ? acDocManager->appContextNewDocument(nullptr) : Acad::eOk;
    });
    documents::close(document);
}

void quit()
{
    const bool mayEnd = ed::askEditor([](AcEditorReactor& reactor) { reactor.beginQuit(); });
    const auto& all = documents::all();
    if (!mayEnd) ed::fail(L"A module keeps the program from ending.");
    if (mayEnd && (std::none_of(all.begin(), all.end(), isChanged) || askWhether(discard)))
        return ed::requestEnd();
    ed::tellEditor([](AcEditorReactor& reactor) { reactor.quitAborted(); });
}

[[maybe_unused]] const bool added = commands::add({
    {L"NEW", L"", ACRX_CMD_SESSION, newDrawing, L"Begins a new drawing, from a template if one is named"},
    {L"OPEN", L"", ACRX_CMD_SESSION, open, L"Opens a drawing (DXF); quotes hold a name with blanks together"},
    {L"QSAVE", L"", ACRX_CMD_MODAL, quickSave, L"Saves the drawing under its name"},
    {L"SAVE", L"", ACRX_CMD_MODAL, save, L"Saves the drawing, or a copy of it under another name"},
    {L"SAVEAS", L"", ACRX_CMD_MODAL, saveAs,
     L"Saves the drawing under another name, which is its own from then on"},
    {L"CLOSE", L"", ACRX_CMD_SESSION, closeDrawing, L"Closes the drawing; asks when it has changes"},
    {L"QUIT", L"EXIT", ACRX_CMD_SESSION, quit, L"Ends the program; asks when a drawing has changes"},
});
} // namespace
