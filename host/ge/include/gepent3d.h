#pragma once

#include "geent3d.h"

/// An entity that is one point.
class AcGePointEnt3d : public AcGeEntity3d
{
public:
    bool isKindOf(AcGe::EntityId entType) const override;
    bool isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    bool isOn(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const override;

    virtual AcGePoint3d point3d() const = 0;
    operator AcGePoint3d() const { return point3d(); }
};
