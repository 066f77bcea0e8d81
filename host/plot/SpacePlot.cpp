#include "SpacePlot.h"

#include "Progress.h"
#include "DrawOrder.h"
#include "Stub.h"
#include "dbblock.h"
#include "dbsortentstbl.h"

#include <cmath>

namespace plot
{
namespace
{
/// The draw as entities see it.
class PlotDraw final : public AcGiWorldDraw
{
public:
    PlotDraw(ViewGeometry& geometry, PlotTraits& traits) : mGeometry(geometry), mTraits(traits) {}

    AcGiRegenType regenType() const override { return kAcGiStandardDisplay; }
    AcGiSubEntityTraits& subEntityTraits() const override { return mTraits; }
    double deviation(AcGiDeviationType, const AcGePoint3d&) const override { return mGeometry.modelTolerance(); }
    AcGiGeometry& geometry() const override { return mGeometry; }

private:
    ViewGeometry& mGeometry;
    PlotTraits& mTraits;
};

void addShown(std::vector<const AcDbEntity*>& shown, AcDbObjectId id)
{
    const auto* entity = id.isErased() ? nullptr : AcDbEntity::cast(residentObject(id));
    if (entity && entity->visibility() == AcDb::kVisible) shown.push_back(entity);
}

/// Damaged drawings hold coordinates that would shrink the rest to nothing.
bool isSane(const AcDbExtents& box)
{
    constexpr double farthest = 1e15;
    for (const AcGePoint3d& point : {box.minPoint(), box.maxPoint()})
        for (const double coordinate : {point.x, point.y, point.z})
            if (!(std::fabs(coordinate) < farthest)) return false;
    return true;
}
} // namespace

std::vector<const AcDbEntity*> shownEntities(const AcDbBlockTableRecord& block)
{
    std::vector<const AcDbEntity*> shown;
    AcDbObjectIdArray order;
    const AcDbSortentsTable* table = drawOrderOf(block);
    if (table && table->getFullDrawOrder(order) == Acad::eOk) {
        for (int i = 0; i < order.length(); ++i)
            addShown(shown, order[i]);
    } else {
        for (const AcDbObjectId id : block.entityIds())
            addShown(shown, id);
    }
    return shown;
}

AcDbExtents shownExtents(const AcDbBlockTableRecord& block, PlotStyles& styles)
{
    AcDbExtents all, one;
    for (const AcDbEntity* entity : shownEntities(block)) {
        const LayerLook& layer = styles.layer(entity->layerId());
        if (layer.isOff || layer.isFrozen) continue;
        if (entity->getGeomExtents(one) == Acad::eOk && isSane(one)) all.addExt(one);
    }
    return all;
}

void drawBlock(Canvas& canvas, PlotStyles& styles, const AcDbBlockTableRecord& block, const View& view,
               const LayerSet& frozen)
{
    PlotTraits traits(styles, frozen);
    ViewGeometry geometry(canvas, traits, view);
    PlotDraw draw(geometry, traits);
    Progress progress(L"Plotting");
    const std::vector<const AcDbEntity*> entities = shownEntities(block);
    for (std::size_t i = 0; i < entities.size(); ++i) {
        progress.reach(i, entities.size());
        entities[i]->worldDraw(&draw);
    }
    geometry.flush();
}
} // namespace plot
