#include "BlockCopy.h"

#include "BlockAccess.h"
#include "DbObjectAccess.h"
#include "dbproxy.h"
#include "DictionaryAccess.h"
#include "EntityAccess.h"
#include "ObjectNotices.h"
#include "PackedRecords.h"

namespace
{
/// Gives the groups of an original with the handles of what was copied with it exchanged.
class CopySource final : public PackedSource
{
public:
    CopySource(const PackedGroups& groups, AcDbDatabase& database, const CopiedIds& copies)
        : PackedSource(groups, &database), mCopies(copies)
    {
        PackedSource::take(); // the name of the record
    }
    /// Handles in extended data are not asked for as objects: they are exchanged here.
    const DxfGroup* peek() override
    {
        const DxfGroup* group = PackedSource::peek();
        if (!group || !group->is(1005)) return group;
        mExchanged = *group;
        const AcDbStub* stub = stubOf(static_cast<std::uint64_t>(group->integer));
        if (stub) mExchanged.integer = static_cast<std::int64_t>(stub->handle);
        return &mExchanged;
    }
    AcDbStub* stubOf(std::uint64_t handle) override
    {
        AcDbStub* stub = PackedSource::stubOf(handle);
        const auto at = mCopies.find(stub);
        return at == mCopies.end() ? stub : static_cast<AcDbStub*>(at->second);
    }

private:
    const CopiedIds& mCopies;
    DxfGroup mExchanged;
};

/// Copies in two passes: first every copy gets its id, then it is read from the groups of its original.
class Copier
{
public:
    explicit Copier(AcDbDatabase& database) : mDatabase(database) {}

    AcDbObjectId add(AcDbObject& original, AcDbObjectId owner)
    {
        const AcDbObjectId id = DatabaseAccess::of(mDatabase).stubs.add();
        mCopies[original.objectId()] = id;
        mPlanned.push_back({&original, id, owner});
        addOwned(original, id);
        return id;
    }

    CopiedIds copy()
    {
        for (const Planned& one : mPlanned)
            read(one);
        for (const Planned& one : mPlanned)
            finish(one);
        return std::move(mCopies);
    }

private:
    struct Planned {
        AcDbObject* original;
        AcDbObjectId id, owner;
    };

    void addLiving(AcDbObjectId original, AcDbObjectId owner)
    {
        if (residentObject(original) && !original.isErased()) add(*residentObject(original), owner);
    }

    void addOwned(AcDbObject& original, AcDbObjectId copy)
    {
        addLiving(original.extensionDictionary(), copy);
        if (const auto* dictionary = AcDbDictionary::cast(&original))
            DictionaryAccess::forEach(*dictionary,
                                      [&](const CString&, AcDbObjectId id, int) { addLiving(id, copy); });
        auto* entity = AcDbEntity::cast(&original);
        const DbSubentities* list = entity ? entity->subentities() : nullptr;
        if (!list) return;
        for (const AcDbObjectId id : list->ids)
            addLiving(id, copy);
        addLiving(list->sequenceEnd, copy);
    }

    static AcDbObject* makeLike(const AcDbObject& original)
    {
        if (AcDbProxyEntity::cast(&original)) return new AcDbProxyEntity(original.dxfRecordName());
        if (AcDbProxyObject::cast(&original)) return new AcDbProxyObject(original.dxfRecordName());
        return static_cast<AcDbObject*>(original.isA()->create());
    }

    void read(const Planned& one)
    {
        PackedSink sink;
        dxfWriteRecord(*one.original, sink);
        AcDbObject* copy = makeLike(*one.original);
        CopySource source(sink.groups, mDatabase, mCopies);
        dxfRead(*copy, source);
        DbObjectAccess::makeResident(*copy, *static_cast<AcDbStub*>(one.id), one.owner);
    }

    void finish(const Planned& one)
    {
        AcDbObject& copy = *residentObject(one.id);
        auto* entity = AcDbEntity::cast(&copy);
        const DbSubentities* list = entity ? AcDbEntity::cast(one.original)->subentities() : nullptr;
        if (list) takeList(*entity, *list);
        if (entity) entity->completeRead();
        notices::appended(copy);
        DbObjectAccess::settle(copy);
    }

    void takeList(AcDbEntity& copy, const DbSubentities& original)
    {
        DbSubentities& list = *copy.subentities();
        list.fileNamesBlockAsOwner = original.fileNamesBlockAsOwner;
        for (const AcDbObjectId id : original.ids) {
            if (mCopies.count(id)) list.ids.push_back(mCopies[id]);
        }
        if (mCopies.count(original.sequenceEnd)) list.sequenceEnd = mCopies[original.sequenceEnd];
    }

    AcDbDatabase& mDatabase;
    CopiedIds mCopies;
    std::vector<Planned> mPlanned;
};
} // namespace

CopiedIds copyEntities(const AcDbBlockTableRecord& from, AcDbBlockTableRecord& to)
{
    return copyEntities(from.entityIds(), to);
}

CopiedIds copyEntities(const std::vector<AcDbObjectId>& entities, AcDbBlockTableRecord& to)
{
    Copier copier(*to.database());
    for (const AcDbObjectId id : entities) {
        if (id.isValid() && !id.isErased())
            BlockAccess::list(to, copier.add(*residentObject(id), to.objectId()));
    }
    return copier.copy();
}
