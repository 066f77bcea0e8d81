#include "gecurv2d.h"

#include "DimensionNames.h"
#include "geblok2d.h"
#include "geline2d.h"
#include "geponc2d.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(2d)
} // namespace

#include "AcGeCurve.inl"

bool AcGeCurve2d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kCurve2d || AcGeEntity2d::isKindOf(entType);
}

void AcGeCurve2d::getTrimmedOffset(double distance, AcGeVoidPointerArray& offsetCurveList,
                                   AcGe::OffsetCrvExtType, const AcGeTol& tol) const
{
    AcGeCurve2d* offset = offsetOf(*this, distance, tol);
    if (offset) offsetCurveList.append(offset);
}
