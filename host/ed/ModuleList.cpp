#include "CommandLine.h"
#include "CommandStackAccess.h"
#include "Documents.h"
#include "Faults.h"
#include "LispCalls.h"
#include "ModuleEvents.h"
#include "ResbufCopy.h"
#include "SupportFiles.h"
#include "UndoRecording.h"
#include "WindowHooks.h"
#include "acedmodules.h"
#include "dbentity.h"

#include <algorithm>

namespace
{
/// Makes each open document the current one in turn, the current one first.
void inEachDocument(const std::function<void()>& doIt)
{
    AcApDocument* const before = acDocManager->curDocument();
    std::vector<AcApDocument*> some = documents::all();
    std::stable_partition(some.begin(), some.end(), [=](AcApDocument* document) { return document == before; });
    for (AcApDocument* document : some) {
        if (acDocManager->setCurDocument(document) != Acad::eOk) continue;
        const documents::Context context(document);
        doIt();
    }
    if (documents::stateOf(before)) acDocManager->setCurDocument(before);
}

void report(std::wstring_view reason, bool isShown)
{
    if (isShown) ed::print(L"\n" + std::wstring(reason) + L"\n");
    ed::noteFault(reason);
}

bool isIn(const void* address, HMODULE module)
{
    HMODULE of = nullptr;
    return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              static_cast<LPCWSTR>(address), &of) &&
           of == module;
}

/// Steps that keep objects of the module's classes cannot be undone any more, nor can those before them.
void forgetSteps(HMODULE module)
{
    for (AcApDocument* document : documents::all()) {
        UndoHistory& history = undo::historyOf(*document->database());
        history.separate(L"");
        const bool isNeeded = history.keepsCopy([&](const AcDbObject& copy) {
            return isIn(*reinterpret_cast<const void* const*>(&copy), module); // its table of virtual members
        });
        if (isNeeded) history.clear();
    }
}

void forget(HMODULE module, void* appId)
{
    forgetSteps(module);
    ed::forgetLisp(appId);
    CommandStackAccess::forget(ed::commandStack(), module);
    ed::forgetHooks(module);
}

[[maybe_unused]] const bool surrounded = [] {
    modules::setSurroundings({report, inEachDocument, ed::findSupportFile, forget});
    return true;
}();
} // namespace

void* acrxLoadedApps()
{
    auto* names = new AcDbVoidPtrArray;
    for (const std::wstring& name : modules::loadedNames()) {
        ACHAR* copy = nullptr;
        acutNewString(name.c_str(), copy);
        names->append(copy);
    }
    return names;
}

int acedArxLoad(const ACHAR* fileName) { return acrxLoadModule(fileName, true) ? RTNORM : RTERROR; }
int acedArxUnload(const ACHAR* fileName) { return acrxUnloadModule(fileName) ? RTNORM : RTERROR; }

resbuf* acedArxLoaded()
{
    ed::OwnedResbuf list;
    for (const std::wstring& name : modules::loadedNames())
        ed::append(list, ed::OwnedResbuf(acutBuildList(RTSTR, name.c_str(), RTNONE)));
    return list.release();
}
