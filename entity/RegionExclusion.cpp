#include "RegionExclusion.h"

namespace entity
{
namespace
{
using RegionPtr = std::unique_ptr<AcDbRegion>;

RegionPtr copyOf(const AcDbRegion& region)
{
    return RegionPtr(AcDbRegion::cast(region.clone()));
}

/// Leaves what lies in one of two regions and not in both; the other is empty then. False when they leave one
/// plane.
bool exclude(AcDbRegion& region, AcDbRegion& other)
{
    const RegionPtr both = copyOf(region), copyOfOther = copyOf(other);
    return both->booleanOper(AcDb::kBoolIntersect, copyOfOther.get()) == Acad::eOk &&
           region.booleanOper(AcDb::kBoolUnite, &other) == Acad::eOk &&
           (both->isNull() || region.booleanOper(AcDb::kBoolSubtract, both.get()) == Acad::eOk);
}
} // namespace

std::unique_ptr<AcDbRegion> areaByTurns(std::vector<RegionPtr> regions)
{
    if (regions.empty()) return nullptr;
    // Two by two: a region that grows with each of them would be worked through again and again.
    for (std::size_t step = 1; step < regions.size(); step *= 2)
        for (std::size_t i = 0; i + step < regions.size(); i += 2 * step)
            if (!exclude(*regions[i], *regions[i + step])) return nullptr;
    return std::move(regions[0]);
}
} // namespace entity
