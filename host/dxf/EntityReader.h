#pragma once

#include "FileSource.h"
#include "dbblock.h"

#include <string_view>
#include <unordered_map>

namespace dxf
{
/// Reads the sections BLOCKS and ENTITIES: blocks' heads and ends, entities, and the lists that stand behind some of
/// them (vertices, attributes).
class EntityReader
{
public:
    EntityReader(ReadContext& context, RecordStream& records, FileSource& source);

    /// Takes the record that the stream stands on, in either section.
    void takeOfBlocks();
    void takeOfEntities();
    /// At the end of a section.
    void endSection();

private:
    void beginBlock();
    void endBlock();
    AcDbBlockTableRecord* recordOfBlock(const AcDbBlockBegin& head, const DxfFrame& frame);
    AcDbBlockTableRecord* newRecord(const CString& name, AcDbStub* stub);
    void addMissingEnd();
    void takeEntity();
    void takeSubentities(AcDbEntity& parent);
    void takeSequenceEnd(AcDbEntity& parent, DbSubentities& list);
    AcDbEntity* makeEntity(const Record& record);
    AcDbBlockTableRecord& blockOf(const DxfFrame& frame);
    AcDbBlockTableRecord& spaceOf(bool isPaper);
    AcDbStub* add(AcDbEntity& entity, const DxfFrame& frame, AcDbObjectId owner);

    ReadContext& _context;
    RecordStream& _records;
    FileSource& _source;
    AcDbBlockTableRecord* _block = nullptr; ///< whose entities are being read in BLOCKS
    AcDbBlockTableRecord* _space = nullptr; ///< of the last entity in ENTITIES
    AcDbBlockTableRecord *_modelSpace = nullptr, *_paperSpace = nullptr; ///< of entities that name no owner
    std::unordered_map<std::string_view, RecordKind> _kinds;
};

/// The block record of a space, made with its head and end when the drawing has none.
AcDbBlockTableRecord& spaceRecord(ReadContext& context, const wchar_t* name);
/// Adds the head and the end that a block is without.
void completeBlock(ReadContext& context, AcDbBlockTableRecord& block);
} // namespace dxf
