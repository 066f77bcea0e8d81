#pragma once

/// What an object tells its reactors, transient and persistent, and the reactors of its database.

#include "dbobject.h"

namespace notices
{
void openedForModify(AcDbObject& object);
/// Told when an open for write ends: modified, modifiedGraphics, modifiedXData, as they apply.
void changesOf(AcDbObject& object);
void erased(AcDbObject& object, bool erasing);
void cancelled(AcDbObject& object);
void closed(AcDbObject& object);
void copied(const AcDbObject& original, const AcDbObject& copy);
void goodbye(AcDbObject& object);
} // namespace notices
