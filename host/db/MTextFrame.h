#pragma once

/// What the parts of AcDbMText share about its drawing.

#include "dbcolor.h"
#include "gemat3d.h"

namespace mtext
{
/// The colour of characters that no code has given one.
constexpr int ownColor = AcCmEntityColor::kACInone;

/// The corners of a box, counter-clockwise from its lower left.
inline void mapBox(const AcGePoint2d& min, const AcGePoint2d& max, const AcGeMatrix3d& map,
                   AcGePoint3d (&corners)[4])
{
    corners[0] = map * AcGePoint3d(min.x, min.y, 0.0);
    corners[1] = map * AcGePoint3d(max.x, min.y, 0.0);
    corners[2] = map * AcGePoint3d(max.x, max.y, 0.0);
    corners[3] = map * AcGePoint3d(min.x, max.y, 0.0);
}
} // namespace mtext
