/// Making objects from lists.

#include "BlockAccess.h"
#include "DatabaseState.h"
#include "DxfFields.h"
#include "EntityAccess.h"
#include "EntityLists.h"
#include "ResbufSource.h"
#include "Stub.h"
#include "acdbads.h"
#include "dbblock.h"

namespace
{
/// What was begun and is not complete: an entity that waits for its SEQEND, a block for its ENDBLK.
struct Unfinished {
    AcDbDatabase* database = nullptr;
    AcDbObjectId entity, block;
};

Unfinished& unfinished()
{
    static Unfinished state;
    if (state.database != workingDatabase()) state = {workingDatabase(), {}, {}};
    return state;
}

/// A list for making: what names an object that was is passed over, and the space is noted.
class MakingSource : public ResbufSource
{
public:
    MakingSource(std::vector<const resbuf*> nodes, AcDbDatabase& database)
        : ResbufSource(std::move(nodes), &database)
    {
    }
    void paperSpace(bool isPaperSpace) override { mIsPaperSpace = isPaperSpace; }
    bool isPaperSpace() const { return mIsPaperSpace; }

private:
    bool mIsPaperSpace = false;
};

std::vector<const resbuf*> contentsOf(const resbuf* list)
{
    std::vector<const resbuf*> nodes;
    bool isInSection = false;
    for (; list && list->restype != -3; list = list->rbnext) {
        const int code = list->restype;
        isInSection |= code == 100;
        const bool isFrame = code <= 0 || (!isInSection && (code == 5 || code == 330 || code == 102 || code == 360));
        if (!isFrame) nodes.push_back(list);
    }
    return nodes;
}

AcDbObjectId append(AcDbObjectId blockId, AcDbEntity& entity)
{
    AcDbObjectId id;
    AcDbBlockTableRecord* block = nullptr;
    if (acdbOpenObject(block, blockId, AcDb::kForWrite) != Acad::eOk) return id;
    block->appendAcDbEntity(id, &entity);
    block->close();
    return id;
}

/// Gives a vertex, an attribute or an end mark to the entity that waits for it.
AcDbObjectId appendTo(AcDbObjectId ownerId, AcDbEntity& entity)
{
    AcDbObjectId id;
    AcDbEntity* owner = nullptr;
    if (acdbOpenObject(owner, ownerId, AcDb::kForWrite) != Acad::eOk) return id;
    owner->database()->addAcDbObject(id, &entity, ownerId);
    EntityAccess::resolveProperties(entity);
    DbSubentities& list = *owner->subentities();
    if (entity.isKindOf(AcDbSequenceEnd::desc())) {
        // The mark that the owner was given when it was added makes way for the one that the caller names.
        if (AcDbStub* given = list.sequenceEnd) given->erased = true;
        list.sequenceEnd = id;
        owner->completeRead();
    } else {
        list.ids.push_back(id);
    }
    owner->close();
    return id;
}

bool startsSequence(AcDbEntity& entity, const resbuf* list)
{
    if (!entity.subentities()) return false;
    const CString kind = kindOf(list);
    if (kind.CompareNoCase(L"POLYLINE") == 0) return true;
    while (list && list->restype != 66) list = list->rbnext;
    return list && list->resval.rint != 0;
}

/// Where an entity of a list goes; the state of what is unfinished follows.
AcDbObjectId place(AcDbEntity& entity, const resbuf* list, bool isInPaperSpace)
{
    Unfinished& state = unfinished();
    if (!state.entity.isNull()) {
        const AcDbObjectId id = appendTo(state.entity, entity);
        if (entity.isKindOf(AcDbSequenceEnd::desc())) state.entity.setNull();
        return id;
    }
    const DatabaseState& database = DatabaseAccess::of(*state.database);
    const AcDbObjectId space = isInPaperSpace ? database.paperSpace : state.database->currentSpaceId();
    const AcDbObjectId id = append(state.block.isNull() ? space : state.block, entity);
    if (!id.isNull() && startsSequence(entity, list)) state.entity = id;
    return id;
}

int addMade(std::unique_ptr<AcDbObject> object, const resbuf* list, bool isInPaperSpace, ads_name result)
{
    AcDbObjectId id;
    auto* entity = AcDbEntity::cast(object.get());
    if (entity) {
        id = place(*entity, list, isInPaperSpace);
    } else {
        workingDatabase()->addAcDbObject(id, object.get());
    }
    if (id.isNull()) return RTERROR;
    AcDbObject* made = object.release();
    const resbuf* data = xdataOf(list);
    const bool isWhole = !data || !data->rbnext || made->setXData(data) == Acad::eOk;
    if (isWhole) {
        made->close();
    } else {
        made->cancel();
    }
    return isWhole ? giveName(id, result) : RTREJ;
}

int beginBlock(const resbuf* list)
{
    AcDbDatabase& database = *workingDatabase();
    AcDbBlockBegin head;
    ResbufSource source(contentsOf(list), &database);
    dxfRead(head, source);
    AcDbBlockTable* table = nullptr;
    if (source.hasFault() || database.getBlockTable(table, AcDb::kForWrite) != Acad::eOk) return RTREJ;
    auto block = std::make_unique<AcDbBlockTableRecord>();
    Acad::ErrorStatus status = block->setName(BlockAccess::nameOf(head));
    BlockAccess::takeHead(*block, head);
    AcDbObjectId id;
    if (status == Acad::eOk) status = table->add(id, block.get());
    table->close();
    if (status != Acad::eOk) return RTERROR;
    block.release()->close();
    unfinished().block = id;
    return RTNORM;
}

int endBlock(ads_name result)
{
    Unfinished& state = unfinished();
    if (state.block.isNull()) return RTERROR;
    giveName(state.block, result);
    state.block.setNull();
    return RTKWORD;
}
} // namespace

std::unique_ptr<AcDbObject> objectOf(const resbuf* list, AcDbDatabase& database, bool& isInPaperSpace)
{
    const ACHAR* kind = kindOf(list);
    const AcRxClass* wanted = kind ? acrxClassOfDxfName(CString(kind).MakeUpper()) : nullptr;
    std::unique_ptr<AcRxObject> made(wanted ? wanted->create() : nullptr);
    std::unique_ptr<AcDbObject> object(AcDbObject::cast(made.get()));
    if (!object) return object;
    made.release();
    MakingSource source(contentsOf(list), database);
    dxfRead(*object, source);
    isInPaperSpace = source.isPaperSpace();
    if (source.hasFault()) object.reset();
    return object;
}

int acdbEntMakeX(const resbuf* list, ads_name result)
{
    AcDbDatabase* database = workingDatabase();
    if (!database || !list || !result) return RTERROR;
    const CString kind = kindOf(list);
    if (kind.CompareNoCase(L"BLOCK") == 0) return beginBlock(list);
    if (kind.CompareNoCase(L"ENDBLK") == 0) return endBlock(result);
    bool isInPaperSpace = false;
    std::unique_ptr<AcDbObject> object = objectOf(list, *database, isInPaperSpace);
    return object ? addMade(std::move(object), list, isInPaperSpace, result) : RTREJ;
}

int acdbEntMake(const resbuf* list)
{
    ads_name name;
    const ACHAR* kind = kindOf(list);
    const AcRxClass* wanted = kind ? acrxClassOfDxfName(CString(kind).MakeUpper()) : nullptr;
    return wanted && wanted->isDerivedFrom(AcDbEntity::desc()) ? acdbEntMakeX(list, name) : RTREJ;
}
