#include "DatabaseHooks.h"

namespace
{
hooks::DatabaseGate databaseGate = nullptr;
hooks::Highlighter shownHighlight = nullptr;
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

void setHighlighter(Highlighter highlighter) { shownHighlight = highlighter; }

void highlight(AcDbObjectId entity, bool on)
{
    if (shownHighlight) shownHighlight(entity, on);
}
} // namespace hooks
