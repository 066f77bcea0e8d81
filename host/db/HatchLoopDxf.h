#pragma once

/// Loops of hatches as groups.

#include "dbhatchloop.h"
#include "DxfGroup.h"

namespace hatch
{
/// The groups from 92 on, as far as they belong to the loop.
Loop readLoop(DxfSource& source);
void writeLoop(const Loop& loop, DxfSink& sink);
/// Groups `code` and `code` + 10, which need not follow.
AcGePoint2d takePoint(DxfSource& source, int code);
} // namespace hatch
