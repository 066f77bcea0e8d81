#pragma once

/// What layers above the database decide: documents lock, and a database alone is always writable.

#include "dbobject.h"

namespace hooks
{
/// eOk, or eLockViolation while the database's document is not locked.
using DatabaseGate = Acad::ErrorStatus (*)(const AcDbDatabase& database);
void setDatabaseGate(DatabaseGate gate);

/// Whether a drawing may be changed.
Acad::ErrorStatus mayWrite(const AcDbDatabase* database);
/// Whether an object may be opened for write: the gate of its database, then its own (a locked layer: eOnLockedLayer).
Acad::ErrorStatus mayWrite(const AcDbObject& object);

/// What shows an entity as selected, or no longer so.
using Highlighter = void (*)(AcDbObjectId entity, bool on);
void setHighlighter(Highlighter highlighter);
void highlight(AcDbObjectId entity, bool on);
} // namespace hooks
