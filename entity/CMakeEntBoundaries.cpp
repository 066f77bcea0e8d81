/// Boundaries around a point.

#include "CMakeEnt.h"

#include "acedads.h"
#include "dbcurve.h"
#include "dbobjptr.h"
#include "NewEntity.h"
#include "RegionExclusion.h"

namespace
{
using Outlines = std::vector<std::unique_ptr<AcDbEntity>>;
using Regions = std::vector<std::unique_ptr<AcDbRegion>>;

Outlines trace(const AcGePoint3d& pt, bool islands)
{
    AcDbVoidPtrArray traced;
    acedTraceBoundary(pt, islands, traced);
    Outlines outlines;
    for (void* const outline : traced)
        outlines.emplace_back(static_cast<AcDbEntity*>(outline));
    return outlines;
}

/// The same area as a region; null when it makes none.
std::unique_ptr<AcDbRegion> regionOf(std::unique_ptr<AcDbEntity> outline)
{
    if (AcDbRegion* const region = AcDbRegion::cast(outline.get())) {
        outline.release();
        return std::unique_ptr<AcDbRegion>(region);
    }
    AcArray<void*> curves;
    curves.append(outline.get());
    return std::unique_ptr<AcDbRegion>(CArxEntity::CMakeEnt::MakeRegion(curves));
}

/// None when one of them fails.
Regions regionsOf(Outlines outlines)
{
    Regions regions;
    for (auto& outline : outlines) {
        regions.push_back(regionOf(std::move(outline)));
        if (!regions.back()) return {};
    }
    return regions;
}

template <class Entities>
int addAll(Entities entities, AcDbObjectIdArray& ids)
{
    if (entities.empty()) return 0;
    entity::Batch batch;
    for (auto& entity : entities)
        if (!batch.addInWorld(std::move(entity))) return 0;
    return batch.keep(ids);
}
} // namespace

int CArxEntity::CMakeEnt::MakeBoundary(const AcGePoint3d& pt, AcDbObjectIdArray& ids, int islands,
                                       int asRegions)
{
    Outlines outlines = trace(pt, islands != 0);
    return asRegions ? addAll(regionsOf(std::move(outlines)), ids) : addAll(std::move(outlines), ids);
}

int CArxEntity::CMakeEnt::MakeBoundary(const AcGePoint3d& pt, AcDbObjectId& id, int islands, int asRegions)
{
    Outlines outlines = trace(pt, islands && asRegions);
    if (outlines.empty()) return 0;
    if (!asRegions) return entity::addInWorld(std::move(outlines[0]), id);
    return entity::addInWorld(entity::areaByTurns(regionsOf(std::move(outlines))), id);
}
