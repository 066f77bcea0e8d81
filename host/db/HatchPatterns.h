#pragma once

/// The standard hatch patterns, in millimetres.

#include "dbhatchloop.h"

namespace hatch
{
/// The lines of a pattern as it is defined, at scale 1 about the origin; null for a name that is not known.
/// Names are compared without regard to case. SOLID has no lines.
const std::vector<PatternLine>* standardPattern(const CString& name);
/// Parallel lines at a distance, and with `isDouble` others across them.
std::vector<PatternLine> userPattern(double space, bool isDouble);
} // namespace hatch
