#include "geponc3d.h"

#include "DimensionNames.h"
#include "geline3d.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(3d)
} // namespace

#include "AcGePointOnCurve.inl"

AcGePointOnCurve3d::AcGePointOnCurve3d() : AcGePointOnCurve3d(AcGeLine3d::kXAxis) {}
