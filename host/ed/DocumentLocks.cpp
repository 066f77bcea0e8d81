#include "DocumentLocks.h"

#include "DatabaseHooks.h"
#include "Documents.h"

#include <algorithm>

namespace
{
int rankOf(AcAp::DocLockMode mode)
{
    switch (mode) {
    case AcAp::kRead: return 1;
    case AcAp::kAutoWrite: return 2;
    case AcAp::kProtectedAutoWrite: return 3;
    case AcAp::kWrite: return 4;
    case AcAp::kXWrite: return 5;
    default: return 0;
    }
}

bool wants(locks::Whose wanted, bool mine)
{
    return wanted == locks::Whose::all || mine == (wanted == locks::Whose::mine);
}

/// Keeps others from writing, though they may read.
bool guardsAgainstWriting(AcAp::DocLockMode mode)
{
    return mode == AcAp::kRead || mode == AcAp::kProtectedAutoWrite;
}

/// eLockViolation for a write into a document that the executing context has not locked.
Acad::ErrorStatus gate(const AcDbDatabase& database)
{
    constexpr int objectsChanged = 1; // the bit of DBMOD
    AcApDocument* document = acDocManager->document(&database);
    if (!document) return Acad::eOk;
    if (!locks::allowsWriting(document->myLockMode())) return Acad::eLockViolation;
    DocumentAccess::of(*document).dbmod |= objectsChanged;
    return Acad::eOk;
}

[[maybe_unused]] const bool gateIsSet = (hooks::setDatabaseGate(gate), true);

/// Announces a change of the executing context's lock on a document. `change` makes it, `undo` takes it back when a
/// reactor vetoes afterwards.
class LockChange
{
public:
    LockChange(AcApDocument& document, std::wstring command)
        : mDocument(document), mCommand(std::move(command)), mBefore(document.myLockMode())
    {
    }

    bool vetoedBefore(AcAp::DocLockMode next) const
    {
        const bool vetoed = documents::askVeto([&](AcApDocManagerReactor& reactor) {
            reactor.documentLockModeWillChange(&mDocument, mBefore, next, mDocument.lockMode(true), mCommand.c_str());
        });
        return vetoed && tellVeto();
    }
    bool vetoedAfter() const
    {
        const bool vetoed = documents::askVeto([&](AcApDocManagerReactor& reactor) {
            reactor.documentLockModeChanged(&mDocument, mBefore, mDocument.myLockMode(), mDocument.lockMode(true),
                                            mCommand.c_str());
        });
        return vetoed && tellVeto();
    }

private:
    bool tellVeto() const
    {
        documents::tell([&](AcApDocManagerReactor& reactor) {
            reactor.documentLockModeChangeVetoed(&mDocument, mCommand.c_str());
        });
        return true;
    }

    AcApDocument& mDocument;
    std::wstring mCommand;
    AcAp::DocLockMode mBefore;
};

/// The newest lock of the executing context, or end.
std::vector<DocumentLock>::iterator newestOfMine(std::vector<DocumentLock>& all)
{
    const auto found = std::find_if(all.rbegin(), all.rend(), [](const DocumentLock& lock) {
        return lock.context == documents::executing();
    });
    return found == all.rend() ? all.end() : std::next(found).base();
}
} // namespace

namespace locks
{
AcAp::DocLockMode strongest(const std::vector<DocumentLock>& all, const AcApDocument* me, Whose wanted)
{
    AcAp::DocLockMode mode = AcAp::kNotLocked;
    for (const DocumentLock& lock : all) {
        if (wants(wanted, lock.context == me) && rankOf(lock.mode) > rankOf(mode)) mode = lock.mode;
    }
    return mode;
}

bool allowsWriting(AcAp::DocLockMode mode) { return rankOf(mode) > rankOf(AcAp::kRead); }
bool isLock(AcAp::DocLockMode mode) { return rankOf(mode) > 0; }

bool conflict(AcAp::DocLockMode one, AcAp::DocLockMode other)
{
    if (one == AcAp::kXWrite || other == AcAp::kXWrite) return true;
    return (guardsAgainstWriting(one) && allowsWriting(other)) || (guardsAgainstWriting(other) && allowsWriting(one));
}
} // namespace locks

Acad::ErrorStatus AcApDocManager::lockDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                               const ACHAR* globalCmdName, const ACHAR*, bool)
{
    DocumentState* state = documents::stateOf(document);
    if (!state) return Acad::eNoDocument;
    if (!locks::isLock(mode)) return Acad::eInvalidInput;
    const AcApDocument* me = documents::executing();
    for (const DocumentLock& lock : state->locks) {
        if (lock.context != me && locks::conflict(mode, lock.mode)) return Acad::eLockConflict;
    }
    const std::wstring command = globalCmdName ? globalCmdName : L"";
    const LockChange change(*document, command);
    if (change.vetoedBefore(mode)) return Acad::eVetoed;
    state->locks.push_back({me, mode, command});
    if (!change.vetoedAfter()) return Acad::eOk;
    state->locks.erase(newestOfMine(state->locks));
    return Acad::eVetoed;
}

Acad::ErrorStatus AcApDocManager::unlockDocument(AcApDocument* document)
{
    DocumentState* state = documents::stateOf(document);
    if (!state) return Acad::eNoDocument;
    const auto mine = newestOfMine(state->locks);
    if (mine == state->locks.end()) return Acad::eInvalidInput;
    const LockChange change(*document, L"#" + mine->command);
    state->locks.erase(mine);
    change.vetoedAfter(); // unlocking cannot be refused
    return Acad::eOk;
}
