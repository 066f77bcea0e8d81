#pragma once

#include "dbidar.h"
#include "dbobject.h"

#include <unordered_map>
#include <utility>
#include <vector>

/// The draw order of the entities of a block, in its extension dictionary under "ACAD_SORTENTS".
///
/// Entities are drawn by rising sort handle; those without one have their own. Bringing an entity up or down gives the
/// entities concerned each other's handles, so that the rest of the block keeps its places. Statuses of the members
/// that take ids: eInvalidInput for an empty list, eNotInBlock for an id that is no entity of the block,
/// eInvalidOwnerObject when the table belongs to no block; nothing is changed then.
class AcDbSortentsTable : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbSortentsTable);
    ACDB_STATE_MEMBERS(AcDbSortentsTable)
    AcDbSortentsTable() = default;

    /// The block; that of the owner's owner while the table has not been told.
    AcDbObjectId blockId() const;
    void setBlockId(AcDbObjectId block) { assign(mBlock, block); }

    /// Above, or below, all other entities of the block. The entities keep their order among themselves.
    Acad::ErrorStatus moveToTop(const AcDbObjectIdArray& ids);
    Acad::ErrorStatus moveToBottom(const AcDbObjectIdArray& ids);
    /// Right above, or below, another entity, which is not one of them.
    Acad::ErrorStatus moveAbove(const AcDbObjectIdArray& ids, AcDbObjectId target);
    Acad::ErrorStatus moveBelow(const AcDbObjectIdArray& ids, AcDbObjectId target);
    Acad::ErrorStatus swapOrder(AcDbObjectId left, AcDbObjectId right);
    /// Puts the entities in the order of the list, in the places that they have together.
    Acad::ErrorStatus setRelativeDrawOrder(const AcDbObjectIdArray& ids);

    /// The entities of the block, the lowest first. The mask is for SORTENTS, which the database does not look at.
    Acad::ErrorStatus getFullDrawOrder(AcDbObjectIdArray& ids, unsigned char honorSortentsMask = 0) const;
    /// Puts a list of entities in their drawing order.
    Acad::ErrorStatus getRelativeDrawOrder(AcDbObjectIdArray& ids, unsigned char honorSortentsMask = 0) const;
    Acad::ErrorStatus firstEntityIsDrawnBeforeSecond(AcDbObjectId first, AcDbObjectId second, bool& isBefore) const;

    /// The sort handle of an entity: its own where the table has no other.
    void getSortHandle(AcDbObjectId id, AcDbHandle& handle) const;
    /// True when another order than that of the handles has been asked for.
    bool isRelativeDrawOrderUsed() const;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

private:
    friend struct SortentsAccess;
    using Order = std::vector<AcDbObjectId>;

    std::uint64_t sortHandle(AcDbObjectId id) const;
    void setSortHandle(AcDbObjectId id, std::uint64_t handle);
    void sort(Order& order) const;
    /// The living entities of the block in drawing order.
    Acad::ErrorStatus currentOrder(Order& order) const;
    /// Takes the entities out of the order and puts them in again, before or behind `target` (null: all others).
    Acad::ErrorStatus move(const AcDbObjectIdArray& ids, AcDbObjectId target, bool above);
    /// Entities of the block in drawing order, each once.
    Acad::ErrorStatus take(const AcDbObjectIdArray& ids, Order& taken) const;
    /// Deals the handles of the entities of `order` out anew, rising.
    Acad::ErrorStatus assignHandles(const Order& order);

    AcDbObjectId mBlock;
    std::vector<std::pair<AcDbObjectId, std::uint64_t>> mPairs; ///< entity and sort handle, in the order of the file
    std::unordered_map<AcDbObjectId, std::size_t> mIndex;       ///< of an entity's pair
};
