#include "gecomp2d.h"

#include "DimensionNames.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(2d)
} // namespace

#include "AcGeCompositeCurve.inl"

AcGeCompositeCurve2d::AcGeCompositeCurve2d() = default;

AcGeCompositeCurve2d::AcGeCompositeCurve2d(const AcGeVoidPointerArray& curveList)
{
    setCurveList(curveList);
}

AcGeCompositeCurve2d::AcGeCompositeCurve2d(const AcGeVoidPointerArray& curveList,
                                           const AcGeIntArray& isOwnerOfCurves)
{
    setCurveList(curveList, isOwnerOfCurves);
}

AcGeCompositeCurve2d::AcGeCompositeCurve2d(const AcGeCompositeCurve2d& other) : AcGeCurve2d(other)
{
    *this = other;
}

AcGeCompositeCurve2d::~AcGeCompositeCurve2d() = default;
