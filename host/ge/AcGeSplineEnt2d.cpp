#include "gesent2d.h"

#include "DimensionNames.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(2d)
} // namespace

#include "AcGeSplineEnt.inl"

AcGeSplineEnt2d::AcGeSplineEnt2d() : mSpline(std::make_shared<Spline>()) {}

bool AcGeSplineEnt2d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kSplineEnt2d || AcGeCurve2d::isKindOf(entType);
}
