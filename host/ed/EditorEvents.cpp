#include "EditorEvents.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace
{
std::vector<AcEditorReactor*>& reactors()
{
    static std::vector<AcEditorReactor*>& all = *new std::vector<AcEditorReactor*>;
    return all;
}

AcRxClass* editorClass()
{
    static AcRxClass* const made = newAcRxClass(L"AcEditor", AcRxEvent::desc());
    return made;
}

// The registry holds the editor from the start of the program.
[[maybe_unused]] const bool registered = [] {
    std::uint32_t id = 0;
    acrxSysRegistry()->atPut(ACED_EDITOR_OBJ, new AcEditor, id);
    return true;
}();
} // namespace

AcRxClass* AcEditor::desc()
{
    return editorClass();
}
AcRxClass* AcEditor::isA() const
{
    return editorClass();
}

AcEditor* AcEditor::cast(const AcRxObject* object)
{
    const bool fits = object && object->isKindOf(desc());
    return fits ? const_cast<AcEditor*>(static_cast<const AcEditor*>(object)) : nullptr;
}

void AcEditor::addReactor(AcEditorReactor* reactor)
{
    removeReactor(reactor);
    if (!reactor) return;
    reactors().push_back(reactor);
    AcRxEvent::addReactor(reactor);
}

void AcEditor::removeReactor(AcEditorReactor* reactor)
{
    reactors().erase(std::remove(reactors().begin(), reactors().end(), reactor), reactors().end());
    AcRxEvent::removeReactor(reactor);
}

Acad::ErrorStatus AcEditorReactor::veto()
{
    mVetoed = true;
    return Acad::eOk;
}

bool AcEditorReactor::takeVeto()
{
    return std::exchange(mVetoed, false);
}

namespace ed
{
void tellEditor(const std::function<void(AcEditorReactor&)>& event)
{
    const std::vector<AcEditorReactor*> some = reactors(); // a reactor may remove itself
    for (AcEditorReactor* reactor : some)
        event(*reactor);
}

bool askEditor(const std::function<void(AcEditorReactor&)>& event)
{
    bool vetoed = false;
    tellEditor([&](AcEditorReactor& reactor) {
        event(reactor);
        vetoed = reactor.takeVeto() || vetoed;
    });
    return !vetoed;
}
} // namespace ed
