#include "UndoSteps.h"

#include "actrans.h"
#include "CommandLine.h"
#include "DatabaseState.h"
#include "Documents.h"
#include "UndoRecording.h"

#include <algorithm>

namespace
{
/// Null without a document.
AcDbDatabase* databaseOf(const AcApDocument* document)
{
    const DocumentState* state = documents::stateOf(document);
    return state ? state->database.get() : nullptr;
}

bool runsNoCommand(const AcApDocument* document)
{
    const auto& active = documents::stateOf(document)->commands;
    return std::all_of(active.begin(), active.end(), [](const ed::ActiveCommand& one) { return one.lisp; });
}

int activeTransactions(AcDbDatabase& database)
{
    const auto& transactions = DatabaseAccess::of(database).transactions;
    return transactions ? transactions->numActiveTransactions() : 0;
}

void abortTransactions(AcDbDatabase& database, int downTo)
{
    if (activeTransactions(database) <= downTo) return;
    ed::print(L"Transactions that were still open at the end of the command have been aborted.\n");
    while (activeTransactions(database) > downTo)
        database.transactionManager()->abortTransaction();
}
} // namespace

namespace ed
{
CommandStep::CommandStep(AcApDocument* document, const AcEdCommand& command)
    : mDocument(document), mIsStep(!(command.commandFlags() & ACRX_CMD_NO_UNDO_MARKER) && runsNoCommand(document)),
      mTransactionsBefore(activeTransactions(*databaseOf(document)))
{
    if (mIsStep) undo::historyOf(*databaseOf(document)).beginStep(command.globalName());
}

CommandStep::~CommandStep()
{
    AcDbDatabase* database = databaseOf(mDocument);
    if (!database) return; // the command has closed its document
    abortTransactions(*database, mTransactionsBefore);
    if (mIsStep) undo::historyOf(*database).endStep();
}

OtherStep::OtherStep(const std::wstring& name) : mDocument(acDocManager->curDocument())
{
    AcDbDatabase* database = databaseOf(mDocument);
    const bool isOutermost = database && documents::stateOf(mDocument)->commands.empty();
    if (isOutermost)
        undo::historyOf(*database).separate(name.c_str());
    else
        mDocument = nullptr;
}

OtherStep::~OtherStep()
{
    AcDbDatabase* database = databaseOf(mDocument);
    if (!database) return;
    if (mCounts) undo::historyOf(*database).endStep();
    undo::historyOf(*database).separate(L"");
}
} // namespace ed
