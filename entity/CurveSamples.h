#pragma once

#include "dbcurve.h"
#include "gept3dar.h"

namespace entity
{
/// Appends points along a bounded curve, from its start to its end, whose chords are no further from it than
/// a thousandth of its size. False, and nothing is appended, for a curve that has no such form.
bool sampleCurve(const AcDbCurve& curve, AcGePoint3dArray& points);
} // namespace entity
