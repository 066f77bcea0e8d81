#pragma once

/// Arrays of object ids.

#include "acarray.h"
#include "dbid.h"

using AcDbObjectIdArray = AcArray<AcDbObjectId>;
