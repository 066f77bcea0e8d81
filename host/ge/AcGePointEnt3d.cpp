#include "gepent3d.h"

bool AcGePointEnt3d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kPointEnt3d || AcGeEntity3d::isKindOf(entType);
}

bool AcGePointEnt3d::isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol) const
{
    return entity.type() == type() &&
           static_cast<const AcGePointEnt3d&>(entity).point3d().isEqualTo(point3d(), tol);
}

bool AcGePointEnt3d::isOn(const AcGePoint3d& pnt, const AcGeTol& tol) const
{
    return point3d().isEqualTo(pnt, tol);
}
