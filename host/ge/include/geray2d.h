#pragma once

#include "gelent2d.h"

/// A line bounded at its start: parameters from 0.
class AcGeRay2d : public AcGeLinearEnt2d
{
public:
    AcGeRay2d();
    AcGeRay2d(const AcGePoint2d& pnt, const AcGeVector2d& vec);
    AcGeRay2d(const AcGePoint2d& pnt1, const AcGePoint2d& pnt2) : AcGeRay2d(pnt1, pnt2 - pnt1) {}

    AcGe::EntityId type() const override { return AcGe::kRay2d; }
    AcGeRay2d* copy() const override { return new AcGeRay2d(*this); }
    AcGeRay2d& set(const AcGePoint2d& pnt, const AcGeVector2d& vec) { return *this = AcGeRay2d(pnt, vec); }
    AcGeRay2d& set(const AcGePoint2d& pnt1, const AcGePoint2d& pnt2) { return *this = AcGeRay2d(pnt1, pnt2); }

protected:
    bool setBounds(double lo, double hi) override;
};
