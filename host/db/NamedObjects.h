#pragma once

#include "dbid.h"

/// Adds the named objects dictionary with the dictionaries that every drawing has; its id.
AcDbObjectId addNamedObjects(AcDbDatabase& database);
