#include "SelectionSearch.h"

#include "dbblkref.h"
#include "SpaceIndex.h"
#include "SpaceOrder.h"

namespace
{
constexpr std::size_t noLimit = static_cast<std::size_t>(-1);

/// What its box shows is all there is to know: nothing of it can be hidden by itself.
bool isOfOnePiece(const AcDbEntity& entity)
{
    return !entity.isKindOf(AcDbBlockReference::desc());
}
} // namespace

namespace ed
{
bool SelectionSearch::isSeen(const AcDbEntity& entity)
{
    // A reference on a layer that is off may show what is on others.
    if (entity.visibility() != AcDb::kVisible) return false;
    const LayerState& layer = mLayers.of(entity.layerId());
    return layer.isShown() || (!layer.isFrozen && !isOfOnePiece(entity));
}

const SelectionSearch::Entities& SelectionSearch::candidates()
{
    if (mHasCandidates) return mCandidates;
    mHasCandidates = true;
    mCandidates = uppermostFirst(mDatabase.currentSpaceId());
    dropUnseen(mCandidates);
    return mCandidates;
}

void SelectionSearch::dropUnseen(Entities& entities)
{
    const auto end = std::remove_if(entities.begin(), entities.end(),
                                    [this](const AcDbEntity* entity) { return !isSeen(*entity); });
    entities.erase(end, entities.end());
}

/// Those of the candidates that may meet an area.
const SelectionSearch::Entities& SelectionSearch::near(const SelectionArea& area)
{
    SpaceIndex* index = SpaceIndex::of(mDatabase, mView.toPlane);
    if (!index) return candidates();
    mNear = index->near(area.box());
    dropUnseen(mNear);
    return mNear;
}

/// `judge` is asked about entities whose box does not tell: whether all of it, or none, is in the area.
template <class Judge>
std::vector<AcDbObjectId> SelectionSearch::search(const SelectionArea& area, std::size_t most, Judge judge)
{
    SelectionProbe probe(area, mView, mLayers, mDatabase.layerZero());
    EntityBoxes boxes(mView.toPlane);
    std::vector<AcDbObjectId> found;
    PlaneBox box;
    for (const AcDbEntity* entity : near(area)) {
        const bool hasBox = boxes.boxOf(*entity, box);
        if (hasBox && !area.mayMeet(box)) continue;
        const bool isAllIn = hasBox && isOfOnePiece(*entity) && area.holds(box);
        if (!isAllIn && !judge(probe, *entity)) continue;
        found.push_back(entity->objectId());
        if (found.size() == most) break;
    }
    return found;
}

std::vector<AcDbObjectId> SelectionSearch::touching(const SelectionArea& area)
{
    return search(area, noLimit, [](SelectionProbe& probe, const AcDbEntity& entity) { return probe.touches(entity); });
}

std::vector<AcDbObjectId> SelectionSearch::inside(const SelectionArea& area)
{
    return search(area, noLimit,
                  [](SelectionProbe& probe, const AcDbEntity& entity) { return probe.isInside(entity); });
}

AcDbObjectId SelectionSearch::uppermostTouching(const SelectionArea& area)
{
    const std::vector<AcDbObjectId> found =
        search(area, 1, [](SelectionProbe& probe, const AcDbEntity& entity) { return probe.touches(entity); });
    return found.empty() ? AcDbObjectId() : found.front();
}

SelectionArea SelectionSearch::pickBox(const AcGePoint3d& point) const
{
    const AcGeVector2d half(mView.pickRadius, mView.pickRadius);
    const AcGePoint2d at = mView.place(point);
    return SelectionArea::rectangle(at - half, at + half);
}

AcDbObjectId SelectionSearch::lastSeen()
{
    const AcDbEntity* last = nullptr;
    for (const AcDbEntity* entity : candidates()) {
        if (!last || entity->handle() > last->handle()) last = entity;
    }
    return last ? last->objectId() : AcDbObjectId();
}

std::vector<AcDbObjectId> SelectionSearch::thawed()
{
    std::vector<AcDbObjectId> found;
    for (const AcDbEntity* entity : uppermostFirst(mDatabase.currentSpaceId())) {
        if (!mLayers.of(entity->layerId()).isFrozen) found.push_back(entity->objectId());
    }
    return found;
}
} // namespace ed
