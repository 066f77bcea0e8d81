#include "dbsortentstbl.h"

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "Stub.h"
#include "dbblock.h"

#include <algorithm>
#include <unordered_set>

ACDB_DXF_CLASS(AcDbSortentsTable, AcDbObject, SORTENTSTABLE)

struct SortentsAccess {
    /// An entity (331) and its sort handle (5).
    static void readPair(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        AcDbStub* entity = source.stubOf(static_cast<std::uint64_t>(source.peek()->integer));
        source.take();
        const DxfGroup* handle = source.peek();
        if (!handle || !handle->is(5)) return;
        if (entity) {
            auto& table = static_cast<AcDbSortentsTable&>(object);
            table.mIndex.emplace(entity, table.mPairs.size());
            table.mPairs.push_back({entity, static_cast<std::uint64_t>(handle->integer)});
        }
        source.take();
    }

    static void writePairs(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        for (const auto& [entity, handle] : static_cast<const AcDbSortentsTable&>(object).mPairs) {
            if (entity.isErased()) continue;
            sink.handle(field.code, entity);
            sink.rawHandle(5, handle);
        }
    }
};

const DxfClass AcDbSortentsTable::dxf("AcDbSortentsTable", nullptr,
                                      {
                                          dxf::reference<&AcDbSortentsTable::mBlock>(330),
                                          dxf::custom(331, SortentsAccess::readPair, SortentsAccess::writePairs),
                                      });

AcDbObjectId AcDbSortentsTable::blockId() const
{
    if (!mBlock.isNull()) return mBlock;
    const AcDbObject* dictionary = residentObject(ownerId());
    return dictionary ? dictionary->ownerId() : AcDbObjectId();
}

bool AcDbSortentsTable::isRelativeDrawOrderUsed() const
{
    return std::any_of(mPairs.begin(), mPairs.end(),
                       [](const auto& pair) { return pair.second != pair.first.handle().value(); });
}

std::uint64_t AcDbSortentsTable::sortHandle(AcDbObjectId id) const
{
    const auto found = mIndex.find(id);
    return found == mIndex.end() ? id.handle().value() : mPairs[found->second].second;
}

void AcDbSortentsTable::setSortHandle(AcDbObjectId id, std::uint64_t handle)
{
    const auto found = mIndex.find(id);
    if (found != mIndex.end()) {
        mPairs[found->second].second = handle;
    } else if (handle != id.handle().value()) {
        mIndex.emplace(id, mPairs.size());
        mPairs.push_back({id, handle});
    }
}

void AcDbSortentsTable::getSortHandle(AcDbObjectId id, AcDbHandle& handle) const
{
    handle = AcDbHandle(sortHandle(id));
}

void AcDbSortentsTable::sort(Order& order) const
{
    std::vector<std::pair<std::uint64_t, AcDbObjectId>> keyed;
    keyed.reserve(order.size());
    for (const AcDbObjectId id : order) keyed.push_back({sortHandle(id), id});
    const auto isLower = [](const auto& a, const auto& b) { return a.first < b.first; };
    // Blocks are mostly in order already.
    if (!std::is_sorted(keyed.begin(), keyed.end(), isLower)) std::stable_sort(keyed.begin(), keyed.end(), isLower);
    std::transform(keyed.begin(), keyed.end(), order.begin(), [](const auto& key) { return key.second; });
}

Acad::ErrorStatus AcDbSortentsTable::currentOrder(Order& order) const
{
    const auto* block = AcDbBlockTableRecord::cast(residentObject(blockId()));
    if (!block) return Acad::eInvalidOwnerObject;
    std::copy_if(block->entityIds().begin(), block->entityIds().end(), std::back_inserter(order),
                 [](AcDbObjectId id) { return !id.isErased(); });
    sort(order);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSortentsTable::take(const AcDbObjectIdArray& ids, Order& taken) const
{
    const AcDbObjectId block = blockId();
    if (!AcDbBlockTableRecord::cast(residentObject(block))) return Acad::eInvalidOwnerObject;
    if (ids.isEmpty()) return Acad::eInvalidInput;
    for (int i = 0; i < ids.length(); ++i) {
        const AcDbObject* entity = residentObject(ids[i]);
        if (!entity || ids[i].isErased() || entity->ownerId() != block) return Acad::eNotInBlock;
        taken.push_back(ids[i]);
    }
    sort(taken);
    taken.erase(std::unique(taken.begin(), taken.end()), taken.end());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSortentsTable::move(const AcDbObjectIdArray& ids, AcDbObjectId target, bool above)
{
    Order order, taken;
    Acad::ErrorStatus status = take(ids, taken);
    if (status == Acad::eOk) status = currentOrder(order);
    if (status != Acad::eOk) return status;
    const std::unordered_set<AcDbObjectId> isTaken(taken.begin(), taken.end());
    order.erase(std::remove_if(order.begin(), order.end(), [&](AcDbObjectId id) { return isTaken.count(id) != 0; }),
                order.end());
    auto place = above ? order.end() : order.begin();
    if (!target.isNull()) {
        place = std::find(order.begin(), order.end(), target);
        if (place == order.end()) return isTaken.count(target) ? Acad::eInvalidInput : Acad::eNotInBlock;
        if (above) ++place;
    }
    order.insert(place, taken.begin(), taken.end());
    return assignHandles(order);
}

Acad::ErrorStatus AcDbSortentsTable::assignHandles(const Order& order)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    std::vector<std::uint64_t> handles;
    handles.reserve(order.size());
    for (const AcDbObjectId id : order) handles.push_back(sortHandle(id));
    std::sort(handles.begin(), handles.end());
    for (std::size_t i = 0; i < order.size(); ++i) setSortHandle(order[i], handles[i]);
    return status;
}

Acad::ErrorStatus AcDbSortentsTable::moveToTop(const AcDbObjectIdArray& ids) { return move(ids, AcDbObjectId(), true); }

Acad::ErrorStatus AcDbSortentsTable::moveToBottom(const AcDbObjectIdArray& ids)
{
    return move(ids, AcDbObjectId(), false);
}

Acad::ErrorStatus AcDbSortentsTable::moveAbove(const AcDbObjectIdArray& ids, AcDbObjectId target)
{
    return target.isNull() ? Acad::eNullObjectId : move(ids, target, true);
}

Acad::ErrorStatus AcDbSortentsTable::moveBelow(const AcDbObjectIdArray& ids, AcDbObjectId target)
{
    return target.isNull() ? Acad::eNullObjectId : move(ids, target, false);
}

Acad::ErrorStatus AcDbSortentsTable::swapOrder(AcDbObjectId left, AcDbObjectId right)
{
    AcDbObjectIdArray both;
    both.append(left);
    both.append(right);
    Order taken;
    Acad::ErrorStatus status = take(both, taken);
    if (status == Acad::eOk) status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    const std::uint64_t handle = sortHandle(left);
    setSortHandle(left, sortHandle(right));
    setSortHandle(right, handle);
    return status;
}

Acad::ErrorStatus AcDbSortentsTable::setRelativeDrawOrder(const AcDbObjectIdArray& ids)
{
    Order taken;
    const Acad::ErrorStatus status = take(ids, taken);
    if (status != Acad::eOk) return status;
    if (static_cast<int>(taken.size()) != ids.length()) return Acad::eInvalidInput; // an id stands twice
    Order wanted;
    for (int i = 0; i < ids.length(); ++i) wanted.push_back(ids[i]);
    return assignHandles(wanted);
}

Acad::ErrorStatus AcDbSortentsTable::getFullDrawOrder(AcDbObjectIdArray& ids, unsigned char) const
{
    Order order;
    const Acad::ErrorStatus status = currentOrder(order);
    if (status != Acad::eOk) return status;
    ids.removeAll();
    for (const AcDbObjectId id : order) ids.append(id);
    return status;
}

Acad::ErrorStatus AcDbSortentsTable::getRelativeDrawOrder(AcDbObjectIdArray& ids, unsigned char) const
{
    Order taken;
    const Acad::ErrorStatus status = take(ids, taken);
    if (status != Acad::eOk) return status;
    ids.removeAll();
    for (const AcDbObjectId id : taken) ids.append(id);
    return status;
}

Acad::ErrorStatus AcDbSortentsTable::firstEntityIsDrawnBeforeSecond(AcDbObjectId first, AcDbObjectId second,
                                                                    bool& isBefore) const
{
    AcDbObjectIdArray both;
    both.append(first);
    both.append(second);
    const Acad::ErrorStatus status = getRelativeDrawOrder(both);
    if (status == Acad::eOk) isBefore = first != second && both[0] == first;
    return status;
}
