#pragma once

#include "gept3dar.h"

namespace entity
{
/// How the input of a polyline ended.
enum class DrawnEnd { done, closed, cancelled };

/// The points that the user gives for a polyline, in the current user coordinate system at the height of the
/// first.
struct DrawnPoints {
    AcGePoint3dArray points;
    DrawnEnd end = DrawnEnd::cancelled;
};

/// Asks for a first point and further ones: at each a band runs to the cursor, and what is drawn so far is
/// shown. The keywords Undo and Close do what they say; Close is a keyword from the third point on. Enter
/// ends the input, Esc drops it; without a first point it is cancelled.
DrawnPoints askPolyline();

/// The same with two bands, from the last point and from the first; it ends with three points at least, or
/// cancelled.
DrawnPoints askArea();

/// Draws lines through points of the current user coordinate system on the screen until the next redraw.
/// False, and nothing drawn, for a colour that is none of the screen's.
bool showLines(const AcGePoint3dArray& points, int color, bool closed);
} // namespace entity
