#pragma once

/// What acdbEntMake has begun and cannot add to the drawing yet: an entity that waits for its vertices or
/// attributes and the SEQEND, a block that waits for its ENDBLK. Nothing of it is in the drawing before it is
/// whole.

#include "dbblock.h"
#include "dbdatabasereactor.h"
#include "PackedGroups.h"

#include <memory>
#include <vector>

/// An entity of a list with its extended data and with what was listed behind it.
struct MadeEntity {
    std::unique_ptr<AcDbEntity> entity;
    PackedGroups xdata;
    bool isInPaperSpace = false;
    std::vector<MadeEntity> followers; ///< vertices or attributes, at last the end mark
};

class UnfinishedEntities : public AcDbDatabaseReactor
{
public:
    /// That of the working database, which is not null.
    static UnfinishedEntities& current();

    bool isEmpty() const { return !mOwner.entity && !mBlock; }
    /// The entity that waits for followers; null for none.
    const AcDbEntity* owner() const { return mOwner.entity.get(); }
    /// Gives up what was begun.
    void clear();

    /// Adds an entity to the drawing, to what waits for it, or keeps it as one that waits. `id` is null for
    /// all but the first, and for an end mark that of the entity that it completes. RTREJ for an entity that
    /// what was begun cannot hold, or that can only follow another; RTERROR when the drawing does not take
    /// it.
    int take(MadeEntity made, bool startsSequence, AcDbObjectId& id);
    /// Begins a block; RTREJ inside of one and for a name that no block may have.
    int beginBlock(const AcDbBlockBegin& head);
    /// Adds the block, or puts its contents in place of those of the block of that name. RTKWORD.
    int endBlock(AcDbObjectId& id);

    void goodbye(const AcDbDatabase* database) override;

private:
    int follow(MadeEntity made, AcDbObjectId& id);
    int settle(MadeEntity made, AcDbObjectId& id);

    AcDbDatabase* mDatabase = nullptr;
    MadeEntity mOwner;
    std::unique_ptr<AcDbBlockTableRecord> mBlock;
    std::vector<MadeEntity> mContents; ///< of the block
};
