#pragma once

/// Draws the entities of a space on a canvas.

#include "ViewGeometry.h"
#include "dbextent.h"

class AcDbBlockTableRecord;
class AcDbEntity;

namespace plot
{
/// The entities of a block that are not erased or invisible, the lowest first.
std::vector<const AcDbEntity*> shownEntities(const AcDbBlockTableRecord& block);

/// The box around them in the world; empty when nothing has a finite extent. What is on layers that are off or frozen
/// does not count.
AcDbExtents shownExtents(const AcDbBlockTableRecord& block, PlotStyles& styles);

/// Draws a block's entities as a view sees them, `frozen` layers left out. The canvas has begun its page.
void drawBlock(Canvas& canvas, PlotStyles& styles, const AcDbBlockTableRecord& block, const View& view,
               const LayerSet& frozen = {});
} // namespace plot
