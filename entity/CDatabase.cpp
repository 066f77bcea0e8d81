#include "CDatabase.h"

#include "dbapserv.h"
#include "OpenReport.h"

int CArxUtils::CDatabase::AddToDb(AcDbEntity* entity, AcDbObjectId& id)
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!entity || !database) return 0;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database->currentSpaceId(), AcDb::kForWrite);
    AcDbObjectId added;
    if (!entity::isOpen(space, L"AddToDb")) return 0;
    if (space->appendAcDbEntity(added, entity) != Acad::eOk) return 0;
    id = added;
    return 1;
}
