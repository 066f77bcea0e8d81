#pragma once

/// Finds the entities of a large space near a place without looking at all of them.

#include "BoxTree.h"
#include "dbdatabasereactor.h"
#include "EntityBoxes.h"
#include "MarkedRanks.h"

#include <memory>
#include <unordered_set>

class AcDbSortentsTable;

namespace ed
{
/// The boxes of a space's entities, in the plane of a view, in a tree that is made when the space is searched
/// a second time in the same plane and takes about 60 bytes for each entity. It lives with the drawing and
/// follows its changes: changed entities and new ones are looked at besides. When those are many the tree is
/// made anew; when something changes that other entities are drawn with (a block, a text style) it is thrown
/// away.
class SpaceIndex final : public AcDbDatabaseReactor
{
public:
    explicit SpaceIndex(AcDbDatabase& database) : mDatabase(database) {}

    /// That of the drawing's current space. Null when a look at all entities does as well: in small spaces,
    /// and at the first search since the space, the plane or what entities are drawn with has changed.
    static SpaceIndex* of(AcDbDatabase& database, const AcGeMatrix3d& toPlane);

    /// The living entities that may meet a box, the uppermost first; every one that does meet it is among
    /// them.
    const std::vector<const AcDbEntity*>& near(const PlaneBox& box);

    void objectAppended(const AcDbDatabase*, const AcDbObject* object) override;
    void objectReAppended(const AcDbDatabase*, const AcDbObject* object) override { noteChange(*object); }
    void objectOpenedForModify(const AcDbDatabase*, const AcDbObject* object) override
    {
        noteChange(*object);
    }
    void objectModified(const AcDbDatabase*, const AcDbObject* object) override { noteChange(*object); }
    void objectErased(const AcDbDatabase*, const AcDbObject* object, Adesk::Boolean) override
    {
        noteChange(*object);
    }
    void goodbye(const AcDbDatabase* database) override;

private:
    /// Fewer entities are looked at in less time than a tree saves.
    static constexpr std::size_t kSmallest = 2000;

    bool isReady(const AcGeMatrix3d& toPlane);
    bool isCurrent();
    void build();
    void drop();
    void noteChange(const AcDbObject& object);
    void noteEntity(const AcDbEntity& entity);
    bool placeChanged();
    std::size_t newest() const;
    void take(AcDbObjectId id);

    AcDbDatabase& mDatabase;
    AcDbObjectId mSpace;
    AcGeMatrix3d mToPlane;
    bool mWasAsked = false;

    // Ranks count from the uppermost entity.
    std::unique_ptr<kernel::BoxTree> mTree;
    std::vector<AcDbObjectId> mIds;            ///< by rank, erased ones too
    std::vector<std::uint32_t> mBoxed;         ///< ranks of what the tree holds
    std::vector<std::uint32_t> mBeside;        ///< ranks of what has no box, or not that in the tree
    const AcDbSortentsTable* mOrder = nullptr; ///< by which they were ranked; compared only
    std::size_t mListed = 0;                   ///< how many entities the space had
    std::unordered_set<AcDbStub*> mChanged;    ///< entities that have changed since
    std::unordered_set<AcDbStub*> mUnplaced;   ///< those of them whose rank is not known yet
    std::unordered_set<AcDbStub*> mNewBlocks;
    MarkedRanks mMarked; ///< by the search that runs
    std::vector<const AcDbEntity*> mNear;
};
} // namespace ed
