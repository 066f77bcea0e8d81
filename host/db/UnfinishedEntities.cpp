#include "UnfinishedEntities.h"

#include "BlockAccess.h"
#include "DatabaseState.h"
#include "db2dpl.h"
#include "db3dpl.h"
#include "dbattrib.h"
#include "dbblkref.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "dbpolymesh.h"
#include "EntityAccess.h"
#include "EntityLists.h"
#include "Stub.h"

#include <deque>

namespace
{
bool isEndMark(const AcDbEntity& entity)
{
    return entity.isKindOf(AcDbSequenceEnd::desc());
}

/// Whether an entity stands only behind another one.
bool isFollower(const AcDbEntity& entity)
{
    return isEndMark(entity) || entity.isKindOf(AcDbVertex::desc()) || entity.isKindOf(AcDbAttribute::desc());
}

bool mayFollow(const AcDbEntity& owner, const AcDbEntity& follower)
{
    if (isEndMark(follower)) return true;
    if (owner.isKindOf(AcDbBlockReference::desc())) return follower.isKindOf(AcDbAttribute::desc());
    if (owner.isKindOf(AcDb2dPolyline::desc())) return follower.isKindOf(AcDb2dVertex::desc());
    if (owner.isKindOf(AcDb3dPolyline::desc())) return follower.isKindOf(AcDb3dPolylineVertex::desc());
    if (owner.isKindOf(AcDbPolygonMesh::desc())) return follower.isKindOf(AcDbPolygonMeshVertex::desc());
    return follower.isKindOf(AcDbPolyFaceMeshVertex::desc()) || follower.isKindOf(AcDbFaceRecord::desc());
}

/// Whether an entity has the followers that it cannot be without.
bool isWhole(const MadeEntity& made)
{
    const std::size_t count = made.followers.size() - 1; // but for the end mark
    if (const auto* mesh = AcDbPolygonMesh::cast(made.entity.get()))
        return count > 0 &&
               count >= static_cast<std::size_t>(mesh->mSize()) * static_cast<std::size_t>(mesh->nSize());
    return count > 0 || made.entity->isKindOf(AcDbBlockReference::desc());
}

/// Gives an entity of the drawing its extended data, which were checked when the list was read.
void takeXData(AcDbEntity& entity, const PackedGroups& xdata)
{
    if (xdata.empty()) return;
    ResbufSink sink(entity.database());
    writeGroups(xdata, sink);
    const ResbufList list(sink.release());
    entity.setXData(list.get());
}

/// Adds a follower to an entity that is open for write.
void addFollower(AcDbEntity& owner, MadeEntity made)
{
    AcDbObjectId id;
    owner.database()->addAcDbObject(id, made.entity.get(), owner.objectId());
    AcDbEntity& entity = *made.entity.release();
    EntityAccess::resolveProperties(entity);
    takeXData(entity, made.xdata);
    DbSubentities& list = *owner.subentities();
    if (isEndMark(entity)) {
        // The mark that the owner was given when it was added makes way for the one that the caller names.
        if (AcDbStub* given = list.sequenceEnd) given->erased = true;
        list.sequenceEnd = id;
    } else {
        list.ids.push_back(id);
    }
    entity.close();
}

/// Texts that name no style are made with the current one, unlike those of files.
void takeCurrentStyle(AcDbEntity& entity)
{
    if (auto* text = AcDbText::cast(&entity)) text->setTextStyle(text->textStyle());
    if (auto* text = AcDbMText::cast(&entity)) text->setTextStyle(text->textStyle());
}

Acad::ErrorStatus append(AcDbBlockTableRecord& block, MadeEntity made, AcDbObjectId& id)
{
    const Acad::ErrorStatus status = block.appendAcDbEntity(id, made.entity.get());
    if (status != Acad::eOk) return status;
    AcDbEntity& entity = *made.entity.release();
    takeXData(entity, made.xdata);
    for (MadeEntity& follower : made.followers)
        addFollower(entity, std::move(follower));
    takeCurrentStyle(entity);
    entity.completeRead();
    entity.close();
    return status;
}

/// Erases what a block shows; nothing of it when an entity cannot be opened.
bool eraseContents(AcDbBlockTableRecord& block)
{
    std::deque<AcDbObjectPointer<AcDbEntity>> opened;
    for (const AcDbObjectId id : BlockAccess::entities(block)) {
        if (id.isErased()) continue;
        opened.emplace_back(id, AcDb::kForWrite);
        if (opened.back().openStatus() != Acad::eOk) return false;
    }
    for (const AcDbObjectPointer<AcDbEntity>& entity : opened)
        entity->erase();
    return true;
}

/// The block that a made one gives its name and contents to: the one that has the name, emptied, or a new
/// one. It is open for write; null when the drawing refuses it.
AcDbBlockTableRecord* place(AcDbDatabase& database, std::unique_ptr<AcDbBlockTableRecord> made)
{
    const AcDbBlockTablePointer table(&database, AcDb::kForWrite);
    if (table.openStatus() != Acad::eOk) return nullptr;
    AcDbBlockTableRecord* block = nullptr;
    if (table->getAt(made->name(), block, AcDb::kForWrite) == Acad::eKeyNotFound)
        return table->add(made.get()) == Acad::eOk ? made.release() : nullptr;
    if (!block) return nullptr;
    if (!block->isLayout() && eraseContents(*block)) {
        block->setOrigin(made->origin());
        block->setComments(BlockAccess::comments(*made));
        return block;
    }
    block->close();
    return nullptr;
}
} // namespace

UnfinishedEntities& UnfinishedEntities::current()
{
    static UnfinishedEntities state;
    if (state.mDatabase == workingDatabase()) return state;
    state.clear();
    if (state.mDatabase) state.mDatabase->removeReactor(&state);
    state.mDatabase = workingDatabase();
    state.mDatabase->addReactor(&state);
    return state;
}

void UnfinishedEntities::goodbye(const AcDbDatabase*)
{
    clear();
    mDatabase = nullptr;
}

void UnfinishedEntities::clear()
{
    mOwner = {};
    mBlock.reset();
    mContents.clear();
}

int UnfinishedEntities::take(MadeEntity made, bool startsSequence, AcDbObjectId& id)
{
    if (mOwner.entity) return follow(std::move(made), id);
    if (isFollower(*made.entity)) return RTREJ;
    if (!startsSequence) return settle(std::move(made), id);
    mOwner = std::move(made);
    return RTNORM;
}

int UnfinishedEntities::follow(MadeEntity made, AcDbObjectId& id)
{
    if (!mayFollow(*mOwner.entity, *made.entity)) return RTREJ;
    const bool isLast = isEndMark(*made.entity);
    mOwner.followers.push_back(std::move(made));
    if (!isLast) return RTNORM;
    MadeEntity whole = std::move(mOwner);
    mOwner = {};
    return isWhole(whole) ? settle(std::move(whole), id) : RTREJ;
}

int UnfinishedEntities::settle(MadeEntity made, AcDbObjectId& id)
{
    if (mBlock) {
        mContents.push_back(std::move(made));
        return RTNORM;
    }
    const AcDbObjectId paper = DatabaseAccess::of(*mDatabase).paperSpace;
    const AcDbBlockTableRecordPointer space(made.isInPaperSpace ? paper : mDatabase->currentSpaceId(),
                                            AcDb::kForWrite);
    if (space.openStatus() != Acad::eOk) return RTERROR;
    return append(*space, std::move(made), id) == Acad::eOk ? RTNORM : RTERROR;
}

int UnfinishedEntities::beginBlock(const AcDbBlockBegin& head)
{
    if (!isEmpty()) return RTREJ;
    mBlock = std::make_unique<AcDbBlockTableRecord>();
    BlockAccess::takeHead(*mBlock, head);
    return mBlock->setName(BlockAccess::nameOf(head)) == Acad::eOk ? RTNORM : RTREJ;
}

int UnfinishedEntities::endBlock(AcDbObjectId& id)
{
    if (!mBlock || mOwner.entity) return RTERROR;
    AcDbBlockTableRecord* block = place(*mDatabase, std::move(mBlock));
    if (!block) return RTERROR;
    id = block->objectId();
    for (MadeEntity& made : mContents) {
        AcDbObjectId entity;
        append(*block, std::move(made), entity);
    }
    block->close();
    clear();
    return RTKWORD;
}
