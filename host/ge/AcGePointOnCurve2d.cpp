#include "geponc2d.h"

#include "DimensionNames.h"
#include "geline2d.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(2d)
} // namespace

#include "AcGePointOnCurve.inl"

AcGePointOnCurve2d::AcGePointOnCurve2d() : AcGePointOnCurve2d(AcGeLine2d::kXAxis) {}
