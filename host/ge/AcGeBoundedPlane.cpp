#include "gebndpln.h"

#include "geline3d.h"
#include "gelnsg3d.h"
#include "geplane.h"

#include <algorithm>

namespace
{
/// The range of t in which from + t * step stays within 0..1, cut from [lo, hi]; false when nothing is left.
bool clip(double from, double step, double slack, double& lo, double& hi)
{
    if (step == 0) return from >= -slack && from <= 1 + slack;
    const double a = (-slack - from) / step, b = (1 + slack - from) / step;
    lo = std::max(lo, std::min(a, b));
    hi = std::min(hi, std::max(a, b));
    return lo <= hi;
}

bool segmentOf(const AcGePoint3d& start, const AcGePoint3d& end, const AcGeTol& tol, AcGeLineSeg3d& result)
{
    if (start.isEqualTo(end, tol)) return false;
    result.set(start, end);
    return true;
}
} // namespace

AcGeBoundedPlane::AcGeBoundedPlane() : AcGePlanarEnt({0, 0, 0}, {1, 0, 0}, {0, 1, 0}) {}

AcGePoint2d AcGeBoundedPlane::paramOf(const AcGePoint3d& pnt, const AcGeTol& tol) const
{
    const AcGePoint2d free = AcGePlanarEnt::paramOf(pnt, tol);
    if (free.x >= 0 && free.x <= 1 && free.y >= 0 && free.y <= 1) return free;
    AcGePoint2d best;
    double bestDistance = -1;
    const auto tryEdge = [&](const AcGePoint2d& from, const AcGeVector2d& along, const AcGeVector3d& edge) {
        const double size = edge.lengthSqrd();
        const double t = size > 0 ? (pnt - evalPoint(from)).dotProduct(edge) / size : 0;
        const AcGePoint2d at = from + along * std::clamp(t, 0.0, 1.0);
        const double distance = evalPoint(at).distanceTo(pnt);
        if (bestDistance >= 0 && !(distance < bestDistance)) return;
        best = at;
        bestDistance = distance;
    };
    tryEdge({0, 0}, {1, 0}, mU);
    tryEdge({0, 1}, {1, 0}, mU);
    tryEdge({0, 0}, {0, 1}, mV);
    tryEdge({1, 0}, {0, 1}, mV);
    return best;
}

bool AcGeBoundedPlane::intersectWith(const AcGePlane& plane, AcGeLineSeg3d& results, const AcGeTol& tol) const
{
    AcGeLine3d line;
    if (!AcGePlane(mOrigin, mU, mV).intersectWith(plane, line, tol)) return false;
    const AcGePoint3d on = line.pointOnLine();
    const AcGePoint2d from = AcGePlanarEnt::paramOf(on), to = AcGePlanarEnt::paramOf(on + line.direction());
    double lo = -HUGE_VAL, hi = HUGE_VAL;
    if (!clip(from.x, to.x - from.x, tol.equalPoint() / mU.length(), lo, hi)) return false;
    if (!clip(from.y, to.y - from.y, tol.equalPoint() / mV.length(), lo, hi)) return false;
    return segmentOf(on + line.direction() * lo, on + line.direction() * hi, tol, results);
}

bool AcGeBoundedPlane::intersectWith(const AcGeBoundedPlane& plane, AcGeLineSeg3d& result,
                                     const AcGeTol& tol) const
{
    AcGeLineSeg3d mine, theirs;
    if (!intersectWith(AcGePlane(plane.mOrigin, plane.mU, plane.mV), mine, tol)) return false;
    if (!plane.intersectWith(AcGePlane(mOrigin, mU, mV), theirs, tol)) return false;
    const AcGeVector3d along = mine.direction();
    const AcGePoint3d on = mine.startPoint();
    const double a = (theirs.startPoint() - on).dotProduct(along),
                 b = (theirs.endPoint() - on).dotProduct(along);
    const double lo = std::max(0.0, std::min(a, b)), hi = std::min(mine.length(), std::max(a, b));
    return lo <= hi && segmentOf(on + along * lo, on + along * hi, tol, result);
}

AcGeBoundedPlane& AcGeBoundedPlane::set(const AcGePoint3d& origin, const AcGeVector3d& uVec,
                                        const AcGeVector3d& vVec)
{
    return *this = AcGeBoundedPlane(origin, uVec, vVec);
}

AcGeBoundedPlane& AcGeBoundedPlane::set(const AcGePoint3d& p1, const AcGePoint3d& origin,
                                        const AcGePoint3d& p2)
{
    return *this = AcGeBoundedPlane(p1, origin, p2);
}
