#pragma once

#include "AxisGrid.h"
#include "gepnt3d.h"

/// What the user wants: the grid, where it lies and how it looks.
struct GridOrder {
    AxisGrid grid;
    AcGePoint3d origin;    ///< in the user coordinate system
    double rotation = 0.0; ///< radians from the X axis of the user coordinate system
    double unit = 1.0;     ///< drawing units for a millimetre on the site
    double scale = 200.0;  ///< millimetres on the site for one on paper
    CString hatchPattern = L"ANSI31"; ///< empty: no hatch
    bool hasCoordinates = true;       ///< ordinate dimensions of the axes

    /// Drawing units for a millimetre on paper.
    double paperUnit() const { return unit * scale; }
};

/// What the command proposes for the current drawing: a grid to the right of all that is there, in the unit that
/// INSUNITS names (millimetres when it names none), with bays of whole modules of 300 mm, or of a foot. Where that
/// would be lost in the drawing or dwarf it, a power of ten brings it close: in a drawing without a unit the unit, in
/// others bays and scale.
GridOrder proposedOrder();

/// Asks for everything at the command line; Enter takes what stands in angle brackets: what the order
/// holds. False when the user cancels.
bool askGridOrder(GridOrder& order);
