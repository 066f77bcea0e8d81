#pragma once

/// What an object tells its reactors, transient and persistent, and the reactors of its database.

#include "dbobject.h"

namespace notices
{
void openedForModify(AcDbObject& object);
/// Told when an open for write ends: modified, modifiedGraphics, modifiedXData, as they apply.
void changesOf(AcDbObject& object);
void appended(AcDbObject& object);
void unappended(AcDbObject& object);
void reappended(AcDbObject& object);
void modifyUndone(AcDbObject& object);
void erased(AcDbObject& object, bool erasing);
void cancelled(AcDbObject& object);
void closed(AcDbObject& object);
void copied(const AcDbObject& original, const AcDbObject& copy);
void goodbye(AcDbObject& object);
void goodbye(const AcDbDatabase& database);
/// `name` is that of the system variable.
void headerWillChange(const AcDbDatabase& database, const ACHAR* name);
void headerChanged(const AcDbDatabase& database, const ACHAR* name);
} // namespace notices
