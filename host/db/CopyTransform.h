#pragma once

#include "acadstrc.h"
#include "dbid.h"
#include "gemat3d.h"

#include <vector>

/// Whether entities can be transformed; proxies, which stay as they are, do not count. eCannotScaleNonUniformly.
Acad::ErrorStatus mayTransformAll(const std::vector<AcDbObjectId>& entities, const AcGeMatrix3d& xform);
/// Transforms entities that have just been copied, on locked layers too.
void transformAll(const std::vector<AcDbObjectId>& entities, const AcGeMatrix3d& xform);
