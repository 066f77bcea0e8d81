#pragma once

/// How changes reach the undo journal of their drawing.

#include "UndoHistory.h"

class AcDbSymbolTable;
struct DbObjectExtras;

namespace undo
{
/// The steps of a drawing, made when there are none yet.
UndoHistory& historyOf(AcDbDatabase& database);
/// The journal that records the changes of a drawing now; null while nothing is recorded.
UndoJournal* recorder(const AcDbDatabase* database);

/// An opening for write ends: what it changed goes to the journal.
void handOver(AcDbObject& object, DbObjectExtras& extras);

// For code that changes objects which it does not open. Each is called before the change.

void willChange(AcDbObject& object);
void willErase(AcDbObjectId id);
/// Of a symbol table whose records will stand in another order.
void willReorder(AcDbSymbolTable& table);
} // namespace undo
