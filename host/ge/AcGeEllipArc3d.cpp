#include "geell3d.h"

#include "DimensionNames.h"
#include "gearc3d.h"
#include "gelent3d.h"
#include "geline3d.h"
#include "geplane.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(3d)
using CircArc = AcGeCircArc3d;
using EllipArc = AcGeEllipArc3d;
using LinearEnt = AcGeLinearEnt3d;
} // namespace

#include "AcGeEllipArc.inl"

bool AcGeEllipArc3d::intersectWith(const AcGePlanarEnt& plane, int& numOfIntersect, AcGePoint3d& p1,
                                   AcGePoint3d& p2, const AcGeTol& tol) const
{
    numOfIntersect = 0;
    AcGePlane mine;
    AcGeLine3d line;
    getPlane(mine);
    if (!mine.intersectWith(AcGePlane(plane.pointOnPlane(), plane.normal()), line, tol)) return false;
    const Meetings found = meet(line.form(), form(), tol.equalPoint());
    for (std::size_t i = 0; i < found.points.size() && numOfIntersect < 2; ++i)
        if (plane.isOn(found.points[i].point, tol)) (numOfIntersect++ == 0 ? p1 : p2) = found.points[i].point;
    return numOfIntersect > 0;
}

void AcGeEllipArc3d::getPlane(AcGePlane& plane) const
{
    plane.set(mCenter, majorAxis(), minorAxis());
}

AcGeVector3d AcGeEllipArc3d::normal() const
{
    return unit(mMajor.crossProduct(mMinor));
}
