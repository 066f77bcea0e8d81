#pragma once

#include "geplanar.h"

class AcGeLineSeg3d;
class AcGePlane;

/// A parallelogram: the points origin + s u + t v with s and t from 0 to 1.
class AcGeBoundedPlane : public AcGePlanarEnt
{
public:
    /// The unit square of the world's XY plane.
    AcGeBoundedPlane();
    AcGeBoundedPlane(const AcGePoint3d& origin, const AcGeVector3d& uVec, const AcGeVector3d& vVec)
        : AcGePlanarEnt(origin, uVec, vVec)
    {
    }
    AcGeBoundedPlane(const AcGePoint3d& p1, const AcGePoint3d& origin, const AcGePoint3d& p2)
        : AcGePlanarEnt(origin, p1 - origin, p2 - origin)
    {
    }

    AcGe::EntityId type() const override { return AcGe::kBoundedPlane; }
    AcGeBoundedPlane* copy() const override { return new AcGeBoundedPlane(*this); }
    /// The parameters of the closest point of the parallelogram.
    AcGePoint2d paramOf(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const override;

    using AcGePlanarEnt::intersectWith;
    /// The common segment; false when there is none, when it is a point, or when the planes are parallel.
    bool intersectWith(const AcGePlane& plane, AcGeLineSeg3d& results,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGeBoundedPlane& plane, AcGeLineSeg3d& result,
                       const AcGeTol& tol = AcGeContext::gTol) const;

    AcGeBoundedPlane& set(const AcGePoint3d& origin, const AcGeVector3d& uVec, const AcGeVector3d& vVec);
    AcGeBoundedPlane& set(const AcGePoint3d& p1, const AcGePoint3d& origin, const AcGePoint3d& p2);
};
