#include "WholeCopy.h"

#include "dbdatabase.h"
#include "dbdict.h"
#include "SymbolTableAccess.h"

namespace
{
using IdMember = AcDbObjectId DatabaseState::*;

constexpr IdMember tables[] = {&DatabaseState::blockTable,    &DatabaseState::layerTable,
                               &DatabaseState::linetypeTable, &DatabaseState::textStyleTable,
                               &DatabaseState::dimStyleTable, &DatabaseState::ucsTable,
                               &DatabaseState::viewTable,     &DatabaseState::viewportTable,
                               &DatabaseState::regAppTable};

/// Records that a drawing cannot be without, and those that are current.
constexpr IdMember records[] = {&DatabaseState::layerZero,  &DatabaseState::byLayer,   &DatabaseState::byBlock,
                                &DatabaseState::continuous, &DatabaseState::modelSpace, &DatabaseState::paperSpace,
                                &DatabaseState::clayer,     &DatabaseState::celtype,   &DatabaseState::textstyle,
                                &DatabaseState::dimstyle};

/// Whatever the table holds is used by the one who looks at the drawing.
constexpr IdMember tablesInUse[] = {&DatabaseState::ucsTable, &DatabaseState::viewTable, &DatabaseState::viewportTable};

struct NamingVariable {
    const char* name;
    int code;
};
constexpr NamingVariable namingVariables[] = {
    {"$DIMBLK", 2},   {"$DIMBLK1", 2}, {"$DIMBLK2", 2},  {"$DIMLDRBLK", 2},
    {"$DIMTXSTY", 7}, {"$DIMLTYPE", 6}, {"$DIMLTEX1", 6}, {"$DIMLTEX2", 6},
};
} // namespace

WholeCopy::WholeCopy(AcDbDatabase& from, AcDbDatabase& to, AcDbIdMapping& map)
    : CopySession(from, to, map, AcDb::kDrcReplace)
{
    DatabaseAccess::reset(to);
    DatabaseAccess::of(to).classes = DatabaseAccess::of(from).classes;
}

AcDbObjectId WholeCopy::newId(const AcDbObject& original)
{
    return DatabaseAccess::of(mTo).stubs.obtain(original.handle().value());
}

void WholeCopy::reachRecord(AcDbSymbolTableRecord& record)
{
    if (!isNoted(record.objectId())) add(record, copyOf(record.ownerId()), Place::owned, false, record.name());
}

void WholeCopy::reachEntry(AcDbObject& object)
{
    const AcDbObject* owner = residentObject(object.ownerId());
    if (owner) add(object, newId(*owner), Place::owned);
}

void WholeCopy::reach(AcDbObjectId id)
{
    auto* record = id.isErased() ? nullptr : AcDbSymbolTableRecord::cast(residentObject(id));
    if (record) reachRecord(*record);
}

void WholeCopy::reachAll(AcDbObjectId table)
{
    for (const AcDbObjectId id : static_cast<AcDbSymbolTable*>(residentObject(table))->recordIds())
        reach(id);
}

void WholeCopy::reachNamedInHeader()
{
    const HeaderVariables& header = DatabaseAccess::of(mFrom).header;
    for (const NamingVariable& variable : namingVariables)
        reach(recordNamed(mFrom, variable.code, utf8Of(header.text(variable.name))));
    for (const int style : {3, 7})
        reach(recordNamed(mFrom, style, "Standard"));
    reach(recordNamed(mFrom, 1001, "ACAD"));
}

Acad::ErrorStatus WholeCopy::planAll()
{
    const DatabaseState& from = DatabaseAccess::of(mFrom);
    for (const IdMember table : tables)
        add(*residentObject(from.*table), AcDbObjectId(), Place::owned);
    add(*residentObject(from.namedObjects), AcDbObjectId(), Place::owned);
    for (const IdMember record : records)
        reach(from.*record);
    for (const IdMember table : tablesInUse)
        reachAll(from.*table);
    reachNamedInHeader();
    return plan();
}

void WholeCopy::carryOutAll()
{
    carryOut();
    listRecords();
    takeState();
}

/// In the order of the original's tables.
void WholeCopy::listRecords()
{
    const DatabaseState& from = DatabaseAccess::of(mFrom);
    for (const IdMember member : tables) {
        const auto& original = static_cast<const AcDbSymbolTable&>(*residentObject(from.*member));
        auto& table = static_cast<AcDbSymbolTable&>(*residentObject(copyOf(original.objectId())));
        for (const AcDbObjectId id : original.recordIds()) {
            const auto* copy = AcDbSymbolTableRecord::cast(residentObject(copyOf(id)));
            if (copy) SymbolTableAccess::list(table, copy->objectId(), copy->name());
        }
    }
}

void WholeCopy::takeState()
{
    const DatabaseState& from = DatabaseAccess::of(mFrom);
    DatabaseState& to = DatabaseAccess::of(mTo);
    for (const IdMember member : tables)
        to.*member = copyOf(from.*member);
    for (const IdMember member : records)
        to.*member = copyOf(from.*member);
    to.namedObjects = copyOf(from.namedObjects);
    to.stubs.raiseNextHandle(from.stubs.nextHandle());
    to.header = from.header;
    to.keptSections = from.keptSections;
    to.codePage = from.codePage;
    to.originalVersion = from.originalVersion;
    to.cecolor = from.cecolor;
    to.isBare = false;
}
