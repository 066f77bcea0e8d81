#pragma once

#include "gecurv3d.h"

class AcGeCircArc3d;
class AcGePlanarEnt;

/// What lines, rays and segments have in common: the points origin + t vector.
class AcGeLinearEnt3d : public AcGeCurve3d
{
public:
    bool isKindOf(AcGe::EntityId entType) const override;
    bool isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    AcGeLinearEnt3d& transformBy(const AcGeMatrix3d& xfm) override;

    /// The one common point; false when there is none and for lines that overlap.
    bool intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& intPt,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGePlanarEnt& plane, AcGePoint3d& intPnt,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    /// The common point when seen along `projDir`, on this and on the other.
    bool projIntersectWith(const AcGeLinearEnt3d& line, const AcGeVector3d& projDir,
                           AcGePoint3d& pntOnThisLine, AcGePoint3d& pntOnOtherLine,
                           const AcGeTol& tol = AcGeContext::gTol) const;
    /// The common part of two collinear entities as a new one; false when it is empty or a point.
    bool overlap(const AcGeLinearEnt3d& line, AcGeLinearEnt3d*& overlap,
                 const AcGeTol& tol = AcGeContext::gTol) const;

    using AcGeCurve3d::isOn;
    /// True when the whole entity lies in the plane.
    bool isOn(const AcGePlane& plane, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isParallelTo(const AcGeLinearEnt3d& line, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isParallelTo(const AcGePlanarEnt& plane, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeLinearEnt3d& line, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGePlanarEnt& plane, const AcGeTol& tol = AcGeContext::gTol) const;
    /// The unbounded lines are the same one.
    bool isColinearTo(const AcGeLinearEnt3d& line, const AcGeTol& tol = AcGeContext::gTol) const;
    void getPerpPlane(const AcGePoint3d& pnt, AcGePlane& plane) const;

    AcGePoint3d pointOnLine() const { return mOrigin; }
    /// The unit vector; zero for a zero vector.
    AcGeVector3d direction() const;
    void getLine(AcGeLine3d& line) const;

    gecore::CurveForm form() const override;

protected:
    AcGeLinearEnt3d(const AcGePoint3d& origin, const AcGeVector3d& vector, double lo, double hi)
        : mOrigin(origin), mVector(vector), mLo(lo), mHi(hi)
    {
    }
    void turnRound() override;

    AcGePoint3d mOrigin;
    AcGeVector3d mVector;
    double mLo, mHi;
};
