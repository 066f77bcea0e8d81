#include "acedselect.h"
#include "AdsMatrix.h"
#include "dbobjptr.h"
#include "SelectionState.h"

int acedXformSS(const ads_name ss, ads_matrix matrix)
{
    const ed::SelectionSet* const set = ss && matrix ? ed::selectionSet(ss) : nullptr;
    if (!set) return RTERROR;
    const AcGeMatrix3d map = ed::matrixOf(matrix);
    bool isDone = true;
    for (const AcDbObjectId id : set->ids()) {
        if (id.isErased()) continue;
        const AcDbEntityPointer entity(id, AcDb::kForWrite);
        isDone &= entity.openStatus() == Acad::eOk && entity->transformBy(map) == Acad::eOk;
    }
    return isDone ? RTNORM : RTERROR;
}
