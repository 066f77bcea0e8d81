#include "CUcsWcs.h"

#include "dbxutil.h"

int CArxUtils::CUcsWcs::UcsToWcs(AcDbEntity* entity, AcDbDatabase* database)
{
    AcGeMatrix3d ucsToWorld;
    if (!entity || !acdbUcsMatrix(ucsToWorld, database)) return 0;
    // A map that changes nothing would still round.
    if (ucsToWorld.isEqualTo(AcGeMatrix3d::kIdentity, AcGeTol().setEqualVector(0.0))) return 1;
    return entity->transformBy(ucsToWorld) == Acad::eOk;
}
