#pragma once

#include "gesurf.h"

class AcGeCircArc3d;
class AcGeLinearEnt3d;

/// A flat surface: an origin and two axes, which need not be unit vectors or perpendicular. Parameters are
/// coordinates along the axes.
class AcGePlanarEnt : public AcGeSurface
{
public:
    bool isKindOf(AcGe::EntityId entType) const override;
    bool isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    AcGePlanarEnt& transformBy(const AcGeMatrix3d& xfm) override;
    AcGePoint2d paramOf(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const override;
    AcGePoint3d evalPoint(const AcGePoint2d& param) const override;

    /// The point that is common with a line; false when there is none or the line is parallel.
    bool intersectWith(const AcGeLinearEnt3d& linEnt, AcGePoint3d& pnt,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    AcGePoint3d closestPointToLinearEnt(const AcGeLinearEnt3d& line, AcGePoint3d& pointOnLine,
                                        const AcGeTol& tol = AcGeContext::gTol) const;

    bool isParallelTo(const AcGeLinearEnt3d& linEnt, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isParallelTo(const AcGePlanarEnt& otherPlnEnt, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeLinearEnt3d& linEnt, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGePlanarEnt& otherPlnEnt, const AcGeTol& tol = AcGeContext::gTol) const;
    /// Parallel, and the other's origin lies within tol.equalPoint() of this plane.
    bool isCoplanarTo(const AcGePlanarEnt& otherPlnEnt, const AcGeTol& tol = AcGeContext::gTol) const;

    void get(AcGePoint3d& origin, AcGeVector3d& uVec, AcGeVector3d& vVec) const;
    void get(AcGePoint3d& uPnt, AcGePoint3d& origin, AcGePoint3d& vPnt) const;
    AcGePoint3d pointOnPlane() const { return mOrigin; }
    /// The unit normal, first axis x second axis; the zero vector when the axes are parallel.
    AcGeVector3d normal() const;
    /// a x + b y + c z + d = 0 with the unit normal (a, b, c).
    void getCoefficients(double& a, double& b, double& c, double& d) const;
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& axis1, AcGeVector3d& axis2) const;

protected:
    AcGePlanarEnt(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis)
        : mOrigin(origin), mU(uAxis), mV(vAxis)
    {
    }

    AcGePoint3d mOrigin;
    AcGeVector3d mU, mV;
};
