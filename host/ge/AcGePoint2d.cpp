#include "gepnt2d.h"

#include "gemat2d.h"

const AcGePoint2d AcGePoint2d::kOrigin{0, 0};

AcGePoint2d operator*(const AcGeMatrix2d& m, const AcGePoint2d& p)
{
    return {m.entry[0][0] * p.x + m.entry[0][1] * p.y + m.entry[0][2],
            m.entry[1][0] * p.x + m.entry[1][1] * p.y + m.entry[1][2]};
}

AcGePoint2d& AcGePoint2d::setToProduct(const AcGeMatrix2d& matrix, const AcGePoint2d& pnt)
{
    return *this = matrix * pnt;
}

AcGePoint2d& AcGePoint2d::transformBy(const AcGeMatrix2d& matrix)
{
    return *this = matrix * *this;
}

AcGePoint2d& AcGePoint2d::rotateBy(double angle, const AcGePoint2d& wrtPoint)
{
    return *this = wrtPoint + (*this - wrtPoint).rotateBy(angle);
}

AcGePoint2d& AcGePoint2d::mirror(const AcGeLine2d& line)
{
    return transformBy(AcGeMatrix2d::mirroring(line));
}
