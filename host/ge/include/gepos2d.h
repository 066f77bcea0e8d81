#pragma once

#include "gepent2d.h"

/// A free point.
class AcGePosition2d : public AcGePointEnt2d
{
public:
    AcGePosition2d() = default;
    AcGePosition2d(const AcGePoint2d& pnt) : mPoint(pnt) {}
    AcGePosition2d(double x, double y) : mPoint(x, y) {}

    AcGe::EntityId type() const override { return AcGe::kPosition2d; }
    AcGePosition2d* copy() const override { return new AcGePosition2d(*this); }
    AcGePosition2d& transformBy(const AcGeMatrix2d& xfm) override
    {
        mPoint.transformBy(xfm);
        return *this;
    }
    AcGePoint2d point2d() const override { return mPoint; }
    AcGePosition2d& set(const AcGePoint2d& pnt) { return *this = AcGePosition2d(pnt); }
    AcGePosition2d& set(double x, double y) { return *this = AcGePosition2d(x, y); }

private:
    AcGePoint2d mPoint;
};
