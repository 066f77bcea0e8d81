#pragma once

/// The user coordinate system of the current space.

#include "gemat3d.h"

namespace ed
{
/// The map from the current UCS to the world; the identity without a document.
AcGeMatrix3d ucsToWorld();
} // namespace ed
