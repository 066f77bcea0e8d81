#include "gescl2d.h"

#include "gemat2d.h"

const AcGeScale2d AcGeScale2d::kIdentity{1, 1};

AcGeScale2d::operator AcGeMatrix2d() const
{
    AcGeMatrix2d matrix;
    getMatrix(matrix);
    return matrix;
}

void AcGeScale2d::getMatrix(AcGeMatrix2d& matrix) const
{
    matrix.setCoordSystem(AcGePoint2d::kOrigin, AcGeVector2d::kXAxis * sx, AcGeVector2d::kYAxis * sy);
}
