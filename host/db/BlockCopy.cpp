#include "BlockCopy.h"

#include "CopySession.h"
#include "dbdatabase.h"

Acad::ErrorStatus copyEntities(const AcDbBlockTableRecord& from, AcDbBlockTableRecord& to, AcDbIdMapping& map)
{
    CopySession session(*from.database(), *to.database(), map);
    for (const AcDbObjectId id : from.entityIds()) {
        if (id.isValid() && !id.isErased()) session.addEntity(id, to.objectId());
    }
    const Acad::ErrorStatus status = session.plan();
    if (status == Acad::eOk) session.carryOut();
    return status;
}
