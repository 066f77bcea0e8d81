#pragma once

/// The paper of a plot, and which part of the drawing is on it.

#include "Canvas.h"
#include "dbextent.h"

class AcDbLayout;

namespace plot
{
struct Paper {
    double width = 0, height = 0; ///< millimetres
    double left = 0, bottom = 0, right = 0, top = 0; ///< margins that a plotter cannot reach, millimetres
};

/// The window grown to the paper's proportions, its own content in the middle of what the margins leave; a box without
/// an extent becomes one of its own size or of 1.
AcDbExtents2d windowOn(const Paper& paper, const AcDbExtents2d& content);

/// A4, upright or lying as the content is, with margins of 10 mm.
Paper paperFor(const AcDbExtents2d& content);

/// The paper of a layout, turned as its plot is; of no size when the layout has none.
Paper paperOf(const AcDbLayout& layout);

/// The part of a layout's space that its paper shows: as its plot type and scale say. `extents` is the box around the
/// space's entities.
AcDbExtents2d windowOf(const AcDbLayout& layout, const Paper& paper, const AcDbExtents2d& extents);
} // namespace plot
