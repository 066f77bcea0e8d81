#include "gecomp3d.h"

#include "DimensionNames.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(3d)
} // namespace

#include "AcGeCompositeCurve.inl"

AcGeCompositeCurve3d::AcGeCompositeCurve3d() = default;

AcGeCompositeCurve3d::AcGeCompositeCurve3d(const AcGeVoidPointerArray& curveList)
{
    setCurveList(curveList);
}

AcGeCompositeCurve3d::AcGeCompositeCurve3d(const AcGeVoidPointerArray& curveList,
                                           const AcGeIntArray& isOwnerOfCurves)
{
    setCurveList(curveList, isOwnerOfCurves);
}

AcGeCompositeCurve3d::AcGeCompositeCurve3d(const AcGeCompositeCurve3d& other) : AcGeCurve3d(other)
{
    *this = other;
}

AcGeCompositeCurve3d::~AcGeCompositeCurve3d() = default;
