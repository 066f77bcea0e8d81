#include "geponc3d.h"

#include "DimensionNames.h"
#include "geline3d.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(3d)
using Curve = AcGeCurve3d;
using PointOnCurve = AcGePointOnCurve3d;
} // namespace

#include "AcGePointOnCurve.inl"

AcGePointOnCurve3d::AcGePointOnCurve3d() : AcGePointOnCurve3d(AcGeLine3d::kXAxis) {}
