#pragma once

#include "geent2d.h"

/// An entity that is one point.
class AcGePointEnt2d : public AcGeEntity2d
{
public:
    bool isKindOf(AcGe::EntityId entType) const override;
    bool isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    bool isOn(const AcGePoint2d& pnt, const AcGeTol& tol = AcGeContext::gTol) const override;

    virtual AcGePoint2d point2d() const = 0;
    operator AcGePoint2d() const { return point2d(); }
};
