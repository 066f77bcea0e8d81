#pragma once

/// The boxes of entities that a map takes elsewhere, as blocks and dimensions do with theirs.

#include "dbentity.h"
#include "dbextent.h"

/// Whether extents hold something along every axis, and not everything.
bool isBox(const AcDbExtents& extents);

/// The box of an entity after `map`, which may scale and shear as it likes. It is tight except for the few
/// entities that such a map cannot keep (leaders and regions askew): of those it is the box of their mapped
/// box. Returns false, and leaves `extents`, for an entity that has none.
bool mappedExtents(const AcDbEntity& entity, const AcGeMatrix3d& map, AcDbExtents& extents);
