#include "dbdatabase.h"

#include "actrans.h"
#include "AddRecord.h"
#include "ClassRegistration.h"
#include "CurrentFrame.h"
#include "DatabaseState.h"
#include "DbObjectAccess.h"
#include "DefaultDrawing.h"
#include "DefaultLayouts.h"
#include "DrawingEvents.h"
#include "NamedObjects.h"
#include "ObjectNotices.h"
#include "dbblock.h"

#include <algorithm>

ACDB_ABSTRACT_CLASS(AcDbDatabase, AcRxObject)

namespace
{
AcDbObjectId addTable(AcDbDatabase& database, AcDbSymbolTable* table)
{
    AcDbObjectId id;
    database.addAcDbObject(id, table);
    table->close();
    return id;
}


void addTables(AcDbDatabase& database, DatabaseState& state)
{
    state.blockTable = addTable(database, new AcDbBlockTable);
    state.layerTable = addTable(database, new AcDbLayerTable);
    state.textStyleTable = addTable(database, new AcDbTextStyleTable);
    state.linetypeTable = addTable(database, new AcDbLinetypeTable);
    state.viewTable = addTable(database, new AcDbViewTable);
    state.ucsTable = addTable(database, new AcDbUCSTable);
    state.viewportTable = addTable(database, new AcDbViewportTable);
    state.regAppTable = addTable(database, new AcDbRegAppTable);
    state.dimStyleTable = addTable(database, new AcDbDimStyleTable);
}

/// The records that objects of any drawing refer to.
void addFirstRecords(AcDbDatabase& database, DatabaseState& state)
{
    addRecord<AcDbRegAppTable>(database, new AcDbRegAppTableRecord, L"ACAD");
    state.byBlock = addRecord<AcDbLinetypeTable>(database, new AcDbLinetypeTableRecord, L"ByBlock");
    state.byLayer = addRecord<AcDbLinetypeTable>(database, new AcDbLinetypeTableRecord, L"ByLayer");
    state.continuous = addRecord<AcDbLinetypeTable>(database, new AcDbLinetypeTableRecord, L"Continuous");
    state.layerZero = state.clayer = addRecord<AcDbLayerTable>(database, new AcDbLayerTableRecord, L"0");
    state.celtype = state.byLayer;
    state.textstyle = addRecord<AcDbTextStyleTable>(database, new AcDbTextStyleTableRecord, L"Standard");
    state.modelSpace = addRecord<AcDbBlockTable>(database, new AcDbBlockTableRecord, ACDB_MODEL_SPACE);
    state.paperSpace = addRecord<AcDbBlockTable>(database, new AcDbBlockTableRecord, ACDB_PAPER_SPACE);
}
} // namespace

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool) : mState(std::make_unique<DatabaseState>(this))
{
    mState->isBare = !buildDefaultDrawing;
    addTables(*this, *mState);
    addFirstRecords(*this, *mState);
    mState->namedObjects = addNamedObjects(*this);
    if (buildDefaultDrawing) {
        addDefaultContents(*this);
        addMissingLayouts(*this);
    }
    events::tell([&](AcRxEventReactor& reactor) { reactor.databaseConstructed(this); });
}

AcDbDatabase::~AcDbDatabase()
{
    events::tell([&](AcRxEventReactor& reactor) { reactor.databaseToBeDestroyed(this); });
    notices::goodbye(*this);
}

DatabaseState::DatabaseState(AcDbDatabase* database) : stubs(database), codePage(GetACP()) {}

DatabaseState::~DatabaseState()
{
    // Objects go before the stubs that name them; nothing is told of the others while they do.
    for (AcDbStub& stub : stubs) {
        delete stub.object;
        stub.object = nullptr;
    }
}

void DatabaseAccess::reset(AcDbDatabase& database)
{
    std::vector<AcDbDatabaseReactor*> reactors = std::move(database.mState->reactors);
    database.mState = std::make_unique<DatabaseState>(&database);
    database.mState->isBare = true;
    database.mState->reactors = std::move(reactors);
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle,
                                                std::uint32_t) const
{
    StubTable& stubs = mState->stubs;
    if (createIfNotFound) {
        id = handle.isNull() ? stubs.add() : stubs.obtain(handle.value());
        return Acad::eOk;
    }
    // References of a file to what it does not hold have a stub as well.
    AcDbStub* const stub = stubs.find(handle.value());
    id = stub && stub->object ? stub : nullptr;
    return id.isNull() ? Acad::eUnknownHandle : Acad::eOk;
}

AcDbHandle AcDbDatabase::handseed() const { return AcDbHandle(mState->stubs.nextHandle()); }

int AcDbDatabase::approxNumObjects() const
{
    StubTable& stubs = mState->stubs;
    return static_cast<int>(std::count_if(stubs.begin(), stubs.end(),
                                          [](const AcDbStub& stub) { return stub.object && !stub.erased; }));
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId& id, AcDbObject* object, AcDbObjectId owner)
{
    if (!object) return Acad::eNullObjectPointer;
    if (object->database()) return Acad::eAlreadyInDb;
    AcDbStub* stub = mState->stubs.add();
    DbObjectAccess::makeResident(*object, *stub, owner);
    id = stub;
    notices::appended(*object);
    return Acad::eOk;
}

#define ACDB_TABLE_ACCESS(KIND, ID, MEMBER)                                                                  \
    AcDbObjectId AcDbDatabase::ID() const { return mState->MEMBER; }                                         \
    Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDb##KIND##Table*& table, AcDb::OpenMode mode)           \
    {                                                                                                        \
        return acdbOpenObject(table, mState->MEMBER, mode);                                                  \
    }                                                                                                        \
    Acad::ErrorStatus AcDbDatabase::get##KIND##Table(AcDb##KIND##Table*& table, AcDb::OpenMode mode)         \
    {                                                                                                        \
        return acdbOpenObject(table, mState->MEMBER, mode);                                                  \
    }

ACDB_TABLE_ACCESS(Block, blockTableId, blockTable)
ACDB_TABLE_ACCESS(Layer, layerTableId, layerTable)
ACDB_TABLE_ACCESS(Linetype, linetypeTableId, linetypeTable)
ACDB_TABLE_ACCESS(TextStyle, textStyleTableId, textStyleTable)
ACDB_TABLE_ACCESS(DimStyle, dimStyleTableId, dimStyleTable)
ACDB_TABLE_ACCESS(UCS, UCSTableId, ucsTable)
ACDB_TABLE_ACCESS(View, viewTableId, viewTable)
ACDB_TABLE_ACCESS(Viewport, viewportTableId, viewportTable)
ACDB_TABLE_ACCESS(RegApp, regAppTableId, regAppTable)

AcDbObjectId AcDbDatabase::layerZero() const { return mState->layerZero; }
AcDbObjectId AcDbDatabase::byLayerLinetype() const { return mState->byLayer; }
AcDbObjectId AcDbDatabase::byBlockLinetype() const { return mState->byBlock; }
AcDbObjectId AcDbDatabase::continuousLinetype() const { return mState->continuous; }
AcDbObjectId AcDbDatabase::modelSpaceId() const { return mState->modelSpace; }
AcDbObjectId AcDbDatabase::currentSpaceId() const
{
    if (tilemode() || mState->paperSpace.isNull()) return mState->modelSpace;
    return frames::activeWindow(*this) ? mState->modelSpace : mState->paperSpace;
}

