#pragma once

/// Finds the entities of the current space that the user points at.

#include "dbdatabase.h"
#include "dbentity.h"
#include "EntityBoxes.h"
#include "SelectionProbe.h"

namespace ed
{
/// Only what is seen is found: entities that are visible, on layers that are on and not frozen.
class SelectionSearch
{
public:
    explicit SelectionSearch(AcDbDatabase& database)
        : mDatabase(database), mView(selectionView()), mLayers(mView.window)
    {
    }
    const SelectionView& view() const { return mView; }

    /// The uppermost first.
    std::vector<AcDbObjectId> touching(const SelectionArea& area);
    std::vector<AcDbObjectId> inside(const SelectionArea& area);
    /// The uppermost one that meets the area; null when none does.
    AcDbObjectId uppermostTouching(const SelectionArea& area);
    /// The pick box around a point of the world.
    SelectionArea pickBox(const AcGePoint3d& point) const;

    /// The newest entity that is seen; null when there is none.
    AcDbObjectId lastSeen();
    /// The entities on layers that are not frozen, the uppermost first.
    std::vector<AcDbObjectId> thawed();
    LayerStates& layers() { return mLayers; }

private:
    using Entities = std::vector<const AcDbEntity*>;
    const Entities& candidates();
    const Entities& near(const SelectionArea& area);
    void dropUnseen(Entities& entities);
    bool isSeen(const AcDbEntity& entity);
    template <class Judge>
    std::vector<AcDbObjectId> search(const SelectionArea& area, std::size_t most, Judge judge);

    AcDbDatabase& mDatabase;
    SelectionView mView;
    LayerStates mLayers;
    Entities mCandidates, mNear;
    bool mHasCandidates = false;
};
} // namespace ed
