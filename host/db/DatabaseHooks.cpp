#include "DatabaseHooks.h"

namespace
{
hooks::DatabaseGate databaseGate = nullptr;
hooks::Highlighter shownHighlight = nullptr;
}

namespace hooks
{
void setDatabaseGate(DatabaseGate gate) { databaseGate = gate; }

Acad::ErrorStatus mayWrite(const AcDbDatabase* database)
{
    return databaseGate && database ? databaseGate(*database) : Acad::eOk;
}

Acad::ErrorStatus mayWrite(const AcDbObject& object)
{
    const Acad::ErrorStatus status = mayWrite(object.database());
    return status == Acad::eOk ? object.subMayWrite() : status;
}

void setHighlighter(Highlighter highlighter) { shownHighlight = highlighter; }

void highlight(AcDbObjectId entity, bool on)
{
    if (shownHighlight) shownHighlight(entity, on);
}
} // namespace hooks
