#pragma once

/// The same numbers seen as a point, as a vector, or as an array of doubles. Nothing is copied.

#include "gepnt3d.h"

static_assert(sizeof(AcGePoint2d) == 2 * sizeof(double) && sizeof(AcGePoint3d) == 3 * sizeof(double));

inline AcGePoint2d& asPnt2d(double* pnt)
{
    return *reinterpret_cast<AcGePoint2d*>(pnt);
}
inline const AcGePoint2d& asPnt2d(const double* pnt)
{
    return *reinterpret_cast<const AcGePoint2d*>(pnt);
}
inline AcGePoint3d& asPnt3d(double* pnt)
{
    return *reinterpret_cast<AcGePoint3d*>(pnt);
}
inline const AcGePoint3d& asPnt3d(const double* pnt)
{
    return *reinterpret_cast<const AcGePoint3d*>(pnt);
}
inline AcGeVector2d& asVec2d(double* vec)
{
    return *reinterpret_cast<AcGeVector2d*>(vec);
}
inline const AcGeVector2d& asVec2d(const double* vec)
{
    return *reinterpret_cast<const AcGeVector2d*>(vec);
}
inline AcGeVector3d& asVec3d(double* vec)
{
    return *reinterpret_cast<AcGeVector3d*>(vec);
}
inline const AcGeVector3d& asVec3d(const double* vec)
{
    return *reinterpret_cast<const AcGeVector3d*>(vec);
}
inline double* asDblArray(AcGePoint2d& pnt)
{
    return &pnt.x;
}
inline const double* asDblArray(const AcGePoint2d& pnt)
{
    return &pnt.x;
}
inline double* asDblArray(AcGePoint3d& pnt)
{
    return &pnt.x;
}
inline const double* asDblArray(const AcGePoint3d& pnt)
{
    return &pnt.x;
}
inline double* asDblArray(AcGeVector2d& vec)
{
    return &vec.x;
}
inline const double* asDblArray(const AcGeVector2d& vec)
{
    return &vec.x;
}
inline double* asDblArray(AcGeVector3d& vec)
{
    return &vec.x;
}
inline const double* asDblArray(const AcGeVector3d& vec)
{
    return &vec.x;
}
