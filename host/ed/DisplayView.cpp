#include "DisplayView.h"

namespace ed
{
AcGeMatrix3d parallelToWorld(const DisplayView& view)
{
    return AcGeMatrix3d::rotation(-view.twist, view.direction, view.target) *
           AcGeMatrix3d::translation(view.target.asVector()) * AcGeMatrix3d::planeToWorld(view.direction);
}

AcGeMatrix3d displayToWorld(const DisplayView& view)
{
    if (!view.isPerspective) return parallelToWorld(view);
    // The inverse of x / (1 - z / d), which is x / (1 + z / d).
    AcGeMatrix3d fromProjected;
    fromProjected.entry[3][2] = 1.0 / view.direction.length();
    return parallelToWorld(view) * fromProjected;
}

void turnToPlan(DisplayView& view, const AcGeMatrix3d& system)
{
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    system.getCoordSystem(origin, x, y, z);
    const AcGeVector3d untwisted = AcGeMatrix3d::planeToWorld(z) * AcGeVector3d::kXAxis;
    view.direction = z * view.direction.length();
    view.twist = x.angleTo(untwisted, z);
    view.isPerspective = false;
}
} // namespace ed
