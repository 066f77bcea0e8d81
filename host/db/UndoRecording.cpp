#include "UndoRecording.h"

#include "DatabaseState.h"
#include "DbObjectAccess.h"
#include "SymbolTableAccess.h"

#include <utility>

namespace
{
/// The order of the records of a symbol table.
class OrderEdit final : public UndoEdit
{
public:
    explicit OrderEdit(AcDbSymbolTable& table) : mTable(table), mIds(table.recordIds()) {}
    void exchange(AcDbDatabase&) override { SymbolTableAccess::swapIds(mTable, mIds); }

private:
    AcDbSymbolTable& mTable;
    std::vector<AcDbObjectId> mIds;
};

/// The journal that an object's change belongs to; null when the object is new in it.
UndoJournal* journalFor(AcDbObjectId id)
{
    UndoJournal* journal = undo::recorder(id.database());
    const AcDbStub* stub = id;
    return journal && !journal->isNew(*stub) ? journal : nullptr;
}

void add(UndoJournal& journal, std::unique_ptr<ObjectEdit> edit, DbObjectExtras& extras)
{
    if (!edit || extras.undoEpoch == journal.epoch()) return;
    journal.add(std::move(edit));
    extras.undoEpoch = journal.epoch();
}
} // namespace

UndoHistory& undo::historyOf(AcDbDatabase& database)
{
    DatabaseState& state = DatabaseAccess::of(database);
    if (!state.history) state.history = std::make_unique<UndoHistory>(database);
    return *state.history;
}

UndoJournal* undo::recorder(const AcDbDatabase* database)
{
    UndoHistory* history = database ? DatabaseAccess::of(*database).history.get() : nullptr;
    return history && history->journal().isRecording() ? &history->journal() : nullptr;
}

void undo::handOver(AcDbObject& object, DbObjectExtras& extras)
{
    UndoJournal* journal = journalFor(object.objectId());
    if (journal && !DbObjectAccess::isUndoOff(object)) {
        add(*journal, std::move(extras.before), extras);
        for (std::unique_ptr<UndoEdit>& edit : extras.edits)
            journal->add(std::move(edit));
    }
    extras.before.reset();
    extras.edits.clear();
}

void undo::willChange(AcDbObject& object)
{
    UndoJournal* journal = journalFor(object.objectId());
    if (!journal) return;
    DbObjectExtras& extras = DbObjectAccess::needExtras(object);
    // The state of an opening that is not over yet is older, and comes when it ends.
    if (!extras.before && extras.undoEpoch != journal->epoch())
        add(*journal, std::make_unique<ObjectEdit>(object), extras);
}

void undo::willErase(AcDbObjectId id)
{
    if (UndoJournal* journal = journalFor(id))
        journal->add(std::make_unique<EraseEdit>(*static_cast<AcDbStub*>(id)));
}

void undo::willReorder(AcDbSymbolTable& table)
{
    if (UndoJournal* journal = journalFor(table.objectId())) journal->add(std::make_unique<OrderEdit>(table));
}

void AcDbDatabase::disableUndoRecording(bool disable)
{
    undo::historyOf(*this).journal().enable(!disable);
}

bool AcDbDatabase::undoRecording() const
{
    return mState->history && mState->history->journal().isEnabled();
}

void AcDbDatabase::startUndoRecord()
{
    undo::historyOf(*this).separate(L"");
}

Acad::ErrorStatus AcDbDatabase::undo()
{
    UndoHistory& history = undo::historyOf(*this);
    if (history.journal().isHeld()) return Acad::eUndoOperationNotAvailable;
    return history.undo(1, [](const UndoEntry&) {}) ? Acad::eOk : Acad::eUndoOperationNotAvailable;
}
