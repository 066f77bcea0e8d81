#pragma once

#include "gelent3d.h"

/// A line bounded at its start: parameters from 0.
class AcGeRay3d : public AcGeLinearEnt3d
{
public:
    AcGeRay3d();
    AcGeRay3d(const AcGePoint3d& pnt, const AcGeVector3d& vec);
    AcGeRay3d(const AcGePoint3d& pnt1, const AcGePoint3d& pnt2) : AcGeRay3d(pnt1, pnt2 - pnt1) {}

    AcGe::EntityId type() const override { return AcGe::kRay3d; }
    AcGeRay3d* copy() const override { return new AcGeRay3d(*this); }
    AcGeRay3d& set(const AcGePoint3d& pnt, const AcGeVector3d& vec) { return *this = AcGeRay3d(pnt, vec); }
    AcGeRay3d& set(const AcGePoint3d& pnt1, const AcGePoint3d& pnt2) { return *this = AcGeRay3d(pnt1, pnt2); }

protected:
    bool setBounds(double lo, double hi) override;
};
