#include "dbextent.h"

#include <algorithm>

Acad::ErrorStatus AcDbExtents::set(const AcGePoint3d& min, const AcGePoint3d& max)
{
    if (!(min.x <= max.x && min.y <= max.y && min.z <= max.z)) return Acad::eInvalidInput;
    mMin = min;
    mMax = max;
    return Acad::eOk;
}

void AcDbExtents::addPoint(const AcGePoint3d& point)
{
    mMin.set(std::min(mMin.x, point.x), std::min(mMin.y, point.y), std::min(mMin.z, point.z));
    mMax.set(std::max(mMax.x, point.x), std::max(mMax.y, point.y), std::max(mMax.z, point.z));
}

void AcDbExtents::addExt(const AcDbExtents& other)
{
    if (other.isEmpty()) return;
    addPoint(other.mMin);
    addPoint(other.mMax);
}

void AcDbExtents::expandBy(const AcGeVector3d& vector)
{
    if (isEmpty()) return;
    const AcGePoint3d min = mMin + vector;
    const AcGePoint3d max = mMax + vector;
    addPoint(min);
    addPoint(max);
}

void AcDbExtents::transformBy(const AcGeMatrix3d& matrix)
{
    if (isEmpty()) return;
    const AcDbExtents from = *this;
    *this = AcDbExtents();
    for (int corner = 0; corner < 8; ++corner) {
        const AcGePoint3d point(corner & 1 ? from.mMax.x : from.mMin.x, corner & 2 ? from.mMax.y : from.mMin.y,
                                corner & 4 ? from.mMax.z : from.mMin.z);
        addPoint(matrix * point);
    }
}

Acad::ErrorStatus AcDbExtents2d::set(const AcGePoint2d& min, const AcGePoint2d& max)
{
    if (!(min.x <= max.x && min.y <= max.y)) return Acad::eInvalidInput;
    mMin = min;
    mMax = max;
    return Acad::eOk;
}

void AcDbExtents2d::addPoint(const AcGePoint2d& point)
{
    mMin.set(std::min(mMin.x, point.x), std::min(mMin.y, point.y));
    mMax.set(std::max(mMax.x, point.x), std::max(mMax.y, point.y));
}

void AcDbExtents2d::addExt(const AcDbExtents2d& other)
{
    if (other.mMin.x > other.mMax.x) return;
    addPoint(other.mMin);
    addPoint(other.mMax);
}
