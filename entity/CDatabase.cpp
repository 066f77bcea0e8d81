#include "CDatabase.h"

#include "CDebugError.h"
#include "dbapserv.h"
#include "dbobjptr.h"

int CArxUtils::CDatabase::AddToDb(AcDbEntity* entity, AcDbObjectId& id)
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!entity || !database) return 0;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database->currentSpaceId(), AcDb::kForWrite);
    AcDbObjectId added;
    Acad::ErrorStatus status = space.openStatus();
    if (status == Acad::eOk) status = space->appendAcDbEntity(added, entity);
    if (status != Acad::eOk) {
        CDebugError::RxErrorMsg(status, L"CArxUtils::CDatabase::AddToDb");
        return 0;
    }
    id = added;
    return 1;
}
