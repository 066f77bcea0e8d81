#pragma once

/// The plane in which the user selects: that of the display, seen in parallel rays.

#include "gemat3d.h"
#include "gepnt2d.h"

class AcDbViewport;

namespace ed
{
struct SelectionView {
    AcGeMatrix3d toPlane;                 ///< from the world to display coordinates
    AcGeVector3d direction;               ///< from the target to the eye, in the world
    double pickRadius = 0.0;              ///< half the side of the pick box
    const AcDbViewport* window = nullptr; ///< of a layout onto model space

    AcGePoint2d place(const AcGePoint3d& world) const
    {
        const AcGePoint3d placed = toPlane * world;
        return {placed.x, placed.y};
    }
    /// The point of the plane through the target, in the world.
    AcGePoint3d raise(const AcGePoint2d& placed) const;
    bool isPlan() const { return direction.isCodirectionalTo(AcGeVector3d::kZAxis); }
};

/// That of the active viewport.
SelectionView selectionView();
} // namespace ed
