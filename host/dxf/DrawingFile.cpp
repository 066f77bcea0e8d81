#include "DrawingFile.h"

#include "AsciiWriter.h"
#include "AtomicFile.h"
#include "BinaryWriter.h"
#include "BlockAccess.h"
#include "CodePageName.h"
#include "DefaultLayouts.h"
#include "DoubleHandles.h"
#include "DrawingReader.h"
#include "DrawingWriter.h"
#include "NamedObjects.h"

#include <memory>

namespace dxf
{
namespace
{
Acad::ErrorStatus statusOf(OpenStatus status)
{
    switch (status) {
    case OpenStatus::opened: return Acad::eOk;
    case OpenStatus::notFound: return Acad::eFileNotFound;
    case OpenStatus::accessDenied: return Acad::eFileAccessErr;
    case OpenStatus::cannotRead: return Acad::eFileSystemErr;
    case OpenStatus::binaryDwg: return Acad::eInvalidDwgVersion;
    default: return Acad::eBadDxfSequence;
    }
}

Acad::ErrorStatus statusOf(FileStatus status)
{
    switch (status) {
    case FileStatus::done: return Acad::eOk;
    case FileStatus::notFound: return Acad::eFileNotFound;
    case FileStatus::accessDenied: return Acad::eFileAccessErr;
    case FileStatus::diskFull: return Acad::eOutOfDisk;
    default: return Acad::eFileSystemErr;
    }
}

constexpr const char* firstNames[][2] = {{"LAYER", "0"},       {"LTYPE", "ByBlock"},         {"LTYPE", "ByLayer"},
                                         {"LTYPE", "Continuous"}, {"STYLE", "Standard"},     {"APPID", "ACAD"},
                                         {"DIMSTYLE", "Standard"}, {"VPORT", "*Active"}};

/// Names that every drawing has, so that entities can refer to them from the start.
void nameFirstRecords(ReadContext& context)
{
    DatabaseState& state = context.state();
    for (const auto& [table, name] : firstNames) context.obtain(tableOfName(table)->kind, name);
    state.layerZero = context.obtain(TableKind::layer, "0");
    state.byLayer = context.obtain(TableKind::linetype, "ByLayer");
    state.byBlock = context.obtain(TableKind::linetype, "ByBlock");
    state.continuous = context.obtain(TableKind::linetype, "Continuous");
}

bool isFirstName(const TableInfo& info, std::string_view name)
{
    for (const auto& [table, first] : firstNames) {
        if (info.name == std::string_view(table) && name == first) return true;
    }
    return false;
}

void defineMissing(ReadContext& context)
{
    struct Missing {
        const TableInfo* info;
        std::string name;
        AcDbStub* stub;
    };
    std::vector<Missing> missing;
    context.forEachName([&](const TableInfo& info, const std::string& name, AcDbStub* stub) {
        if (!stub->object) missing.push_back({&info, name, stub});
    });
    for (const Missing& one : missing) {
        if (!isFirstName(*one.info, one.name))
            context.repair(RepairCode::undefinedName, nullptr,
                           std::string(one.info->name) + " " + one.name + " is not defined: it was made");
        defineRecord(context, *one.info, one.name, one.stub);
    }
}

void completeBlocks(ReadContext& context)
{
    DatabaseState& state = context.state();
    state.modelSpace = spaceRecord(context, ACDB_MODEL_SPACE).objectId();
    state.paperSpace = spaceRecord(context, ACDB_PAPER_SPACE).objectId();
    const auto& table = static_cast<AcDbSymbolTable&>(*residentObject(state.blockTable));
    for (const AcDbObjectId id : table.recordIds()) {
        auto& block = static_cast<AcDbBlockTableRecord&>(*residentObject(id));
        completeBlock(context, block);
        BlockAccess::checkReferences(block);
    }
}

void completeEntities(DatabaseState& state)
{
    for (AcDbStub& stub : state.stubs) {
        if (auto* entity = stub.object ? AcDbEntity::cast(stub.object) : nullptr) entity->completeRead();
    }
}

/// The code page of texts in older versions, which newer files name too; what the header names becomes ids.
void takeHeader(ReadContext& context)
{
    DatabaseState& state = context.state();
    if (const UINT codePage = codePageOfName(utf8Of(state.header.text("$DWGCODEPAGE")))) state.codePage = codePage;
    // A name that the drawing does not define stays in the header as it is.
    const auto named = [&](TableKind kind, const char* variable) {
        AcDbStub* stub = context.find(kind, utf8Of(state.header.text(variable)));
        return stub && stub->object ? AcDbObjectId(stub) : AcDbObjectId();
    };
    state.clayer = named(TableKind::layer, "$CLAYER");
    state.celtype = named(TableKind::linetype, "$CELTYPE");
    state.textstyle = named(TableKind::textStyle, "$TEXTSTYLE");
    state.dimstyle = named(TableKind::dimStyle, "$DIMSTYLE");
    AcCmColor color;
    if (color.setColorIndex(static_cast<int>(state.header.integer("$CECOLOR"))) == Acad::eOk) state.cecolor = color;
}

void complete(ReadContext& context)
{
    for (const TableInfo& info : tableInfos) tableOf(context, info);
    defineMissing(context);
    settleDoubles(context);
    completeBlocks(context);
    context.state().stubs.numberPending();
    if (context.state().namedObjects.isNull()) context.state().namedObjects = addNamedObjects(context.database());
    addMissingLayouts(context.database());
    takeHeader(context);
    completeEntities(context.state());
}

std::unique_ptr<GroupWriter> makeWriter(ByteSink& to, const TextEncoding& encoding, bool isBinary)
{
    if (isBinary) return std::make_unique<BinaryWriter>(to, encoding, true);
    return std::make_unique<AsciiWriter>(to, encoding);
}

/// Leaves a copy of the old file. The file itself stays in its place until the new one takes it.
bool backUp(const std::wstring& path)
{
    const std::size_t dot = path.find_last_of(L".\\/");
    const bool hasExtension = dot != std::wstring::npos && path[dot] == L'.';
    const std::wstring backup = (hasExtension ? path.substr(0, dot) : path) + L".bak";
    return CopyFileW(path.c_str(), backup.c_str(), FALSE) || GetLastError() == ERROR_FILE_NOT_FOUND;
}
} // namespace

Acad::ErrorStatus readDrawing(AcDbDatabase& database, const std::wstring& path, RepairReport& report, unsigned codePage)
{
    return readDrawing(database, openDrawing(path, codePage), report);
}

Acad::ErrorStatus readDrawing(AcDbDatabase& database, const OpenedDrawing& opened, RepairReport& report)
{
    if (opened.status != OpenStatus::opened) return statusOf(opened.status);
    if (!DatabaseAccess::of(database).isBare) return Acad::eInvalidInput;
    DatabaseAccess::reset(database);
    ReadContext context(database, report);
    DatabaseState& state = context.state();
    state.originalVersion = static_cast<int>(opened.reader->version());
    state.header.setInteger("$INSUNITS", 0); // a file that names no unit has none
    readNames(context, *openDrawing(opened.reader->input()).reader);
    nameFirstRecords(context);
    DrawingReader reader(context, *opened.reader);
    const bool isDrawing = reader.read();
    complete(context);
    if (!isDrawing) {
        DatabaseAccess::reset(database);
        return Acad::eBadDxfSequence;
    }
    state.isBare = false;
    state.needsRecovery = !report.isEmpty();
    return Acad::eOk;
}

Acad::ErrorStatus writeDrawing(AcDbDatabase& database, const std::wstring& path, const WriteOptions& options)
{
    if (options.version < FileVersion::r2000) return Acad::eInvalidDwgVersion;
    const DatabaseState& state = DatabaseAccess::of(database);
    AtomicFile file(path);
    if (file.status() != FileStatus::done) return statusOf(file.status());
    const TextEncoding encoding = isUtf8(options.version) ? TextEncoding() : TextEncoding(state.codePage);
    const std::unique_ptr<GroupWriter> writer = makeWriter(file, encoding, options.isBinary);
    DrawingWriter(database, *writer, options.version).write();
    writer->finish();
    if (options.keepsBackup && file.status() == FileStatus::done && !backUp(path)) return Acad::eFileAccessErr;
    return statusOf(file.commit());
}
} // namespace dxf
