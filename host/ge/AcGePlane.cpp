#include "geplane.h"

#include "gebndpln.h"
#include "geline3d.h"
#include "gelnsg3d.h"

const AcGePlane AcGePlane::kXYPlane({0, 0, 0}, AcGeVector3d{1, 0, 0}, AcGeVector3d{0, 1, 0});
const AcGePlane AcGePlane::kYZPlane({0, 0, 0}, AcGeVector3d{0, 1, 0}, AcGeVector3d{0, 0, 1});
const AcGePlane AcGePlane::kZXPlane({0, 0, 0}, AcGeVector3d{0, 0, 1}, AcGeVector3d{1, 0, 0});

AcGePlane::AcGePlane() : AcGePlanarEnt({0, 0, 0}, {1, 0, 0}, {0, 1, 0}) {}

bool AcGePlane::intersectWith(const AcGePlane& otherPln, AcGeLine3d& resultLine, const AcGeTol& tol) const
{
    if (isParallelTo(otherPln, tol)) return false;
    const AcGeVector3d n = normal(), along = n.crossProduct(otherPln.normal());
    const AcGeVector3d towards = along.crossProduct(n);
    const double reach = -otherPln.signedDistanceTo(mOrigin) / towards.dotProduct(otherPln.normal());
    resultLine.set(mOrigin + towards * reach, along);
    return true;
}

bool AcGePlane::intersectWith(const AcGeBoundedPlane& bndPln, AcGeLineSeg3d& resultLineSeg,
                              const AcGeTol& tol) const
{
    return bndPln.intersectWith(*this, resultLineSeg, tol);
}

AcGePlane& AcGePlane::set(const AcGePoint3d& pnt, const AcGeVector3d& normal)
{
    mOrigin = pnt;
    mU = normal.perpVector();
    const AcGeVector3d up = normal.crossProduct(mU);
    const double size = up.length();
    mV = size > 0 ? up / size : up;
    return *this;
}

AcGePlane& AcGePlane::set(const AcGePoint3d& pntU, const AcGePoint3d& org, const AcGePoint3d& pntV)
{
    return *this = AcGePlane(pntU, org, pntV);
}

AcGePlane& AcGePlane::set(double a, double b, double c, double d)
{
    const AcGeVector3d n(a, b, c);
    const double size = n.lengthSqrd();
    return set(size > 0 ? AcGePoint3d::kOrigin - n * (d / size) : AcGePoint3d::kOrigin, n);
}

AcGePlane& AcGePlane::set(const AcGePoint3d& org, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis)
{
    return *this = AcGePlane(org, uAxis, vAxis);
}
