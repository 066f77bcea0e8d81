#include "Documents.h"
#include "EditorEvents.h"
#include "ModuleEvents.h"

#include <algorithm>

namespace
{
struct Manager {
    AcApDocManager object;
    std::vector<AcApDocument*> all;
    std::vector<AcApDocManagerReactor*> reactors;
    std::vector<AcApDocument*> executing; ///< the innermost last; null entries are the application
    AcApDocument* current = nullptr;
    AcApDocument* active = nullptr;
    int activationDisabled = 0;
    int untitled = 0;
};

Manager& manager()
{
    static Manager& one = *new Manager;
    return one;
}

AcRxClass* managerClass()
{
    static AcRxClass* const made = newAcRxClass(L"AcApDocManager", AcRxObject::desc());
    return made;
}

void follow(AcApDocument* document)
{
    acdbHostApplicationServices()->setWorkingDatabase(document ? document->database() : nullptr);
}

void makeCurrent(AcApDocument* document)
{
    if (manager().current == document) return follow(document);
    manager().current = document;
    follow(document);
    documents::tell([&](AcApDocManagerReactor& reactor) { reactor.documentBecameCurrent(document); });
}

void activate(AcApDocument* document)
{
    AcApDocument*& active = manager().active;
    if (active != document) {
        if (active)
            documents::tell([&](AcApDocManagerReactor& reactor) { reactor.documentToBeDeactivated(active); });
        documents::tell([&](AcApDocManagerReactor& reactor) { reactor.documentToBeActivated(document); });
        active = document;
        makeCurrent(document);
        documents::tell([&](AcApDocManagerReactor& reactor) { reactor.documentActivated(document); });
    }
    makeCurrent(document);
}

class Iterator : public AcApDocumentIterator
{
public:
    explicit Iterator(std::vector<AcApDocument*> all) : mAll(std::move(all)) {}
    bool done() const override { return mAt >= mAll.size(); }
    void step() override { ++mAt; }
    AcApDocument* document() override { return done() ? nullptr : mAll[mAt]; }

private:
    std::vector<AcApDocument*> mAll;
    std::size_t mAt = 0;
};

std::wstring titleOf(const std::wstring& fileName)
{
    if (fileName.empty()) return L"Drawing" + std::to_wstring(++manager().untitled) + L".dwg";
    return fileName.substr(fileName.find_last_of(L"\\/") + 1);
}

void activationModified()
{
    documents::tell([](AcApDocManagerReactor& reactor) {
        reactor.documentActivationModified(acDocManager->isDocumentActivationEnabled());
    });
}
} // namespace

namespace documents
{
const std::vector<AcApDocument*>& all()
{
    return manager().all;
}

DocumentState* stateOf(const AcApDocument* document)
{
    const auto found = std::find(all().begin(), all().end(), document);
    return document && found != all().end() ? &DocumentAccess::of(**found) : nullptr;
}

DocumentState* current()
{
    return stateOf(acDocManager->curDocument());
}

AcApDocument* adopt(std::unique_ptr<AcDbDatabase> database, const std::wstring& fileName, bool readOnly)
{
    auto state = std::make_unique<DocumentState>();
    state->database = std::move(database);
    state->fileName = fileName;
    state->title = titleOf(fileName);
    state->readOnly = readOnly;
    AcApDocument* made = DocumentAccess::make(std::move(state));
    tell([&](AcApDocManagerReactor& reactor) { reactor.documentCreateStarted(made); });
    manager().all.push_back(made);
    activate(made);
    tell([&](AcApDocManagerReactor& reactor) { reactor.documentCreated(made); });
    tellModules(made, AcRx::kLoadDwgMsg);
    // What modules have made of the drawing by now is not the user's to undo.
    made->database()->disableUndoRecording(false);
    return made;
}

void nameDocument(AcApDocument* document, const std::wstring& fileName)
{
    DocumentState& state = *stateOf(document);
    if (state.fileName == fileName) return;
    state.fileName = fileName;
    state.title = titleOf(fileName);
    tell([&](AcApDocManagerReactor& reactor) { reactor.documentTitleUpdated(document); });
}

void close(AcApDocument* document)
{
    ed::tellEditor([&](AcEditorReactor& reactor) { reactor.beginClose(document->database()); });
    tellModules(document, AcRx::kUnloadDwgMsg);
    tell([&](AcApDocManagerReactor& reactor) { reactor.documentToBeDestroyed(document); });
    Manager& m = manager();
    m.all.erase(std::find(m.all.begin(), m.all.end(), document));
    AcApDocument* next = m.all.empty() ? nullptr : m.active == document ? m.all.back() : m.active;
    const std::wstring fileName = document->fileName();
    if (m.active == document) m.active = nullptr;
    if (next)
        activate(next);
    else
        makeCurrent(nullptr);
    DocumentAccess::destroy(document);
    tell([&](AcApDocManagerReactor& reactor) { reactor.documentDestroyed(fileName.c_str()); });
}

void closeAll()
{
    while (!all().empty())
        close(all().back());
}

void tellModules(AcApDocument* document, AcRx::AppMsgCode message)
{
    AcApDocument* before = manager().current;
    makeCurrent(document);
    const Context context(document);
    modules::sendToAll(message);
    makeCurrent(before);
}

AcApDocument* executing()
{
    return manager().executing.empty() ? nullptr : manager().executing.back();
}

Context::Context(AcApDocument* document)
{
    manager().executing.push_back(document);
}
Context::~Context()
{
    manager().executing.pop_back();
}

void tell(const std::function<void(AcApDocManagerReactor&)>& event)
{
    const std::vector<AcApDocManagerReactor*> reactors = manager().reactors; // a reactor may remove itself
    for (AcApDocManagerReactor* reactor : reactors)
        event(*reactor);
}

bool askVeto(const std::function<void(AcApDocManagerReactor&)>& event)
{
    bool vetoed = false;
    tell([&](AcApDocManagerReactor& reactor) {
        event(reactor);
        vetoed = reactor.takeVeto() || vetoed;
    });
    return vetoed;
}
} // namespace documents

bool AcApDocManagerReactor::takeVeto()
{
    const bool vetoed = mVetoed;
    mVetoed = false;
    return vetoed;
}

AcApDocManager* acDocManagerPtr()
{
    return &manager().object;
}
AcRxClass* AcApDocManager::desc()
{
    return managerClass();
}
AcRxClass* AcApDocManager::isA() const
{
    return managerClass();
}

AcApDocument* AcApDocManager::curDocument() const
{
    return manager().current;
}
AcApDocument* AcApDocManager::mdiActiveDocument() const
{
    return manager().active;
}
bool AcApDocManager::isApplicationContext() const
{
    return !documents::executing();
}
int AcApDocManager::documentCount() const
{
    return static_cast<int>(documents::all().size());
}
AcApDocumentIterator* AcApDocManager::newAcApDocumentIterator()
{
    return new Iterator(documents::all());
}

AcApDocument* AcApDocManager::document(const AcDbDatabase* database) const
{
    for (AcApDocument* document : documents::all()) {
        if (database && document->database() == database) return document;
    }
    return nullptr;
}

Acad::ErrorStatus AcApDocManager::setCurDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                                 bool bringToFront)
{
    AcApDocument* target = document ? document : mdiActiveDocument();
    if (!documents::stateOf(target)) return Acad::eNoDocument;
    if (mode != AcAp::kNone) {
        const Acad::ErrorStatus status = lockDocument(target, mode);
        if (status != Acad::eOk) return status;
    }
    if (bringToFront) return activateDocument(target);
    makeCurrent(target);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::activateDocument(AcApDocument* document, bool)
{
    if (!documents::stateOf(document)) return Acad::eNoDocument;
    if (!isDocumentActivationEnabled()) return Acad::eDocumentSwitchDisabled;
    if (documents::executing() && documents::executing() != document) return Acad::eTargetDocNotQuiescent;
    activate(document);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::disableDocumentActivation()
{
    if (++manager().activationDisabled == 1) activationModified();
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::enableDocumentActivation()
{
    if (manager().activationDisabled == 0) return Acad::eOk;
    if (--manager().activationDisabled == 0) activationModified();
    return Acad::eOk;
}

bool AcApDocManager::isDocumentActivationEnabled() const
{
    return manager().activationDisabled == 0;
}

Acad::ErrorStatus AcApDocManager::sendStringToExecute(AcApDocument* document, const ACHAR* text,
                                                      bool bringToFront, bool wrapUpInactiveDoc,
                                                      bool echoString)
{
    DocumentState* state = documents::stateOf(document);
    if (!state) return Acad::eNoDocument;
    if (!text) return Acad::eInvalidInput;
    if (bringToFront && document != mdiActiveDocument()) {
        const Acad::ErrorStatus status = activateDocument(document);
        if (status != Acad::eOk) return status;
    }
    state->input.type(text, echoString);
    state->runsInBackground = state->runsInBackground || wrapUpInactiveDoc;
    return Acad::eOk;
}

int AcApDocManager::inputPending(AcApDocument* document)
{
    const DocumentState* state = documents::stateOf(document);
    return state && !state->input.empty();
}

void AcApDocManager::executeInApplicationContext(void (*function)(void*), void* data) const
{
    const documents::Context context(nullptr);
    if (function) function(data);
}

Acad::ErrorStatus AcApDocManager::closeDocument(AcApDocument* document)
{
    const DocumentState* state = documents::stateOf(document);
    if (!state) return Acad::eNoDocument;
    if (!state->commands.empty()) return Acad::eTargetDocNotQuiescent;
    documents::close(document);
    return Acad::eOk;
}

void AcApDocManager::addReactor(AcApDocManagerReactor* reactor)
{
    removeReactor(reactor);
    if (reactor) manager().reactors.push_back(reactor);
}

void AcApDocManager::removeReactor(AcApDocManagerReactor* reactor)
{
    auto& reactors = manager().reactors;
    reactors.erase(std::remove(reactors.begin(), reactors.end(), reactor), reactors.end());
}
