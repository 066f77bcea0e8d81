/// Other drawings and their blocks as blocks of a drawing.

#include "CopyRun.h"
#include "CopyTransform.h"
#include "dbdatabase.h"
#include "dbobjptr.h"
#include "DrawingEvents.h"
#include "Stub.h"
#include "SymbolName.h"

namespace
{
/// eOk when a block may get a name: none has it, or one that is no space.
Acad::ErrorStatus checkName(const AcDbDatabase& database, const ACHAR* name)
{
    const bool asksForNumber = name && CString(name) == L"*U";
    if (!asksForNumber && (!isSymbolName(name) || *name == L'*')) return Acad::eInvalidSymbolTableName;
    AcDbObjectId id;
    const auto& table = static_cast<const AcDbSymbolTable&>(*residentObject(database.blockTableId()));
    if (table.getAt(name, id) != Acad::eOk) return Acad::eOk;
    const auto& block = static_cast<const AcDbBlockTableRecord&>(*residentObject(id));
    return block.isLayout() || block.isFromExternalReference() ? Acad::eIllegalReplacement : Acad::eOk;
}

Acad::ErrorStatus checkSource(const AcDbDatabase& to, const AcDbDatabase* from)
{
    if (!from) return Acad::eNoDatabase;
    return from == &to ? Acad::eSelfReference : Acad::eOk;
}

AcDb::DeepCloneType contextOf(bool preservesSource)
{
    return preservesSource ? AcDb::kDcInsertCopy : AcDb::kDcInsert;
}

/// A copying into a drawing with the notices of an insertion.
class Insertion
{
public:
    Insertion(AcDbDatabase& to, AcDbDatabase& from, bool preservesSource)
        : mTo(to), mFrom(from), mSession(CopyRun::begin(from, to, mMap, contextOf(preservesSource), AcDb::kDrcIgnore))
    {
    }
    CopySession& session() { return *mSession; }

    Acad::ErrorStatus finish()
    {
        const Acad::ErrorStatus status = CopyRun::finish(*mSession, mMap);
        events::tell([&](AcRxEventReactor& reactor) {
            if (status != Acad::eOk) return reactor.abortInsert(&mTo);
            reactor.otherInsert(&mTo, mMap, &mFrom);
            reactor.endInsert(&mTo);
        });
        return status;
    }

private:
    AcDbDatabase& mTo;
    AcDbDatabase& mFrom;
    AcDbIdMapping mMap;
    std::unique_ptr<CopySession> mSession;
};

/// Inserts a block, or the model space, of another drawing as a block of a name.
Acad::ErrorStatus insertAs(AcDbDatabase& to, AcDbDatabase& from, AcDbObjectId source, const ACHAR* name,
                           bool preservesSource, AcDbObjectId& blockId)
{
    events::tell([&](AcRxEventReactor& reactor) { reactor.beginInsert(&to, name, &from); });
    Insertion insertion(to, from, preservesSource);
    insertion.session().addBlock(source, name);
    const Acad::ErrorStatus status = insertion.finish();
    if (status == Acad::eOk) blockId = insertion.session().copyOf(source);
    return status;
}

} // namespace

Acad::ErrorStatus AcDbDatabase::insert(AcDbObjectId& blockId, const ACHAR* blockName, AcDbDatabase* source,
                                       bool preserveSourceDatabase)
{
    blockId.setNull();
    Acad::ErrorStatus status = checkSource(*this, source);
    if (status == Acad::eOk) status = checkName(*this, blockName);
    if (status == Acad::eOk)
        status = insertAs(*this, *source, source->modelSpaceId(), blockName, preserveSourceDatabase, blockId);
    if (status != Acad::eOk) return status;
    const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForWrite);
    if (block.openStatus() != Acad::eOk) return block.openStatus();
    block->setOrigin(source->insbase());
    return block->setBlockInsertUnits(source->insunits());
}

Acad::ErrorStatus AcDbDatabase::insert(AcDbObjectId& blockId, const ACHAR* sourceBlockName,
                                       const ACHAR* destinationBlockName, AcDbDatabase* source,
                                       bool preserveSourceDatabase)
{
    blockId.setNull();
    Acad::ErrorStatus status = checkSource(*this, source);
    if (status == Acad::eOk) status = checkName(*this, destinationBlockName);
    if (status != Acad::eOk) return status;
    AcDbObjectId block;
    const auto& table = static_cast<const AcDbSymbolTable&>(*residentObject(source->blockTableId()));
    status = table.getAt(sourceBlockName, block);
    if (status != Acad::eOk) return status;
    return insertAs(*this, *source, block, destinationBlockName, preserveSourceDatabase, blockId);
}

Acad::ErrorStatus AcDbDatabase::insert(const AcGeMatrix3d& xform, AcDbDatabase* source, bool preserveSourceDatabase)
{
    Acad::ErrorStatus status = checkSource(*this, source);
    if (status != Acad::eOk) return status;
    const auto& space = static_cast<const AcDbBlockTableRecord&>(*residentObject(source->modelSpaceId()));
    status = mayTransformAll(space.entityIds(), xform);
    if (status != Acad::eOk) return status;
    events::tell([&](AcRxEventReactor& reactor) { reactor.beginInsert(this, xform, source); });
    Insertion insertion(*this, *source, preserveSourceDatabase);
    for (const AcDbObjectId id : space.entityIds()) {
        if (id.isValid() && !id.isErased()) insertion.session().addEntity(id, modelSpaceId());
    }
    status = insertion.finish();
    if (status != Acad::eOk) return status;
    transformAll(insertion.session().copiedEntities(modelSpaceId()), xform);
    return status;
}
