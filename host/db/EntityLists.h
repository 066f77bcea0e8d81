#pragma once

/// What the list functions share.

#include "ResbufSink.h"
#include "dbobject.h"

AcDbDatabase* workingDatabase();

/// The object of a name, null for none.
AcDbObjectId idOf(const ads_name name);
int giveName(AcDbObjectId id, ads_name result);

/// All groups of an open object, from its name (-1) to the last before the extended data.
ResbufList listOf(const AcDbObject& object);

/// The node of the extended data (-3) in a list; null without.
const resbuf* xdataOf(const resbuf* list);
/// Whether a list that begins so can be the extended data of an object.
bool isXData(const resbuf* list, AcDbDatabase& database);
/// The text of group 0; null without.
const ACHAR* kindOf(const resbuf* list);
