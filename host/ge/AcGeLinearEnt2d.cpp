#include "gelent2d.h"

#include "DimensionNames.h"
#include "geline2d.h"
#include "gelnsg2d.h"
#include "geray2d.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(2d)
} // namespace

#include "AcGeLinearEnt.inl"

bool AcGeLinearEnt2d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kLinearEnt2d || AcGeCurve2d::isKindOf(entType);
}

void AcGeLinearEnt2d::getPerpLine(const AcGePoint2d& pnt, AcGeLine2d& perpLine) const
{
    perpLine.set(pnt, direction().perpVector());
}
