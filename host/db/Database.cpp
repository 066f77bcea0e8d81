#include "dbdatabase.h"

#include "DatabaseState.h"
#include "DbObjectAccess.h"

#include <algorithm>

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabase, AcRxObject)

namespace
{
void registerClasses()
{
    AcDbObject::rxInit();
    AcDbObjectReactor::rxInit();
    AcDbDatabase::rxInit();
    AcDbSymbolTable::rxInit();
    AcDbSymbolTableRecord::rxInit();
    AcDbRegAppTable::rxInit();
    AcDbRegAppTableRecord::rxInit();
}

AcDbObjectId addTable(AcDbDatabase& database, AcDbSymbolTable* table)
{
    AcDbObjectId id;
    database.addAcDbObject(id, table);
    table->close();
    return id;
}

/// Every drawing knows the application "ACAD".
void addAcadApplication(AcDbDatabase& database)
{
    AcDbRegAppTable* table = nullptr;
    if (database.getRegAppTable(table, AcDb::kForWrite) != Acad::eOk) return;
    auto* record = new AcDbRegAppTableRecord;
    record->setName(L"ACAD");
    table->add(record);
    record->close();
    table->close();
}
} // namespace

AcDbDatabase::AcDbDatabase() : mState(std::make_unique<DatabaseState>(this))
{
    registerClasses();
    mState->regAppTable = addTable(*this, new AcDbRegAppTable);
    addAcadApplication(*this);
}

AcDbDatabase::~AcDbDatabase()
{
    // Objects go before the stubs that name them; nothing is told of the others while they do.
    for (AcDbStub& stub : mState->stubs) {
        delete stub.object;
        stub.object = nullptr;
    }
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle,
                                                std::uint32_t) const
{
    StubTable& stubs = mState->stubs;
    id = createIfNotFound ? (handle.isNull() ? stubs.add() : stubs.obtain(handle.value())) : stubs.find(handle.value());
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
    return Acad::eOk;
}

#define ACDB_TABLE_ACCESS(KIND, GETTER, IDGETTER, MEMBER)                                                    \
    AcDbObjectId AcDbDatabase::IDGETTER() const { return mState->MEMBER; }                                   \
    Acad::ErrorStatus AcDbDatabase::GETTER(KIND*& table, AcDb::OpenMode mode)                                \
    {                                                                                                        \
        return acdbOpenObject(table, mState->MEMBER, mode);                                                  \
    }

ACDB_TABLE_ACCESS(AcDbRegAppTable, getRegAppTable, regAppTableId, regAppTable)
