#pragma once

#include "geplanar.h"

class AcGeBoundedPlane;
class AcGeLineSeg3d;

/// An unbounded plane.
class AcGePlane : public AcGePlanarEnt
{
public:
    static const AcGePlane kXYPlane;
    static const AcGePlane kYZPlane;
    static const AcGePlane kZXPlane;

    /// The world's XY plane.
    AcGePlane();
    /// Axes by the arbitrary axis rule (AcGeVector3d::perpVector).
    AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& normal) : AcGePlane() { set(origin, normal); }
    /// Through three points; the axes run from `org` to the others.
    AcGePlane(const AcGePoint3d& pntU, const AcGePoint3d& org, const AcGePoint3d& pntV)
        : AcGePlanarEnt(org, pntU - org, pntV - org)
    {
    }
    AcGePlane(const AcGePoint3d& org, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis)
        : AcGePlanarEnt(org, uAxis, vAxis)
    {
    }
    /// a x + b y + c z + d = 0; the origin is the point closest to the world's.
    AcGePlane(double a, double b, double c, double d) : AcGePlane() { set(a, b, c, d); }

    AcGe::EntityId type() const override { return AcGe::kPlane; }
    AcGePlane* copy() const override { return new AcGePlane(*this); }

    /// Positive on the side that the normal points to.
    double signedDistanceTo(const AcGePoint3d& pnt) const { return (pnt - mOrigin).dotProduct(normal()); }

    using AcGePlanarEnt::intersectWith;
    /// The common line, along normal x other normal; false for parallel planes.
    bool intersectWith(const AcGePlane& otherPln, AcGeLine3d& resultLine,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGeBoundedPlane& bndPln, AcGeLineSeg3d& resultLineSeg,
                       const AcGeTol& tol = AcGeContext::gTol) const;

    AcGePlane& set(const AcGePoint3d& pnt, const AcGeVector3d& normal);
    AcGePlane& set(const AcGePoint3d& pntU, const AcGePoint3d& org, const AcGePoint3d& pntV);
    AcGePlane& set(double a, double b, double c, double d);
    AcGePlane& set(const AcGePoint3d& org, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis);
};
