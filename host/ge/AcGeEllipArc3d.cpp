#include "geell3d.h"

#include "DimensionNames.h"
#include "gearc3d.h"
#include "gelent3d.h"
#include "geline3d.h"
#include "geplane.h"
#include "PlaneMeet.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(3d)
} // namespace

#include "AcGeEllipArc.inl"

bool AcGeEllipArc3d::intersectWith(const AcGePlanarEnt& plane, int& numOfIntersect, AcGePoint3d& p1,
                                   AcGePoint3d& p2, const AcGeTol& tol) const
{
    AcGePlane own;
    getPlane(own);
    return meetPlane(form(), own, plane, tol, numOfIntersect, p1, p2);
}

void AcGeEllipArc3d::getPlane(AcGePlane& plane) const
{
    plane.set(mCenter, majorAxis(), minorAxis());
}

AcGeVector3d AcGeEllipArc3d::normal() const
{
    return unit(mMajor.crossProduct(mMinor));
}
