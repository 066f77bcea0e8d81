#include "PlaneMeet.h"

#include "CurveMeet.h"
#include "geline3d.h"

namespace gecore
{
bool meetPlane(const CurveForm& form, const AcGePlane& own, const AcGePlanarEnt& plane, const AcGeTol& tol,
               int& count, AcGePoint3d& p1, AcGePoint3d& p2)
{
    count = 0;
    AcGeLine3d line;
    if (!own.intersectWith(AcGePlane(plane.pointOnPlane(), plane.normal()), line, tol)) return false;
    const Meetings found = meet(line.form(), form, tol.equalPoint());
    for (std::size_t i = 0; i < found.points.size() && count < 2; ++i)
        if (plane.isOn(found.points[i].point, tol)) (count++ == 0 ? p1 : p2) = found.points[i].point;
    return count > 0;
}
} // namespace gecore
