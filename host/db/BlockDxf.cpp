/// Blocks in drawing files: the record of the table, and the head and end around its entities.

#include "BlockAccess.h"
#include "ClassRegistration.h"
#include "DxfFields.h"
#include "DxfKept.h"
#include "Stub.h"

#include <unordered_set>

ACDB_DXF_CLASS(AcDbBlockBegin, AcDbEntity, BLOCK)
ACDB_DXF_CLASS(AcDbBlockEnd, AcDbEntity, ENDBLK)
ACDB_DXF_CLASS(AcDbSequenceEnd, AcDbEntity, SEQEND)

namespace
{
const AcDbBlockTableRecord* recordOf(const AcDbObject& head)
{
    return AcDbBlockTableRecord::cast(residentObject(head.ownerId()));
}

void writeHead(const AcDbObject& head, const DxfField&, DxfSink& sink)
{
    const AcDbBlockTableRecord* block = recordOf(head);
    if (!block) return;
    const AcGePoint3d origin = block->origin();
    sink.wide(2, block->name());
    sink.integer(70, BlockAccess::flagsFor(*block));
    sink.point(10, origin.x, origin.y, origin.z);
    sink.wide(3, block->name());
    sink.wide(1, BlockAccess::pathName(*block));
    if (!BlockAccess::comments(*block).IsEmpty()) sink.wide(4, BlockAccess::comments(*block));
}

/// The references in braces, null handles for those that are gone; another program's braces are kept.
void readReferences(AcDbObject& object, const DxfField&, DxfSource& source)
{
    if (source.peek()->text != "{BLKREFS") {
        keepGroup(object, &AcDbBlockTableRecord::dxf, *source.peek());
        return source.take();
    }
    std::vector<AcDbObjectId>& references = BlockAccess::references(static_cast<AcDbBlockTableRecord&>(object));
    for (source.take(); const DxfGroup* group = source.peek(); source.take()) {
        if (group->is(102)) return source.take();
        if (!group->is(331)) return;
        references.push_back(source.stubOf(static_cast<std::uint64_t>(group->integer)));
    }
}

void writeReferences(const AcDbObject& object, const DxfField& field, DxfSink& sink)
{
    const auto& block = static_cast<const AcDbBlockTableRecord&>(object);
    std::unordered_set<AcDbObjectId> seen;
    std::vector<AcDbObjectId> written;
    for (const AcDbObjectId id : BlockAccess::references(block)) {
        // What is gone leaves a null handle where the file named it; what came to nothing since was never there.
        if (!residentObject(id)) written.push_back(AcDbObjectId());
        if (BlockAccess::isShownBy(block, id) && seen.insert(id).second) written.push_back(id);
    }
    if (written.empty()) return;
    sink.text(field.code, "{BLKREFS");
    for (const AcDbObjectId id : written)
        sink.handle(331, id);
    sink.text(field.code, "}");
}

void skip(AcDbObject&, const DxfField&, DxfSource& source) { source.take(); }
} // namespace

int BlockAccess::flagsFor(const AcDbBlockTableRecord& block)
{
    const bool offersAttributes = !block.isLayout() && block.hasAttributeDefinitions();
    return block.mFlags | (offersAttributes ? 2 : 0);
}

void BlockAccess::takeHead(AcDbBlockTableRecord& block, const AcDbBlockBegin& head)
{
    block.mFlags = head.mFlags;
    block.mOrigin = head.mOrigin;
    block.mPathName = head.mPathName;
    block.mComments = head.mComments;
}

// What the head says is the record's; here it is read, and written from the record.
const DxfClass AcDbBlockBegin::dxf("AcDbBlockBegin", &AcDbEntity::dxf,
                                   {
                                       dxf::text<&AcDbBlockBegin::mName>(2).readOnly(),
                                       dxf::integer<&AcDbBlockBegin::mFlags>(70).readOnly(),
                                       dxf::point<&AcDbBlockBegin::mOrigin>(10).readOnly(),
                                       dxf::custom(3, skip, nullptr),
                                       dxf::text<&AcDbBlockBegin::mPathName>(1).readOnly(),
                                       dxf::text<&AcDbBlockBegin::mComments>(4).readOnly(),
                                       dxf::custom(0, nullptr, writeHead),
                                   });
const DxfClass AcDbBlockEnd::dxf("AcDbBlockEnd", &AcDbEntity::dxf, {});
const DxfClass AcDbSequenceEnd::dxf(nullptr, &AcDbEntity::dxf, {});

const DxfClass AcDbBlockTableRecord::dxf("AcDbBlockTableRecord", &AcDbSymbolTableRecord::dxf,
                                         {
                                             dxf::text<&AcDbBlockTableRecord::mName>(2),
                                             dxf::reference<&AcDbBlockTableRecord::mLayout>(340),
                                             dxf::custom(102, readReferences, writeReferences),
                                             dxf::integer<&AcDbBlockTableRecord::mInsertUnits>(70).from(DxfVersion::r2007),
                                             dxf::integer<&AcDbBlockTableRecord::mExplodable>(280).from(DxfVersion::r2007),
                                             dxf::integer<&AcDbBlockTableRecord::mUniformScale>(281).from(DxfVersion::r2007),
                                         });
