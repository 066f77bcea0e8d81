#pragma once

#include "dbidar.h"
#include "GridOrder.h"

/// What a grid became.
struct DrawnGrid {
    AcDbObjectIdArray axes; ///< lines, of an axis that bends two
    AcDbObjectIdArray bubbles, labels, dimensions;
    AcDbObjectId outline; ///< a region
    AcDbObjectId area;    ///< the text in it, or below the bubbles where it has no room
    AcDbObjectId frame;   ///< around a text in the outline, an island of the hatch; else null
    AcDbObjectId hatch;   ///< null when none was asked for
    double areaInSquareMetres = 0.0;

    /// The area as it is written: two decimals, six where it is less than a square metre.
    CString areaText() const;
};

/// Draws the grid into the current space: layers and styles, axes, bubbles and labels, the outline as a
/// region with its area, its hatch, the dimensions. What is current in the drawing (layer, colour, style,
/// coordinate system ...) is as it was afterwards. False, and the drawing as it was, when a step fails.
bool drawGrid(const GridOrder& order, DrawnGrid& drawn);
