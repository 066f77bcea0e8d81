#include "gesent3d.h"

#include "DimensionNames.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(3d)
} // namespace

#include "AcGeSplineEnt.inl"

AcGeSplineEnt3d::AcGeSplineEnt3d() : mSpline(std::make_shared<Spline>()) {}

bool AcGeSplineEnt3d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kSplineEnt3d || AcGeCurve3d::isKindOf(entType);
}
