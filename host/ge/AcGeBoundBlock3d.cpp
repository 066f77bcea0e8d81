#include "geblok3d.h"

#include "DimensionNames.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(3d)
} // namespace

#include "AcGeBoundBlock.inl"

AcGeBoundBlock3d::AcGeBoundBlock3d(const AcGePoint3d& base, const AcGeVector3d& dir1,
                                   const AcGeVector3d& dir2, const AcGeVector3d& dir3)
    : mBase(base), mEdge{dir1, dir2, dir3}
{
}

void AcGeBoundBlock3d::get(AcGePoint3d& base, AcGeVector3d& dir1, AcGeVector3d& dir2,
                           AcGeVector3d& dir3) const
{
    base = mBase;
    dir1 = mEdge[0];
    dir2 = mEdge[1];
    dir3 = mEdge[2];
}

AcGeBoundBlock3d& AcGeBoundBlock3d::set(const AcGePoint3d& base, const AcGeVector3d& dir1,
                                        const AcGeVector3d& dir2, const AcGeVector3d& dir3)
{
    return *this = AcGeBoundBlock3d(base, dir1, dir2, dir3);
}
