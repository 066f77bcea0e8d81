#pragma once

#include "dbidar.h"
#include "dbobject.h"

#include <vector>

/// The living objects among some ids, each once. eWrongDatabase when one is of another drawing.
Acad::ErrorStatus collectLiving(const AcDbDatabase& database, const AcDbObjectIdArray& ids,
                                std::vector<AcDbObjectId>& living);

/// Whether an object may become one of an owner: entities of blocks, records of their table, other objects of
/// dictionaries. eInvalidOwnerObject; eNotAnEntity for what no block takes, vertices and marks too.
Acad::ErrorStatus checkOwner(const AcDbObject& object, AcDbObjectId owner);
