#pragma once

/// Records of symbol tables by the groups that name them.

#include "dbid.h"

#include <string_view>

constexpr int layerNameCode = 8;

/// The table whose records a group of entities names: line types (6), text styles (7), layers (8 and 1003), blocks
/// (2), dimension styles (3), applications (1001); null for other groups.
AcDbObjectId tableNamedBy(const AcDbDatabase& database, int code);

/// The record of a name that a group gives in UTF-8; null when the table has none.
AcDbObjectId recordNamed(const AcDbDatabase& database, int code, std::string_view name);

/// A new layer with default properties; null for a name that no layer may have.
AcDbObjectId addLayer(AcDbDatabase& database, std::string_view name);
