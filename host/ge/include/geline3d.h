#pragma once

#include "gelent3d.h"

/// An unbounded line: evalPoint(t) is the point plus t times the vector it was made of.
class AcGeLine3d : public AcGeLinearEnt3d
{
public:
    static const AcGeLine3d kXAxis;
    static const AcGeLine3d kYAxis;
    static const AcGeLine3d kZAxis;

    AcGeLine3d();
    AcGeLine3d(const AcGePoint3d& pnt, const AcGeVector3d& vec);
    AcGeLine3d(const AcGePoint3d& pnt1, const AcGePoint3d& pnt2) : AcGeLine3d(pnt1, pnt2 - pnt1) {}

    AcGe::EntityId type() const override { return AcGe::kLine3d; }
    AcGeLine3d* copy() const override { return new AcGeLine3d(*this); }
    AcGeLine3d& set(const AcGePoint3d& pnt, const AcGeVector3d& vec) { return *this = AcGeLine3d(pnt, vec); }
    AcGeLine3d& set(const AcGePoint3d& pnt1, const AcGePoint3d& pnt2)
    {
        return *this = AcGeLine3d(pnt1, pnt2);
    }

protected:
    bool setBounds(double lo, double hi) override;
};
