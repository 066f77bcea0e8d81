/// Boundaries around a point.

#include "CMakeEnt.h"

#include "acedads.h"
#include "BoundaryBySet.h"
#include "dbcurve.h"
#include "dbobjptr.h"
#include "NewEntity.h"
#include "OpenReport.h"
#include "RegionExclusion.h"
#include "Transaction.h"

namespace
{
constexpr const wchar_t* member = L"MakeBoundary";

using Outlines = std::vector<std::unique_ptr<AcDbEntity>>;
using Regions = std::vector<std::unique_ptr<AcDbRegion>>;

Outlines trace(const AcGePoint3d& pt, bool islands)
{
    AcDbVoidPtrArray traced;
    acedTraceBoundary(pt, islands, traced);
    Outlines outlines;
    for (void* const outline : traced) {
        outlines.emplace_back(static_cast<AcDbEntity*>(outline));
        outlines.back()->setDatabaseDefaults();
    }
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

/// None when one of the ids is that of no region.
Regions copiesOf(const AcDbObjectIdArray& ids)
{
    Regions copies;
    for (const AcDbObjectId& id : ids) {
        const AcDbObjectPointer<AcDbRegion> region(id, AcDb::kForRead);
        if (!entity::isOpen(region, member)) return {};
        copies.emplace_back(AcDbRegion::cast(region->clone()));
    }
    return copies;
}

/// Puts the area of regions of the drawing in their place; what is no region is erased all the same.
int mergeInDrawing(const AcDbObjectIdArray& ids, AcDbObjectId& merged)
{
    Regions copies = copiesOf(ids);
    return entity::eraseAll(ids, member) ? entity::addInWorld(entity::areaByTurns(std::move(copies)), merged)
                                         : 0;
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

int CArxEntity::CMakeEnt::MakeBoundary(const AcGePoint3d& pt, const ads_name candidates,
                                       AcDbObjectIdArray& ids, int islands, int asRegions)
{
    const AcDbObjectIdArray made = entity::boundaryBySet(pt, candidates, islands != 0, asRegions != 0);
    ids.append(made);
    return !made.isEmpty();
}

int CArxEntity::CMakeEnt::MakeBoundary(const AcGePoint3d& pt, const ads_name candidates, AcDbObjectId& id,
                                       int islands, int asRegions)
{
    const bool cutsOut = islands && asRegions;
    const AcDbObjectIdArray made = entity::boundaryBySet(pt, candidates, cutsOut, asRegions != 0);
    if (made.length() > 1) return mergeInDrawing(made, id);
    if (made.isEmpty()) return 0;
    id = made.first();
    return 1;
}
