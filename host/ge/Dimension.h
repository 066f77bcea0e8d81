#pragma once

/// Between the plane and space: curves of the plane are computed in space at z = 0.

#include "gepnt3d.h"

namespace gecore
{
/// Points and vectors of the numeric forms, in sources that exist for both dimensions.
using Place = AcGePoint3d;
using Arrow = AcGeVector3d;

inline AcGePoint3d lift(const AcGePoint3d& p)
{
    return p;
}
inline AcGePoint3d lift(const AcGePoint2d& p)
{
    return {p.x, p.y, 0};
}
inline AcGeVector3d lift(const AcGeVector3d& v)
{
    return v;
}
inline AcGeVector3d lift(const AcGeVector2d& v)
{
    return {v.x, v.y, 0};
}
inline AcGePoint3d toPoint3d(const AcGePoint3d& p)
{
    return p;
}
inline AcGePoint2d toPoint2d(const AcGePoint3d& p)
{
    return {p.x, p.y};
}
inline AcGeVector3d toVector3d(const AcGeVector3d& v)
{
    return v;
}
inline AcGeVector2d toVector2d(const AcGeVector3d& v)
{
    return {v.x, v.y};
}
} // namespace gecore
