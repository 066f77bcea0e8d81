#include "gepnt3d.h"

#include "gemat3d.h"
#include "geplane.h"

const AcGePoint3d AcGePoint3d::kOrigin{0, 0, 0};

AcGePoint3d::AcGePoint3d(const AcGePlanarEnt& plane, const AcGePoint2d& pnt)
{
    set(plane, pnt);
}

AcGePoint3d& AcGePoint3d::setToProduct(const AcGeMatrix3d& matrix, const AcGePoint3d& pnt)
{
    return *this = matrix * pnt;
}

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& matrix)
{
    return *this = matrix * *this;
}

AcGePoint3d& AcGePoint3d::rotateBy(double angle, const AcGeVector3d& vec, const AcGePoint3d& wrtPoint)
{
    return *this = wrtPoint + (*this - wrtPoint).rotateBy(angle, vec);
}

AcGePoint3d& AcGePoint3d::mirror(const AcGePlane& plane)
{
    return *this -= plane.normal() * (2 * plane.signedDistanceTo(*this));
}

AcGePoint2d AcGePoint3d::convert2d(const AcGePlanarEnt& plane) const
{
    return plane.AcGePlanarEnt::paramOf(*this);
}

AcGePoint3d AcGePoint3d::project(const AcGePlane& plane, const AcGeVector3d& vec) const
{
    const AcGeVector3d above = *this - plane.pointOnPlane();
    return plane.pointOnPlane() + above.project(plane.normal(), vec);
}

AcGePoint3d AcGePoint3d::orthoProject(const AcGePlane& plane) const
{
    return *this - plane.normal() * plane.signedDistanceTo(*this);
}

AcGePoint3d& AcGePoint3d::set(const AcGePlanarEnt& plane, const AcGePoint2d& pnt)
{
    return *this = plane.evalPoint(pnt);
}
