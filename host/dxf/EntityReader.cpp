#include "EntityReader.h"

#include "BlockAccess.h"
#include "DbObjectAccess.h"
#include "EntityAccess.h"
#include "SymbolTableAccess.h"
#include "TableReader.h"
#include "dbproxy.h"

#include <memory>

namespace dxf
{
namespace
{
bool isSubentity(std::string_view name) { return name == "VERTEX" || name == "ATTRIB" || name == "SEQEND"; }

/// Some programs write the spaces of R12 under these names.
CString blockName(const CString& name)
{
    if (name.CompareNoCase(L"$MODEL_SPACE") == 0) return ACDB_MODEL_SPACE;
    if (name.CompareNoCase(L"$PAPER_SPACE") == 0) return ACDB_PAPER_SPACE;
    return name;
}

AcDbBlockTableRecord* asBlock(AcDbStub* stub) { return stub ? AcDbBlockTableRecord::cast(stub->object) : nullptr; }

template <class Entity>
AcDbObjectId addMark(ReadContext& context, AcDbBlockTableRecord& block)
{
    auto* entity = new Entity;
    const AcDbObjectId id = context.attach(*entity, 0, nullptr, block.objectId());
    EntityAccess::resolveProperties(*entity);
    return id;
}
} // namespace

EntityReader::EntityReader(ReadContext& context, RecordStream& records, FileSource& source)
    : _context(context), _records(records), _source(source)
{
}

void EntityReader::takeOfBlocks()
{
    const std::string_view name = _records.record().name;
    if (name == "BLOCK") return beginBlock();
    if (name == "ENDBLK") return endBlock();
    if (_block) return takeEntity();
    _context.repair(RepairCode::strayRecord, &_records.record(), "no block is open: left out");
}

void EntityReader::takeOfEntities()
{
    _block = nullptr;
    takeEntity();
}

void EntityReader::endSection()
{
    addMissingEnd();
    _space = nullptr;
}

void EntityReader::beginBlock()
{
    addMissingEnd();
    auto head = std::make_unique<AcDbBlockBegin>();
    const DxfFrame frame = _source.read(*head, _records.record());
    _block = recordOfBlock(*head, frame);
    BlockAccess::takeHead(*_block, *head);
    BlockAccess::begin(*_block) = add(*head.release(), frame, _block->objectId());
}

/// The record that a block's head belongs to: its owner, or the one of its name; a new one when that has a head
/// already.
AcDbBlockTableRecord* EntityReader::recordOfBlock(const AcDbBlockBegin& head, const DxfFrame& frame)
{
    const CString name = blockName(BlockAccess::nameOf(head));
    AcDbBlockTableRecord* block = asBlock(frame.owner);
    if (block && BlockAccess::begin(*block).isNull()) return block;
    AcDbStub* stub = name.IsEmpty() ? nullptr : _context.obtain(TableKind::block, utf8Of(name));
    block = asBlock(stub);
    if (!block) return newRecord(name, stub && !stub->object ? stub : nullptr);
    if (BlockAccess::begin(*block).isNull()) return block;
    _context.repair(RepairCode::duplicateName, &_records.record(), "a second block of this name: it was renamed");
    return newRecord(name, nullptr);
}

AcDbBlockTableRecord* EntityReader::newRecord(const CString& name, AcDbStub* stub)
{
    auto* block = new AcDbBlockTableRecord;
    AcDbSymbolTable& table = tableOf(_context, infoOf(TableKind::block));
    CString unique = name;
    for (int i = 1; unique.IsEmpty() || (!stub && _context.find(TableKind::block, utf8Of(unique))); ++i)
        unique.Format(L"%ls$%d", static_cast<const wchar_t*>(name), i);
    stub = _context.attach(*block, 0, stub, table.objectId());
    _context.define(TableKind::block, utf8Of(unique), stub);
    SymbolTableAccess::setName(*block, unique);
    SymbolTableAccess::list(table, stub, unique);
    return block;
}

void EntityReader::endBlock()
{
    if (!_block) return _context.repair(RepairCode::strayRecord, &_records.record(), "no block is open: left out");
    auto* end = new AcDbBlockEnd;
    const DxfFrame frame = _source.read(*end, _records.record());
    BlockAccess::end(*_block) = add(*end, frame, _block->objectId());
    _block = nullptr;
}

void EntityReader::addMissingEnd()
{
    if (!_block) return;
    _context.repair(RepairCode::noBlockEnd, nullptr, "a block without an end: it was ended");
    BlockAccess::end(*_block) = addMark<AcDbBlockEnd>(_context, *_block);
    _block = nullptr;
}

AcDbEntity* EntityReader::makeEntity(const Record& record)
{
    const auto [at, isNew] = _kinds.try_emplace(record.name);
    if (isNew) at->second = recordKindOf(record.name);
    AcRxClass* found = at->second.classOf(record);
    AcRxObject* made = found && found->isDerivedFrom(AcDbEntity::desc()) ? found->create() : nullptr;
    return made ? static_cast<AcDbEntity*>(made) : new AcDbProxyEntity(record.name);
}

void EntityReader::takeEntity()
{
    AcDbEntity* entity = makeEntity(_records.record());
    const DxfFrame frame = _source.read(*entity, _records.record());
    AcDbBlockTableRecord& block = blockOf(frame);
    const AcDbObjectId id = add(*entity, frame, block.objectId());
    BlockAccess::list(block, id);
    if (isSubentity(_records.nextName())) takeSubentities(*entity);
}

void EntityReader::takeSubentities(AcDbEntity& parent)
{
    DbSubentities* list = parent.subentities();
    if (!list || isSubentity(_records.record().name)) return;
    while (isSubentity(_records.nextName()) && _records.next()) {
        if (_records.record().name == "SEQEND") return takeSequenceEnd(parent, *list);
        AcDbEntity* entity = makeEntity(_records.record());
        const DxfFrame frame = _source.read(*entity, _records.record());
        list->ids.push_back(add(*entity, frame, parent.objectId()));
        list->fileNamesBlockAsOwner = frame.owner && AcDbObjectId(frame.owner) == parent.ownerId();
    }
    _context.repair(RepairCode::noBlockEnd, nullptr, "a list of vertices or attributes without an end: it was ended");
    auto* end = new AcDbSequenceEnd;
    list->sequenceEnd = add(*end, DxfFrame(), parent.objectId());
}

void EntityReader::takeSequenceEnd(AcDbEntity& parent, DbSubentities& list)
{
    auto* end = new AcDbSequenceEnd;
    const DxfFrame frame = _source.read(*end, _records.record());
    list.sequenceEnd = add(*end, frame, parent.objectId());
}

AcDbStub* EntityReader::add(AcDbEntity& entity, const DxfFrame& frame, AcDbObjectId owner)
{
    AcDbStub* stub = _context.attach(entity, frame.handle, nullptr, owner, &_records.record());
    EntityAccess::resolveProperties(entity);
    return stub;
}

AcDbBlockTableRecord& EntityReader::blockOf(const DxfFrame& frame)
{
    if (_block) return *_block;
    if (_space && frame.owner == static_cast<AcDbStub*>(_space->objectId())) return *_space;
    AcDbBlockTableRecord* owner = asBlock(frame.owner);
    if (!owner) return spaceOf(_source.isPaperSpace());
    _space = owner;
    return *owner;
}

AcDbBlockTableRecord& EntityReader::spaceOf(bool isPaper)
{
    AcDbBlockTableRecord*& space = isPaper ? _paperSpace : _modelSpace;
    if (!space) space = &spaceRecord(_context, isPaper ? ACDB_PAPER_SPACE : ACDB_MODEL_SPACE);
    return *space;
}

AcDbBlockTableRecord& spaceRecord(ReadContext& context, const wchar_t* name)
{
    AcDbStub* stub = context.obtain(TableKind::block, utf8Of(name));
    if (AcDbBlockTableRecord* block = asBlock(stub)) return *block;
    auto* block = new AcDbBlockTableRecord;
    AcDbSymbolTable& table = tableOf(context, infoOf(TableKind::block));
    context.attach(*block, 0, stub, table.objectId());
    SymbolTableAccess::setName(*block, name);
    SymbolTableAccess::list(table, block->objectId(), name);
    return *block;
}

void completeBlock(ReadContext& context, AcDbBlockTableRecord& block)
{
    if (BlockAccess::begin(block).isNull()) BlockAccess::begin(block) = addMark<AcDbBlockBegin>(context, block);
    if (BlockAccess::end(block).isNull()) BlockAccess::end(block) = addMark<AcDbBlockEnd>(context, block);
}
} // namespace dxf
