#pragma once

#include "gelent3d.h"

/// A bounded line: parameters from 0 to 1 unless setInterval changed them.
class AcGeLineSeg3d : public AcGeLinearEnt3d
{
public:
    AcGeLineSeg3d() : AcGeLineSeg3d({0, 0, 0}, AcGeVector3d(1, 0, 0)) {}
    AcGeLineSeg3d(const AcGePoint3d& pnt, const AcGeVector3d& vec) : AcGeLinearEnt3d(pnt, vec, 0, 1) {}
    AcGeLineSeg3d(const AcGePoint3d& pnt1, const AcGePoint3d& pnt2) : AcGeLineSeg3d(pnt1, pnt2 - pnt1) {}

    AcGe::EntityId type() const override { return AcGe::kLineSeg3d; }
    AcGeLineSeg3d* copy() const override { return new AcGeLineSeg3d(*this); }

    /// The plane half-way between the ends, perpendicular to the segment.
    void getBisector(AcGePlane& plane) const;
    /// startPoint (1 - blendCoeff) + endPoint blendCoeff.
    AcGePoint3d baryComb(double blendCoeff) const;
    AcGePoint3d startPoint() const { return mLo == 0 ? mOrigin : mOrigin + mVector * mLo; }
    AcGePoint3d midPoint() const { return mOrigin + mVector * ((mLo + mHi) / 2); }
    AcGePoint3d endPoint() const { return mOrigin + mVector * mHi; }
    double length() const { return mVector.length() * (mHi - mLo); }
    using AcGeCurve3d::length;

    AcGeLineSeg3d& set(const AcGePoint3d& pnt, const AcGeVector3d& vec)
    {
        return *this = AcGeLineSeg3d(pnt, vec);
    }
    AcGeLineSeg3d& set(const AcGePoint3d& pnt1, const AcGePoint3d& pnt2)
    {
        return *this = AcGeLineSeg3d(pnt1, pnt2);
    }

protected:
    bool setBounds(double lo, double hi) override;
};
