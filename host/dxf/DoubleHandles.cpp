#include "DoubleHandles.h"

#include "BlockAccess.h"
#include "DbObjectAccess.h"
#include "DictionaryAccess.h"
#include "LayoutAccess.h"

#include <algorithm>
#include <map>

namespace dxf
{
namespace
{
bool canBeEntry(const AcDbObject& object)
{
    return !object.isKindOf(AcDbEntity::desc()) && !object.isKindOf(AcDbSymbolTable::desc()) &&
           !object.isKindOf(AcDbSymbolTableRecord::desc());
}

class Settlement
{
public:
    explicit Settlement(ReadContext& context) : mContext(context)
    {
        for (const auto& [first, second] : context.doubles()) {
            mLost.emplace(second, first);
            if (second->object) note(first, *second);
        }
    }

    void settle()
    {
        for (AcDbStub& stub : mContext.state().stubs) {
            if (stub.object) settle(*stub.object);
        }
    }

private:
    using Stubs = std::vector<AcDbStub*>;
    using Owned = std::pair<AcDbStub*, AcDbStub*>; ///< who kept the handle, and the owner that the file names

    void note(AcDbStub* first, AcDbStub& second)
    {
        const AcDbObject& object = *second.object;
        if (object.isKindOf(AcDbLayout::desc())) mLayouts.emplace(first, &second);
        if (object.isKindOf(AcDbBlockTableRecord::desc())) mBlocks.emplace(first, &second);
        if (!canBeEntry(object)) return;
        Stubs& owned = mOwned[Owned(first, object.ownerId())];
        const bool isOwnedToo = first->object && first->object->ownerId() == object.ownerId();
        if (owned.empty() && isOwnedToo && canBeEntry(*first->object)) owned.push_back(first);
        owned.push_back(&second);
    }

    void settle(AcDbObject& object)
    {
        settleExtension(object);
        if (auto* dictionary = AcDbDictionary::cast(&object)) {
            settleEntries(*dictionary);
        } else if (auto* block = AcDbBlockTableRecord::cast(&object)) {
            settleReference<AcDbLayout>(BlockAccess::layout(*block), mLayouts);
        } else if (auto* layout = AcDbLayout::cast(&object)) {
            settleReference<AcDbBlockTableRecord>(LayoutAccess::block(*layout), mBlocks);
        }
    }

    /// What has the handle of `named`, or had it, and names the object as its owner; null when there is
    /// nothing.
    const Stubs* ownedBy(const AcDbObject& owner, AcDbStub* named) const
    {
        AcDbStub* const own = owner.objectId();
        const auto lost = mLost.find(own);
        auto at = mOwned.find(Owned(named, own));
        if (at == mOwned.end() && lost != mLost.end()) at = mOwned.find(Owned(named, lost->second));
        return at == mOwned.end() ? nullptr : &at->second;
    }

    void settleExtension(AcDbObject& object) const
    {
        DbObjectExtras* extras = DbObjectAccess::extras(object);
        const Stubs* owned = extras ? ownedBy(object, extras->extensionDictionary) : nullptr;
        if (!owned) return;
        const auto found = std::find_if(owned->begin(), owned->end(), [](const AcDbStub* stub) {
            return stub->object->isKindOf(AcDbDictionary::desc());
        });
        if (found != owned->end()) extras->extensionDictionary = *found;
    }

    /// Several entries of one handle mean the objects of that handle in turn.
    void settleEntries(AcDbDictionary& dictionary) const
    {
        std::unordered_map<AcDbStub*, std::size_t> turns;
        DictionaryAccess::retarget(dictionary, [&](AcDbStub* named) {
            const Stubs* owned = ownedBy(dictionary, named);
            AcDbStub* const meant = owned ? (*owned)[std::min(turns[named]++, owned->size() - 1)] : named;
            takeOver(dictionary, *meant);
            return meant;
        });
    }

    /// An entry may name its owner by the handle that the dictionary lost.
    void takeOver(const AcDbDictionary& dictionary, const AcDbStub& entry) const
    {
        const auto lost = mLost.find(dictionary.objectId());
        if (lost == mLost.end() || !entry.object || entry.object->ownerId() != AcDbObjectId(lost->second))
            return;
        if (canBeEntry(*entry.object)) DbObjectAccess::setOwner(*entry.object, dictionary.objectId());
    }

    template <class Class>
    static void settleReference(AcDbObjectId& id, const std::unordered_map<AcDbStub*, AcDbStub*>& seconds)
    {
        const auto at = seconds.find(id);
        if (at != seconds.end() && !Class::cast(residentObject(id))) id = at->second;
    }

    ReadContext& mContext;
    std::map<Owned, Stubs> mOwned;                  ///< what has a handle or had it, in the order of the file
    std::unordered_map<AcDbStub*, AcDbStub*> mLost; ///< who kept it, by what lost it
    std::unordered_map<AcDbStub*, AcDbStub*> mLayouts, mBlocks; ///< the first that lost it, by who kept it
};
} // namespace

void settleDoubles(ReadContext& context)
{
    if (!context.doubles().empty()) Settlement(context).settle();
}
} // namespace dxf
