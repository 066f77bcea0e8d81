#include "acedselect.h"
#include "SelectionState.h"
#include "dbobjptr.h"

namespace
{
AcGeMatrix3d matrixOf(const ads_matrix from)
{
    AcGeMatrix3d matrix;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            matrix.entry[row][column] = from[row][column];
    }
    return matrix;
}
} // namespace

int acedXformSS(const ads_name ss, ads_matrix matrix)
{
    const ed::SelectionSet* const set = ss && matrix ? ed::selectionSet(ss) : nullptr;
    if (!set) return RTERROR;
    const AcGeMatrix3d map = matrixOf(matrix);
    bool isDone = true;
    for (const AcDbObjectId id : set->ids()) {
        if (id.isErased()) continue;
        const AcDbEntityPointer entity(id, AcDb::kForWrite);
        isDone &= entity.openStatus() == Acad::eOk && entity->transformBy(map) == Acad::eOk;
    }
    return isDone ? RTNORM : RTERROR;
}
