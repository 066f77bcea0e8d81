#pragma once

#include "gepent3d.h"

/// A free point.
class AcGePosition3d : public AcGePointEnt3d
{
public:
    AcGePosition3d() = default;
    AcGePosition3d(const AcGePoint3d& pnt) : mPoint(pnt) {}
    AcGePosition3d(double x, double y, double z) : mPoint(x, y, z) {}

    AcGe::EntityId type() const override { return AcGe::kPosition3d; }
    AcGePosition3d* copy() const override { return new AcGePosition3d(*this); }
    AcGePosition3d& transformBy(const AcGeMatrix3d& xfm) override
    {
        mPoint.transformBy(xfm);
        return *this;
    }
    AcGePoint3d point3d() const override { return mPoint; }
    AcGePosition3d& set(const AcGePoint3d& pnt) { return *this = AcGePosition3d(pnt); }
    AcGePosition3d& set(double x, double y, double z) { return *this = AcGePosition3d(x, y, z); }

private:
    AcGePoint3d mPoint;
};
