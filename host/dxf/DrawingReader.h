#pragma once

#include "EntityReader.h"
#include "TableReader.h"

namespace dxf
{
/// Fills an empty drawing from the groups of a file.
class DrawingReader
{
public:
    DrawingReader(ReadContext& context, GroupReader& reader);

    /// Reads all of the file. False when it holds no section of a drawing.
    bool read();

private:
    using Take = void (DrawingReader::*)();

    void enterSection();
    void takeHeader();
    void takeClass();
    void takeOfTables() { _tables.take(); }
    void takeOfBlocks() { _entities.takeOfBlocks(); }
    void takeOfEntities() { _entities.takeOfEntities(); }
    void takeObject();
    void keep();
    void takeStray();
    void endSection();
    void noteFaults();

    ReadContext& _context;
    GroupReader& _reader;
    RecordStream _records;
    FileSource _source;
    TableReader _tables;
    EntityReader _entities;
    Take _take = &DrawingReader::takeStray;
    bool _hasSections = false;
};
} // namespace dxf
