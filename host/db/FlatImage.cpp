#include "FlatImage.h"

#include "gearc3d.h"
#include "geell3d.h"
#include "gelnsg3d.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;

/// The curve seen from its edge: the segment between its outermost points along the edge.
std::unique_ptr<AcGeCurve3d> edgeOf(const AcGeEllipArc3d& arc, const AcGeMatrix3d& project)
{
    const AcGeVector3d u = project * (arc.majorRadius() * arc.majorAxis());
    const AcGeVector3d v = project * (arc.minorRadius() * arc.minorAxis());
    const AcGeVector3d along = u.length() >= v.length() ? u.normal() : v.normal();
    if (along.isZeroLength()) return nullptr;
    double params[] = {arc.startAng(), arc.endAng(), 0.0, 0.0};
    int count = 2;
    const double turning = std::atan2(v.dotProduct(along), u.dotProduct(along));
    for (double at = turning + pi * std::ceil((arc.startAng() - turning) / pi);
         at < arc.endAng() && count < 4; at += pi)
        params[count++] = at;
    AcGePoint3d low = project * arc.evalPoint(params[0]), high = low;
    for (int i = 1; i < count; ++i) {
        const AcGePoint3d p = project * arc.evalPoint(params[i]);
        if ((p - low).dotProduct(along) < 0.0) low = p;
        if ((p - high).dotProduct(along) > 0.0) high = p;
    }
    return std::make_unique<AcGeLineSeg3d>(low, high);
}
} // namespace

std::unique_ptr<AcGeCurve3d> flatImage(const AcGeCurve3d& curve, const AcGePlane& plane,
                                       const AcGeVector3d& direction)
{
    std::unique_ptr<AcGeEntity3d> image(curve.project(plane, direction));
    if (image && image->isKindOf(AcGe::kCurve3d))
        return std::unique_ptr<AcGeCurve3d>(static_cast<AcGeCurve3d*>(image.release()));
    const AcGeMatrix3d project = AcGeMatrix3d::projection(plane, direction);
    if (curve.isKindOf(AcGe::kCircArc3d)) return edgeOf(static_cast<const AcGeCircArc3d&>(curve), project);
    if (curve.isKindOf(AcGe::kEllipArc3d)) return edgeOf(static_cast<const AcGeEllipArc3d&>(curve), project);
    return nullptr;
}

std::unique_ptr<AcGeCurve3d> flatImage(const AcGeCurve3d& curve, const AcGePlane& plane)
{
    return flatImage(curve, plane, plane.normal());
}
