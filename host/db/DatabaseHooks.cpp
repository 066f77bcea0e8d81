#include "DatabaseHooks.h"

namespace
{
hooks::DatabaseGate databaseGate = nullptr;
}

namespace hooks
{
void setDatabaseGate(DatabaseGate gate) { databaseGate = gate; }

Acad::ErrorStatus mayWrite(const AcDbObject& object)
{
    const AcDbDatabase* database = object.database();
    if (databaseGate && database) {
        const Acad::ErrorStatus status = databaseGate(*database);
        if (status != Acad::eOk) return status;
    }
    return object.subMayWrite();
}
} // namespace hooks
