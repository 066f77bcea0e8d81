#include "SelectionSet.h"

#include <algorithm>

namespace ed
{
SelectionSet::SelectionSet(std::vector<AcDbObjectId> ids, SelectionCause cause)
{
    if (cause.kind != SelectionCause::Kind::unknown) setCause(std::move(cause));
    mIds = std::move(ids);
    if (mCauses.size() > 1) mCauseOf.assign(mIds.size(), 1);
}

std::size_t SelectionSet::slotOf(std::size_t place) const
{
    if (mHoles == 0) return place;
    while (mBefore > place) mBefore -= mIds[--mSlot].isNull() ? 0 : 1;
    while (mBefore < place) mBefore += mIds[mSlot++].isNull() ? 0 : 1;
    while (mIds[mSlot].isNull()) ++mSlot;
    return mSlot;
}

const SelectionCause& SelectionSet::causeAt(std::size_t place) const
{
    return mCauseOf.empty() ? mCauses.front() : mCauses[mCauseOf[slotOf(place)]];
}

std::vector<AcDbObjectId> SelectionSet::ids() const
{
    std::vector<AcDbObjectId> all;
    all.reserve(size());
    std::copy_if(mIds.begin(), mIds.end(), std::back_inserter(all), [](AcDbObjectId id) { return !id.isNull(); });
    return all;
}

const SelectionSet::Index& SelectionSet::index() const
{
    if (mIsIndexed) return mIndex;
    mIndex.reserve(mIds.size());
    for (std::size_t slot = 0; slot < mIds.size(); ++slot) {
        if (!mIds[slot].isNull()) mIndex.emplace(mIds[slot], slot);
    }
    mIsIndexed = true;
    return mIndex;
}

bool SelectionSet::add(AcDbObjectId id)
{
    if (contains(id)) return false;
    addAgain(id);
    return true;
}

void SelectionSet::addAgain(AcDbObjectId id)
{
    index();
    if (!mIndex.emplace(id, mIds.size()).second) mHasDoubles = true;
    mIds.push_back(id);
    if (mCauses.size() > 1) mCauseOf.resize(mIds.size(), static_cast<std::uint32_t>(mCauses.size() - 1));
}

bool SelectionSet::remove(AcDbObjectId id)
{
    const auto found = index().find(id);
    if (found == mIndex.end()) return false;
    const std::size_t first = found->second;
    mIndex.erase(found);
    leaveHole(first);
    for (std::size_t slot = first + 1; mHasDoubles && slot < mIds.size(); ++slot) {
        if (mIds[slot] == id) leaveHole(slot);
    }
    if (mHoles > mIds.size() / 2) compact();
    return true;
}

void SelectionSet::leaveHole(std::size_t slot)
{
    mIds[slot].setNull();
    ++mHoles;
    if (slot < mSlot) --mBefore;
}

void SelectionSet::compact()
{
    std::size_t kept = 0;
    for (std::size_t slot = 0; slot < mIds.size(); ++slot) {
        if (mIds[slot].isNull()) continue;
        mIds[kept] = mIds[slot];
        if (!mCauseOf.empty()) mCauseOf[kept] = mCauseOf[slot];
        ++kept;
    }
    mIds.resize(kept);
    if (!mCauseOf.empty()) mCauseOf.resize(kept);
    mHoles = mSlot = mBefore = 0;
    mIndex.clear();
    mIsIndexed = false;
}

void SelectionSet::setCause(SelectionCause cause)
{
    mCauseOf.resize(mIds.size(), static_cast<std::uint32_t>(mCauses.size() - 1));
    mCauses.push_back(std::move(cause));
}
} // namespace ed
