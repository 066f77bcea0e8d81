#pragma once

/// The current user coordinate system of the current document.

#include "CurrentUcs.h"
#include "acadstrc.h"

#include <atlstr.h>

namespace ed
{
/// Makes a system current in the space one works in, under its name in the UCS table (empty: it has none).
/// The viewport keeps it, and turns to its plan when it follows the UCS. eNoDocument; eInvalidInput unless
/// the axes have a length, are perpendicular and right-handed.
Acad::ErrorStatus setUcs(AcGeMatrix3d ucsToWorld, const CString& name);
} // namespace ed
