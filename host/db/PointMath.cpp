#include "acdbunits.h"
#include "acutmath.h"

#include "gelent3d.h"
#include "geline3d.h"
#include "gelnsg3d.h"
#include "PlanarCoords.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace
{
constexpr double fullTurn = 6.28318530717958647692;

AcGePoint3d pointOf(const ads_point point)
{
    return {point[X], point[Y], point[Z]};
}

std::unique_ptr<AcGeLinearEnt3d> linear(const AcGePoint3d& from, const AcGePoint3d& to, bool segment)
{
    if (segment) return std::make_unique<AcGeLineSeg3d>(from, to);
    return std::make_unique<AcGeLine3d>(from, to);
}
} // namespace

ads_real acutAngle(const ads_point from, const ads_point to)
{
    const double angle = std::atan2(to[Y] - from[Y], to[X] - from[X]);
    if (angle >= 0.0) return angle;
    const double turned = angle + fullTurn;
    return turned < fullTurn ? turned : 0.0;
}

ads_real acutDistance(const ads_point from, const ads_point to)
{
    return pointOf(from).distanceTo(pointOf(to));
}

void acutPolar(const ads_point from, ads_real angle, ads_real distance, ads_point result)
{
    const ads_point at = {from[X] + distance * std::cos(angle), from[Y] + distance * std::sin(angle),
                          from[Z]};
    ads_point_set(at, result);
}

int acdbInters(const ads_point from1, const ads_point to1, const ads_point from2, const ads_point to2,
               int onSegments, ads_point result)
{
    if (!from1 || !to1 || !from2 || !to2 || !result) return RTERROR;
    const AcGePoint3d p1 = pointOf(from1), p2 = pointOf(to1), q1 = pointOf(from2), q2 = pointOf(to2);
    if (!isFinite(p1) || !isFinite(p2) || !isFinite(q1) || !isFinite(q2) || p1 == p2 || q1 == q2)
        return RTERROR;
    // What a coordinate of that size can still tell apart.
    const double size = std::max({1.0, p1.distanceTo(p2), q1.distanceTo(q2), p1.distanceTo(q1)});
    AcGeTol tol = AcGeContext::gTol;
    tol.setEqualPoint(1e-10 * size);
    AcGePoint3d met;
    const bool segments = onSegments != 0;
    if (!linear(p1, p2, segments)->intersectWith(*linear(q1, q2, segments), met, tol)) return RTERROR;
    for (const int axis : {X, Y, Z})
        result[axis] = met[static_cast<unsigned>(axis)];
    return RTNORM;
}
