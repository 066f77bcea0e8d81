#include "DrawingWriter.h"

#include "BlockAccess.h"
#include "CodePageName.h"
#include "SymbolTableAccess.h"

#include <algorithm>
#include <map>

namespace dxf
{
namespace
{
bool isActiveSpace(const AcDbBlockTableRecord& block)
{
    return block.name().CompareNoCase(ACDB_MODEL_SPACE) == 0 || block.name().CompareNoCase(ACDB_PAPER_SPACE) == 0;
}

/// Calls for the blocks that are not erased, in the order of their table.
template <class Call>
void forEachBlock(const DatabaseState& state, Call call)
{
    for (const AcDbObjectId id : static_cast<AcDbSymbolTable*>(residentObject(state.blockTable))->recordIds()) {
        if (!id.isErased()) call(static_cast<const AcDbBlockTableRecord&>(*residentObject(id)));
    }
}

void setName(HeaderVariables& header, const char* variable, AcDbObjectId id)
{
    if (const auto* record = AcDbSymbolTableRecord::cast(residentObject(id))) header.setText(variable, record->name());
}

bool isOfObjects(const AcDbStub& stub)
{
    const AcDbObject* object = stub.object;
    return object && !AcDbObjectId(const_cast<AcDbStub*>(&stub)).isEffectivelyErased() &&
           !object->isKindOf(AcDbEntity::desc()) && !object->isKindOf(AcDbSymbolTableRecord::desc()) &&
           !object->isKindOf(AcDbSymbolTable::desc());
}

struct ApplicationClass {
    const char* record;
    const char* name;
    const char* application = "ObjectDBX Classes";
    int proxyFlags = 0;
    bool isEntity = false;
};

// Classes of objects that the host makes itself and that readers expect to be listed.
constexpr ApplicationClass ownClasses[] = {
    {"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault"},
    {"ACDBPLACEHOLDER", "AcDbPlaceHolder"},
    {"DICTIONARYVAR", "AcDbDictionaryVar"},
    {"ACDBDETAILVIEWSTYLE", "AcDbDetailViewStyle"},
    {"ACDBSECTIONVIEWSTYLE", "AcDbSectionViewStyle"},
    {"MATERIAL", "AcDbMaterial"},
    {"MLEADERSTYLE", "AcDbMLeaderStyle"},
    {"TABLESTYLE", "AcDbTableStyle"},
    {"VISUALSTYLE", "AcDbVisualStyle"},
    {"LAYOUT", "AcDbLayout"},
    {"PLOTSETTINGS", "AcDbPlotSettings"},
    {"IMAGE", "AcDbRasterImage", "ISM", 127, true},
    {"IMAGEDEF", "AcDbRasterImageDef", "ISM"},
    {"IMAGEDEF_REACTOR", "AcDbRasterImageDefReactor", "ISM", 1},
    {"RASTERVARIABLES", "AcDbRasterVariables", "ISM"},
    {"SCALE", "AcDbScale"},
    {"SORTENTSTABLE", "AcDbSortentsTable"},
    {"WIPEOUT", "AcDbWipeout", "WipeOut", 127, true},
    {"WIPEOUTVARIABLES", "AcDbWipeoutVariables", "WipeOut"},
};

bool isListed(const DatabaseState& state, std::string_view record)
{
    DxfGroup group;
    for (const PackedGroups& entry : state.classes) {
        for (std::size_t at = 0; entry.read(at, group);) {
            if (group.is(1) && group.text == record) return true;
        }
    }
    return false;
}

using RecordCounts = std::map<std::string_view, int>;

/// How many objects have each record name.
RecordCounts countRecords(const std::vector<AcDbStub*>& objects)
{
    RecordCounts counts;
    for (const AcDbStub* stub : objects) ++counts[stub->object->dxfRecordName()];
    return counts;
}

/// Adds the entities. Those of a class mostly follow each other, and a drawing holds many.
void addEntities(StubTable& stubs, RecordCounts& counts)
{
    std::map<const AcRxClass*, int> ofClass;
    const AcRxClass* last = nullptr;
    int* count = nullptr;
    for (const AcDbStub& stub : stubs) {
        if (!stub.object || stub.erased) continue;
        const AcRxClass* own = stub.object->isA();
        if (own != last) count = &ofClass[last = own];
        ++*count;
    }
    for (const auto& [own, number] : ofClass) {
        if (own->isDerivedFrom(AcDbEntity::desc())) counts[own->dxfRecordName()] += number;
    }
}

void writeClass(FileSink& sink, const ApplicationClass& own, int count)
{
    sink.text(0, "CLASS");
    sink.text(1, own.record);
    sink.text(2, own.name);
    sink.text(3, own.application);
    sink.integer(90, own.proxyFlags);
    if (sink.version() >= static_cast<int>(FileVersion::r2004)) sink.integer(91, count);
    sink.integer(280, 0);
    sink.integer(281, own.isEntity);
}

/// A class of a module, by the name of its records.
void writeModuleClass(FileSink& sink, const AcRxClass& own, int count)
{
    const std::string name = utf8Of(own.name()), application = utf8Of(own.appName());
    writeClass(sink,
               {own.dxfRecordName().c_str(), name.c_str(), application.c_str(), own.proxyFlags(),
                own.isDerivedFrom(AcDbEntity::desc())},
               count);
}
} // namespace

DrawingWriter::DrawingWriter(AcDbDatabase& database, GroupWriter& writer, FileVersion version)
    : _state(DatabaseAccess::of(database)), _sink(writer, version), _version(version)
{
    // What was read from a file of this version or an older one was of that version, too.
    const bool isOfNewer = _state.originalVersion == 0 || _state.originalVersion > static_cast<int>(version);
    if (isOfNewer) _sink.leaveNewerClasses();
}

void DrawingWriter::write()
{
    collectObjects();
    writeHeader();
    writeClasses();
    writeTables();
    writeBlocks();
    writeEntities();
    writeObjects();
    writeKeptSections();
    _sink.text(0, "EOF");
}

void DrawingWriter::begin(const char* section)
{
    _sink.text(0, "SECTION");
    _sink.text(2, section);
}

/// A reference of the header to what is not written becomes null.
void DrawingWriter::dropUnheld(HeaderVariables& header, const char* variable)
{
    DxfGroup group;
    std::size_t at = 0;
    PackedGroups& groups = header.at(variable);
    if (!groups.read(at, group)) return;
    const AcDbStub* stub = _state.stubs.find(static_cast<std::uint64_t>(group.integer));
    if (stub && _sink.holds(stub)) return;
    groups.clear();
    groups.appendHandle(group.code, 0);
}

void DrawingWriter::writeHeader()
{
    HeaderVariables header = _state.header;
    header.setText("$ACADVER", wideOf(nameOf(_version)));
    header.setText("$DWGCODEPAGE", wideOf(nameOfCodePage(_state.codePage)));
    setName(header, "$CLAYER", _state.clayer);
    setName(header, "$CELTYPE", _state.celtype);
    setName(header, "$TEXTSTYLE", _state.textstyle);
    setName(header, "$DIMSTYLE", _state.dimstyle);
    header.setInteger("$CECOLOR", _state.cecolor.colorIndex());
    for (const char* variable : {"$CMATERIAL", "$INTERFEREOBJVS", "$INTERFEREVPVS"}) dropUnheld(header, variable);
    PackedGroups& seed = header.at("$HANDSEED");
    seed.clear();
    seed.appendHandle(5, _state.stubs.nextHandle());
    begin("HEADER");
    // What the table does not know is of the file's own version, and may be newer than the one that is written.
    header.write(_sink, static_cast<int>(_version) >= _state.originalVersion);
    end();
}

void DrawingWriter::writeClasses()
{
    begin("CLASSES");
    for (const PackedGroups& entry : _state.classes) {
        _sink.text(0, "CLASS");
        writeGroups(entry, _sink);
    }
    RecordCounts counts = countRecords(_objects);
    addEntities(_state.stubs, counts);
    for (const ApplicationClass& own : ownClasses) {
        const auto at = counts.find(own.record);
        if (at != counts.end() && !isListed(_state, own.record)) writeClass(_sink, own, at->second);
    }
    for (const auto& [record, count] : counts) {
        const AcRxClass* known = acrxClassOfDxfName(wideOf(record));
        if (known && !known->isBuiltIn() && !isListed(_state, record)) writeModuleClass(_sink, *known, count);
    }
    end();
}

void DrawingWriter::writeTables()
{
    begin("TABLES");
    for (const TableInfo& info : tableInfos) writeTable(info);
    end();
}

void DrawingWriter::writeTable(const TableInfo& info)
{
    const AcDbObjectId id = _state.*info.id;
    const auto& table = static_cast<const AcDbSymbolTable&>(*residentObject(id));
    _sink.text(0, "TABLE");
    _sink.text(2, info.name);
    dxfWriteBody(table, _sink);
    for (const AcDbObjectId record : table.recordIds()) writeRecord(record);
    _sink.text(0, "ENDTAB");
}

void DrawingWriter::writeRecord(AcDbObjectId id)
{
    if (id.isValid() && !id.isErased()) dxfWriteRecord(*residentObject(id), _sink);
}

void DrawingWriter::writeBlocks()
{
    begin("BLOCKS");
    forEachBlock(_state, [&](const AcDbBlockTableRecord& block) { writeBlock(block); });
    end();
}

void DrawingWriter::writeBlock(const AcDbBlockTableRecord& block)
{
    auto& head = const_cast<AcDbBlockTableRecord&>(block);
    writeRecord(BlockAccess::begin(head));
    if (!isActiveSpace(block)) writeEntitiesOf(block);
    writeRecord(BlockAccess::end(head));
}

void DrawingWriter::writeEntities()
{
    begin("ENTITIES");
    forEachBlock(_state, [&](const AcDbBlockTableRecord& block) {
        if (isActiveSpace(block)) writeEntitiesOf(block);
    });
    end();
}

void DrawingWriter::writeEntitiesOf(const AcDbBlockTableRecord& block)
{
    for (const AcDbObjectId id : block.entityIds()) {
        if (id.isValid() && !id.isErased()) writeEntity(static_cast<AcDbEntity&>(*residentObject(id)));
    }
}

void DrawingWriter::writeEntity(AcDbEntity& entity)
{
    _progress.reach(++_written, _state.stubs.size());
    dxfWriteRecord(entity, _sink);
    const DbSubentities* list = entity.subentities();
    if (!list || (list->ids.empty() && list->sequenceEnd.isNull())) return;
    const AcDbObjectId owner = list->fileNamesBlockAsOwner ? entity.ownerId() : entity.objectId();
    for (const AcDbObjectId id : list->ids) writeSubentity(id, owner);
    writeSubentity(list->sequenceEnd, owner);
}

void DrawingWriter::writeSubentity(AcDbObjectId id, AcDbObjectId namedOwner)
{
    if (id.isValid() && !id.isErased()) dxfWriteRecord(*residentObject(id), namedOwner, _sink);
}

/// The objects of the last section: the root of all dictionaries, then by handle.
void DrawingWriter::collectObjects()
{
    for (AcDbStub& stub : _state.stubs) {
        if (isOfObjects(stub) && _sink.holds(&stub)) _objects.push_back(&stub);
    }
    const AcDbStub* root = _state.namedObjects;
    std::sort(_objects.begin(), _objects.end(), [&](const AcDbStub* a, const AcDbStub* b) {
        return a == root ? b != root : b != root && a->handle < b->handle;
    });
}

void DrawingWriter::writeObjects()
{
    begin("OBJECTS");
    for (AcDbStub* stub : _objects) writeRecord(stub);
    end();
}

void DrawingWriter::writeKeptSections()
{
    if (static_cast<int>(_version) < _state.originalVersion) return;
    for (const PackedGroups& section : _state.keptSections) {
        writeGroups(section, _sink);
        end();
    }
}
} // namespace dxf
