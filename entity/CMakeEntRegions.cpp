/// Regions.

#include "CMakeEnt.h"

#include "dbline.h"
#include "NewEntity.h"
#include "RegionExclusion.h"

namespace
{
using Regions = std::vector<std::unique_ptr<AcDbRegion>>;

/// A region for each closed chain; none when the curves make no such chains, or a pointer is null.
Regions regionsOf(const AcDbVoidPtrArray& curves)
{
    Regions regions;
    if (curves.contains(nullptr)) return regions;
    AcDbVoidPtrArray made;
    AcDbRegion::createFromCurves(curves, made);
    for (void* const region : made)
        regions.emplace_back(static_cast<AcDbRegion*>(region));
    return regions;
}

/// The sides of a polygon, in world coordinates.
std::vector<std::unique_ptr<AcDbLine>> sidesOf(const AcGePoint3dArray& points)
{
    const AcGeMatrix3d toWorld = entity::ucsToWorld();
    std::vector<std::unique_ptr<AcDbLine>> sides;
    for (int i = 0; i < points.length(); ++i) {
        const AcGePoint3d start = points[i], end = points[(i + 1) % points.length()];
        if (!start.isEqualTo(end))
            sides.push_back(std::make_unique<AcDbLine>(toWorld * start, toWorld * end));
    }
    return sides;
}
} // namespace

AcDbRegion* CArxEntity::CMakeEnt::MakeRegion(const AcGePoint3dArray& points)
{
    const auto sides = sidesOf(points);
    AcDbVoidPtrArray curves;
    for (const auto& side : sides)
        curves.append(side.get());
    Regions regions = regionsOf(curves);
    if (regions.size() != 1) return nullptr;
    regions[0]->setDatabaseDefaults();
    return regions[0].release();
}

AcDbRegion* CArxEntity::CMakeEnt::MakeRegion(AcArray<void*> curves)
{
    std::unique_ptr<AcDbRegion> region = entity::areaByTurns(regionsOf(curves));
    if (region) region->setDatabaseDefaults();
    return region.release();
}
