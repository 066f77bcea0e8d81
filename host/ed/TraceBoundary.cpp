#include "acedtrace.h"

#include "Boundary.h"
#include "dbapserv.h"
#include "dbdatabase.h"
#include "dbxutil.h"

#include <cmath>

Acad::ErrorStatus acedTraceBoundary(const AcGePoint3d& seedPoint, bool detectIslands,
                                    AcDbVoidPtrArray& resultingBoundarySet)
{
    const AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database) return Acad::eNoDatabase;
    if (!std::isfinite(seedPoint.x) || !std::isfinite(seedPoint.y) || !std::isfinite(seedPoint.z))
        return Acad::eInvalidInput;
    boundary::Query query;
    query.seed = seedPoint;
    query.islands = detectIslands;
    acdbUcsMatrix(query.planeToWorld);
    for (auto& outline : boundary::around(boundary::candidatesIn(database->currentSpaceId()), query))
        resultingBoundarySet.append(outline.release());
    return Acad::eOk;
}
