#pragma once

#include "DxfFields.h"
#include "FileSink.h"
#include "GroupWriter.h"
#include "Progress.h"
#include "dbblock.h"
#include "TableKind.h"

namespace dxf
{
/// Writes a drawing's sections, up to the end mark.
class DrawingWriter
{
public:
    DrawingWriter(AcDbDatabase& database, GroupWriter& writer, FileVersion version);
    void write();

private:
    void writeHeader();
    void dropUnheld(HeaderVariables& header, const char* variable);
    void writeClasses();
    void writeTables();
    void writeTable(const TableInfo& info);
    void writeBlocks();
    void writeBlock(const AcDbBlockTableRecord& block);
    void writeEntities();
    void writeEntitiesOf(const AcDbBlockTableRecord& block);
    void writeEntity(AcDbEntity& entity);
    void writeRecord(AcDbObjectId id);
    void writeSubentity(AcDbObjectId id, AcDbObjectId namedOwner);
    void collectObjects();
    void writeObjects();
    void writeKeptSections();
    void begin(const char* section);
    void end() { _sink.text(0, "ENDSEC"); }

    DatabaseState& _state;
    std::vector<AcDbStub*> _objects;
    FileSink _sink;
    FileVersion _version;
    Progress _progress{L"Saving"};
    std::size_t _written = 0; ///< entities
};
} // namespace dxf
