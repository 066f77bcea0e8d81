#pragma once

#include "geent3d.h"

/// A surface with two parameters.
class AcGeSurface : public AcGeEntity3d
{
public:
    bool isKindOf(AcGe::EntityId entType) const override;

    /// The parameters of a point on the surface; those of the closest point for another point.
    virtual AcGePoint2d paramOf(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const = 0;
    virtual AcGePoint3d evalPoint(const AcGePoint2d& param) const = 0;
    AcGePoint3d closestPointTo(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const;
    double distanceTo(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isOn(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const override;
    bool isOn(const AcGePoint3d& pnt, AcGePoint2d& paramPoint, const AcGeTol& tol = AcGeContext::gTol) const;
};
