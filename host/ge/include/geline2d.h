#pragma once

#include "gelent2d.h"

/// An unbounded line: evalPoint(t) is the point plus t times the vector it was made of.
class AcGeLine2d : public AcGeLinearEnt2d
{
public:
    static const AcGeLine2d kXAxis;
    static const AcGeLine2d kYAxis;

    AcGeLine2d();
    AcGeLine2d(const AcGePoint2d& pnt, const AcGeVector2d& vec);
    AcGeLine2d(const AcGePoint2d& pnt1, const AcGePoint2d& pnt2) : AcGeLine2d(pnt1, pnt2 - pnt1) {}

    AcGe::EntityId type() const override { return AcGe::kLine2d; }
    AcGeLine2d* copy() const override { return new AcGeLine2d(*this); }
    AcGeLine2d& set(const AcGePoint2d& pnt, const AcGeVector2d& vec) { return *this = AcGeLine2d(pnt, vec); }
    AcGeLine2d& set(const AcGePoint2d& pnt1, const AcGePoint2d& pnt2)
    {
        return *this = AcGeLine2d(pnt1, pnt2);
    }

protected:
    bool setBounds(double lo, double hi) override;
};
