#include "geblok2d.h"

#include "DimensionNames.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(2d)
} // namespace

#include "AcGeBoundBlock.inl"

AcGeBoundBlock2d::AcGeBoundBlock2d(const AcGePoint2d& base, const AcGeVector2d& dir1,
                                   const AcGeVector2d& dir2)
    : mBase(base), mEdge{dir1, dir2}
{
}

void AcGeBoundBlock2d::get(AcGePoint2d& base, AcGeVector2d& dir1, AcGeVector2d& dir2) const
{
    base = mBase;
    dir1 = mEdge[0];
    dir2 = mEdge[1];
}

AcGeBoundBlock2d& AcGeBoundBlock2d::set(const AcGePoint2d& base, const AcGeVector2d& dir1,
                                        const AcGeVector2d& dir2)
{
    return *this = AcGeBoundBlock2d(base, dir1, dir2);
}
