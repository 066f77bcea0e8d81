/// Parts of a drawing, and all of it, as drawings of their own.

#include "CopyObjects.h"
#include "CopyRun.h"
#include "CopyTransform.h"
#include "dbdatabase.h"
#include "dbdict.h"
#include "dbgroup.h"
#include "dbsortentstbl.h"
#include "DictionaryAccess.h"
#include "DrawingEvents.h"
#include "DrawOrder.h"
#include "PlanarCoords.h"
#include "WholeCopy.h"

#include <algorithm>

namespace
{
/// A new drawing with the settings of another one.
std::unique_ptr<AcDbDatabase> newLike(const AcDbDatabase& original)
{
    auto made = std::make_unique<AcDbDatabase>(true, true);
    DatabaseState& state = DatabaseAccess::of(*made);
    const DatabaseState& from = DatabaseAccess::of(original);
    state.header.takeSettings(from.header);
    state.header.setPoint("$INSBASE", AcGePoint3d::kOrigin);
    state.header.setInteger("$TILEMODE", 1);
    state.codePage = from.codePage;
    state.cecolor = from.cecolor;
    return made;
}

/// The layer, linetype and styles of new entities come along.
void addCurrent(CopySession& session)
{
    const DatabaseState& from = DatabaseAccess::of(session.from());
    for (const AcDbObjectId id : {from.clayer, from.celtype, from.textstyle, from.dimstyle}) {
        if (id.isValid() && !id.isErased()) session.addRecord(id);
    }
}

void takeCurrent(const CopySession& session)
{
    const DatabaseState& from = DatabaseAccess::of(session.from());
    DatabaseState& to = DatabaseAccess::of(session.to());
    using IdMember = AcDbObjectId DatabaseState::*;
    for (const IdMember member :
         {&DatabaseState::clayer, &DatabaseState::celtype, &DatabaseState::textstyle, &DatabaseState::dimstyle}) {
        const AcDbObjectId copy = session.copyOf(from.*member);
        if (copy.isValid()) to.*member = copy;
    }
}

/// Groups that are copied whole stay groups.
void addGroups(CopySession& session)
{
    const auto* groups = AcDbDictionary::cast(residentObject(session.from().groupDictionaryId()));
    const AcDbObjectId to = session.to().groupDictionaryId();
    if (!groups || to.isNull()) return;
    DictionaryAccess::forEach(*groups, [&](const CString&, AcDbObjectId id, int) {
        const auto* group = id.isErased() ? nullptr : AcDbGroup::cast(residentObject(id));
        if (!group) return;
        AcDbObjectIdArray members;
        group->allEntityIds(members);
        bool isWhole = !members.isEmpty();
        for (int i = 0; i < members.length(); ++i)
            isWhole = isWhole && !session.copyOf(members[i]).isNull();
        if (isWhole) session.addEntry(id, to);
    });
}

/// A copying out of a drawing with the notices of it.
class Extraction
{
public:
    /// With `isNew` the destination gets the current layer, linetype and styles, too.
    Extraction(AcDbDatabase& from, AcDbDatabase& to, AcDb::DuplicateRecordCloning duplicates, bool isNew)
        : mFrom(from), mTo(to), mIsNew(isNew),
          mSession(CopyRun::begin(from, to, mMap, AcDb::kDcWblock, duplicates))
    {
    }
    CopySession& session() { return *mSession; }

    Acad::ErrorStatus finish()
    {
        if (mIsNew) addCurrent(*mSession);
        const Acad::ErrorStatus status = CopyRun::finish(*mSession, mMap);
        if (mIsNew && status == Acad::eOk) takeCurrent(*mSession);
        events::tell([&](AcRxEventReactor& reactor) {
            if (status != Acad::eOk) return reactor.abortWblock(&mTo);
            reactor.otherWblock(&mTo, mMap, &mFrom);
            reactor.endWblock(&mTo);
        });
        return status;
    }

private:
    AcDbDatabase& mFrom;
    AcDbDatabase& mTo;
    bool mIsNew;
    AcDbIdMapping mMap;
    std::unique_ptr<CopySession> mSession;
};

void notice(AcDbDatabase& from)
{
    events::tell([&](AcRxEventReactor& reactor) { reactor.wblockNotice(&from); });
}

/// Entities in the order in which they are drawn, if they are of one block.
void sortAsDrawn(std::vector<AcDbObjectId>& entities)
{
    if (entities.empty()) return;
    const AcDbObjectId owner = residentObject(entities.front())->ownerId();
    const auto* block = AcDbBlockTableRecord::cast(residentObject(owner));
    const AcDbSortentsTable* order = block ? drawOrderOf(*block) : nullptr;
    if (!order) return;
    AcDbObjectIdArray ids;
    for (const AcDbObjectId id : entities)
        ids.append(id);
    AcDbObjectIdArray sorted = ids;
    if (order->getRelativeDrawOrder(sorted) != Acad::eOk) return; // of several blocks
    for (int i = 0; i < sorted.length(); ++i)
        entities[static_cast<std::size_t>(i)] = sorted[i];
}

/// Copies entities into the model space of a drawing.
Acad::ErrorStatus extract(AcDbDatabase& from, AcDbDatabase& to, const std::vector<AcDbObjectId>& entities,
                          const AcGePoint3d& basePoint, AcDb::DuplicateRecordCloning duplicates, bool isNew)
{
    const AcGePoint3d* asked = &basePoint;
    notice(from);
    events::tell([&](AcRxEventReactor& reactor) { reactor.beginWblock(&to, &from, asked); });
    const AcGeVector3d offset = AcGePoint3d::kOrigin - *asked;
    Extraction extraction(from, to, duplicates, isNew);
    CopySession& session = extraction.session();
    for (const AcDbObjectId id : entities)
        session.addEntity(id, to.modelSpaceId());
    addGroups(session);
    const Acad::ErrorStatus status = extraction.finish();
    if (status == Acad::eOk && !offset.isZeroLength())
        transformAll(session.copiedEntities(to.modelSpaceId()), AcGeMatrix3d::translation(offset));
    return status;
}

Acad::ErrorStatus collectEntities(const AcDbDatabase& database, const AcDbObjectIdArray& ids,
                                  AcDbObjectId modelSpace, std::vector<AcDbObjectId>& entities)
{
    Acad::ErrorStatus status = collectLiving(database, ids, entities);
    for (std::size_t i = 0; status == Acad::eOk && i < entities.size(); ++i)
        status = checkOwner(*residentObject(entities[i]), modelSpace);
    if (status == Acad::eOk) sortAsDrawn(entities);
    return status;
}

/// A new drawing whose contents are copied by `fill(session)`.
template <class Fill>
Acad::ErrorStatus extractNew(AcDbDatabase& from, AcDbDatabase*& output, Fill fill)
{
    output = nullptr;
    auto made = newLike(from);
    const Acad::ErrorStatus status = fill(*made);
    if (status != Acad::eOk) return status;
    made->updateExt();
    output = made.release();
    return status;
}
} // namespace

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase*& output, const AcDbObjectIdArray& ids,
                                       const AcGePoint3d& basePoint)
{
    output = nullptr;
    std::vector<AcDbObjectId> entities;
    const Acad::ErrorStatus status = collectEntities(*this, ids, modelSpaceId(), entities);
    if (status != Acad::eOk) return status;
    if (!isFinite(basePoint)) return Acad::eInvalidInput;
    return extractNew(*this, output, [&](AcDbDatabase& to) {
        return extract(*this, to, entities, basePoint, AcDb::kDrcReplace, true);
    });
}

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase* output, const AcDbObjectIdArray& ids,
                                       const AcGePoint3d& basePoint, AcDb::DuplicateRecordCloning drc)
{
    if (!output) return Acad::eNoDatabase;
    if (output == this) return Acad::eWrongDatabase;
    if (drc < AcDb::kDrcIgnore || drc > AcDb::kDrcUnmangleName || !isFinite(basePoint)) return Acad::eInvalidInput;
    std::vector<AcDbObjectId> entities;
    const Acad::ErrorStatus status = collectEntities(*this, ids, modelSpaceId(), entities);
    return status == Acad::eOk ? extract(*this, *output, entities, basePoint, drc, false) : status;
}

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase*& output, AcDbObjectId blockId)
{
    output = nullptr;
    const auto* block = AcDbBlockTableRecord::cast(residentObject(blockId));
    if (!block || blockId.isErased() || blockId.database() != this) return Acad::eInvalidInput;
    return extractNew(*this, output, [&](AcDbDatabase& to) {
        notice(*this);
        events::tell([&](AcRxEventReactor& reactor) { reactor.beginWblock(&to, this, blockId); });
        Extraction extraction(*this, to, AcDb::kDrcReplace, true);
        extraction.session().addBlock(blockId, ACDB_MODEL_SPACE);
        Acad::ErrorStatus status = extraction.finish();
        if (status == Acad::eOk) status = to.setInsbase(block->origin());
        if (status == Acad::eOk && !block->isLayout()) status = to.setInsunits(block->blockInsertUnits());
        return status;
    });
}

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase*& output)
{
    output = nullptr;
    auto made = std::make_unique<AcDbDatabase>(false, true);
    notice(*this);
    events::tell([&](AcRxEventReactor& reactor) { reactor.beginWblock(made.get(), this); });
    AcDbIdMapping map;
    WholeCopy copy(*this, *made, map);
    const Acad::ErrorStatus status = copy.planAll();
    if (status != Acad::eOk) {
        events::tell([&](AcRxEventReactor& reactor) { reactor.abortWblock(made.get()); });
        return status;
    }
    copy.carryOutAll();
    events::tell([&](AcRxEventReactor& reactor) {
        reactor.otherWblock(made.get(), map, this);
        reactor.endWblock(made.get());
    });
    output = made.release();
    return status;
}
