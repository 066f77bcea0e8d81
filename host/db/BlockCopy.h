#pragma once

#include "dbblock.h"
#include "dbidmap.h"

/// Adds copies of the living entities of a block to another one of the same drawing, in their order: with vertices,
/// attributes, extended data and extension dictionaries. The map tells which copy each has. eSelfReference when the
/// block shows the other one; the statuses of acdbOpenObject for that one.
Acad::ErrorStatus copyEntities(const AcDbBlockTableRecord& from, AcDbBlockTableRecord& to, AcDbIdMapping& map);
