#include "gescl3d.h"

#include "gemat3d.h"

const AcGeScale3d AcGeScale3d::kIdentity{1, 1, 1};

AcGeScale3d::operator AcGeMatrix3d() const
{
    AcGeMatrix3d matrix;
    getMatrix(matrix);
    return matrix;
}

void AcGeScale3d::getMatrix(AcGeMatrix3d& matrix) const
{
    matrix.setCoordSystem(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis * sx, AcGeVector3d::kYAxis * sy,
                          AcGeVector3d::kZAxis * sz);
}

AcGeScale3d& AcGeScale3d::extractScale(const AcGeMatrix3d& matrix)
{
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    matrix.getCoordSystem(origin, x, y, z);
    return set(x.length(), y.length(), z.length());
}
