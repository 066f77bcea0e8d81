#pragma once

#include "CArxUtils.h"
#include "dbentity.h"

#include <afxwin.h>

/// Between the current user coordinate system and the world.
class AFX_EXT_CLASS CArxUtils::CUcsWcs
{
public:
    /// Moves an entity whose coordinates are those of the current user coordinate system to where that lies
    /// in the world. `database` is the drawing whose system counts, null: the working one. 1, also when the
    /// two systems are the same; 0, and the entity unchanged, for null, without a drawing, for an entity that
    /// is not open for write, and when it refuses the map.
    static int UcsToWcs(AcDbEntity* entity, AcDbDatabase* database = nullptr);
};
