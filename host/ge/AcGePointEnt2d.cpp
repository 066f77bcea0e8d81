#include "gepent2d.h"

bool AcGePointEnt2d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kPointEnt2d || AcGeEntity2d::isKindOf(entType);
}

bool AcGePointEnt2d::isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol) const
{
    return entity.type() == type() &&
           static_cast<const AcGePointEnt2d&>(entity).point2d().isEqualTo(point2d(), tol);
}

bool AcGePointEnt2d::isOn(const AcGePoint2d& pnt, const AcGeTol& tol) const
{
    return point2d().isEqualTo(pnt, tol);
}
