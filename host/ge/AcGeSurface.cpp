#include "gesurf.h"

bool AcGeSurface::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kSurface || AcGeEntity3d::isKindOf(entType);
}

AcGePoint3d AcGeSurface::closestPointTo(const AcGePoint3d& pnt, const AcGeTol& tol) const
{
    return evalPoint(paramOf(pnt, tol));
}

double AcGeSurface::distanceTo(const AcGePoint3d& pnt, const AcGeTol& tol) const
{
    return closestPointTo(pnt, tol).distanceTo(pnt);
}

bool AcGeSurface::isOn(const AcGePoint3d& pnt, const AcGeTol& tol) const
{
    return distanceTo(pnt, tol) <= tol.equalPoint();
}

bool AcGeSurface::isOn(const AcGePoint3d& pnt, AcGePoint2d& paramPoint, const AcGeTol& tol) const
{
    paramPoint = paramOf(pnt, tol);
    return isOn(pnt, tol);
}
