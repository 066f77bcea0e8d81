#pragma once

#include "CArxUtils.h"
#include "dbentity.h"

#include <afxwin.h>

/// What the newer services do with the drawing as a whole.
class AFX_EXT_CLASS CArxUtils::CDatabase
{
public:
    /// Appends a new entity to the current space of the working database. 1: the entity is the drawing's,
    /// open for write, and the caller closes it. 0: the entity is still the caller's, who deletes it, and
    /// `id` is unchanged; for null, for an entity that is in a drawing already, without a working database,
    /// and when the space cannot be opened for write (its document is not locked; somebody has it open).
    static int AddToDb(AcDbEntity* entity, AcDbObjectId& id);
};
