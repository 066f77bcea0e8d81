#pragma once

#include "AxisGrid.h"
#include "gepnt3d.h"

/// What the user wants: the grid, where it lies and how it looks.
struct GridOrder {
    AxisGrid grid;
    AcGePoint3d origin;               ///< in the user coordinate system
    double rotation = 0.0;            ///< radians from the X axis of the user coordinate system
    double unit = 1.0;                ///< drawing units for a millimetre on the site
    double scale = 200.0;             ///< millimetres on the site for one on paper
    CString hatchPattern = L"ANSI31"; ///< empty: no hatch
    bool hasCoordinates = true;       ///< ordinate dimensions of the axes

    /// Drawing units for a millimetre on paper.
    double paperUnit() const { return unit * scale; }
};

/// Asks for everything at the command line; Enter takes what stands in angle brackets: what the order holds.
/// The rotation brings a new proposal for the origin. False when the user cancels.
bool askGridOrder(GridOrder& order);
