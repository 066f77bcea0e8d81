#pragma once

/// The entities of one selection set.

#include "dbid.h"
#include "gepnt3d.h"
#include "gevec3d.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace ed
{
/// What a selection that added entities looked like.
struct SelectionCause {
    enum class Kind { unknown, pick, window, crossing, fence };
    Kind kind = Kind::unknown;
    std::vector<AcGePoint3d> points; ///< the point, the corners or the fence, in world coordinates
    AcGeVector3d viewDirection{0.0, 0.0, 1.0};
};

/// An ordered set. Adding, finding and removing take constant time; so does going from place to place, also between
/// removals.
class SelectionSet
{
public:
    SelectionSet() = default;
    /// Ids that differ from each other.
    explicit SelectionSet(std::vector<AcDbObjectId> ids, SelectionCause cause = {});

    std::size_t size() const { return mIds.size() - mHoles; }
    bool empty() const { return size() == 0; }
    /// The id at a place below size().
    AcDbObjectId at(std::size_t place) const { return mIds[slotOf(place)]; }
    const SelectionCause& causeAt(std::size_t place) const;
    bool contains(AcDbObjectId id) const { return index().count(id) != 0; }
    std::vector<AcDbObjectId> ids() const;

    /// False when it is there already.
    bool add(AcDbObjectId id);
    /// Adds it also when it is there.
    void addAgain(AcDbObjectId id);
    /// False when it is not there. Each time that it is there is removed.
    bool remove(AcDbObjectId id);
    void clear() { *this = SelectionSet(); }

    /// What is added from now on comes from this.
    void setCause(SelectionCause cause);

private:
    using Index = std::unordered_map<AcDbObjectId, std::size_t>;

    std::size_t slotOf(std::size_t place) const;
    const Index& index() const;
    void leaveHole(std::size_t slot);
    void compact();

    std::vector<AcDbObjectId> mIds; ///< null where one was removed
    std::size_t mHoles = 0;
    bool mHasDoubles = false;
    std::vector<std::uint32_t> mCauseOf; ///< of each slot; empty while there are no causes
    std::vector<SelectionCause> mCauses{1};
    mutable Index mIndex; ///< made when it is first asked
    mutable bool mIsIndexed = false;
    /// The slot that was asked for last, and how many ids stand before it.
    mutable std::size_t mSlot = 0, mBefore = 0;
};
} // namespace ed
