#pragma once

#include "GridOrder.h"

/// What the command proposes for the current drawing: a grid in the unit that INSUNITS names (millimetres
/// when it names none), with bays of whole modules of 300 mm, or of a foot, at its proposed origin. Where
/// that would be lost in the drawing or dwarf it, a power of ten brings it close: in a drawing without a unit
/// the unit, in others bays and scale.
GridOrder proposedOrder();

/// Where the grid, turned as it is, lies to the right of all that is drawn, as the user sees it: along the
/// axes of the user coordinate system. Its origin while nothing is drawn.
AcGePoint3d proposedOrigin(const GridOrder& order);
