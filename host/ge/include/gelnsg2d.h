#pragma once

#include "gelent2d.h"

/// A bounded line: parameters from 0 to 1 unless setInterval changed them.
class AcGeLineSeg2d : public AcGeLinearEnt2d
{
public:
    AcGeLineSeg2d() : AcGeLineSeg2d({0, 0}, AcGeVector2d(1, 0)) {}
    AcGeLineSeg2d(const AcGePoint2d& pnt, const AcGeVector2d& vec) : AcGeLinearEnt2d(pnt, vec, 0, 1) {}
    AcGeLineSeg2d(const AcGePoint2d& pnt1, const AcGePoint2d& pnt2) : AcGeLineSeg2d(pnt1, pnt2 - pnt1) {}

    AcGe::EntityId type() const override { return AcGe::kLineSeg2d; }
    AcGeLineSeg2d* copy() const override { return new AcGeLineSeg2d(*this); }

    /// The line through the middle, perpendicular to the segment.
    void getBisector(AcGeLine2d& line) const;
    /// startPoint (1 - blendCoeff) + endPoint blendCoeff.
    AcGePoint2d baryComb(double blendCoeff) const;
    AcGePoint2d startPoint() const { return mLo == 0 ? mOrigin : mOrigin + mVector * mLo; }
    AcGePoint2d midPoint() const { return mOrigin + mVector * ((mLo + mHi) / 2); }
    AcGePoint2d endPoint() const { return mOrigin + mVector * mHi; }
    double length() const { return mVector.length() * (mHi - mLo); }
    using AcGeCurve2d::length;

    AcGeLineSeg2d& set(const AcGePoint2d& pnt, const AcGeVector2d& vec)
    {
        return *this = AcGeLineSeg2d(pnt, vec);
    }
    AcGeLineSeg2d& set(const AcGePoint2d& pnt1, const AcGePoint2d& pnt2)
    {
        return *this = AcGeLineSeg2d(pnt1, pnt2);
    }

protected:
    bool setBounds(double lo, double hi) override;
};
