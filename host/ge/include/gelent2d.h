#pragma once

#include "gecurv2d.h"

class AcGeCircArc2d;

/// What lines, rays and segments have in common: the points origin + t vector.
class AcGeLinearEnt2d : public AcGeCurve2d
{
public:
    bool isKindOf(AcGe::EntityId entType) const override;
    bool isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    AcGeLinearEnt2d& transformBy(const AcGeMatrix2d& xfm) override;

    /// The one common point; false when there is none and for lines that overlap.
    bool intersectWith(const AcGeLinearEnt2d& line, AcGePoint2d& intPt,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    /// The common part of two collinear entities as a new one; false when it is empty or a point.
    bool overlap(const AcGeLinearEnt2d& line, AcGeLinearEnt2d*& overlap,
                 const AcGeTol& tol = AcGeContext::gTol) const;

    bool isParallelTo(const AcGeLinearEnt2d& line, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeLinearEnt2d& line, const AcGeTol& tol = AcGeContext::gTol) const;
    /// The unbounded lines are the same one.
    bool isColinearTo(const AcGeLinearEnt2d& line, const AcGeTol& tol = AcGeContext::gTol) const;
    void getPerpLine(const AcGePoint2d& pnt, AcGeLine2d& perpLine) const;

    AcGePoint2d pointOnLine() const { return mOrigin; }
    /// The unit vector; zero for a zero vector.
    AcGeVector2d direction() const;
    void getLine(AcGeLine2d& line) const;

    gecore::CurveForm form() const override;

protected:
    AcGeLinearEnt2d(const AcGePoint2d& origin, const AcGeVector2d& vector, double lo, double hi)
        : mOrigin(origin), mVector(vector), mLo(lo), mHi(hi)
    {
    }
    void turnRound() override;

    AcGePoint2d mOrigin;
    AcGeVector2d mVector;
    double mLo, mHi;
};
