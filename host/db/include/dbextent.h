#pragma once

/// Boxes around drawing objects, parallel to the world axes.

#include "acadstrc.h"
#include "gemat3d.h"
#include "gepnt2d.h"
#include "gepnt3d.h"

#include <limits>

/// A new box is empty: its minimum lies above its maximum, and anything added to it becomes the box.
class AcDbExtents
{
public:
    AcDbExtents() = default;
    AcDbExtents(const AcGePoint3d& min, const AcGePoint3d& max) : mMin(min), mMax(max) {}

    AcGePoint3d minPoint() const { return mMin; }
    AcGePoint3d maxPoint() const { return mMax; }
    /// eInvalidInput, and nothing changed, when a coordinate of `min` is above that of `max`.
    Acad::ErrorStatus set(const AcGePoint3d& min, const AcGePoint3d& max);
    void addPoint(const AcGePoint3d& point);
    void addExt(const AcDbExtents& other);
    /// Widens by the box moved along a vector.
    void expandBy(const AcGeVector3d& vector);
    /// The box around the mapped box.
    void transformBy(const AcGeMatrix3d& matrix);
    bool isEmpty() const { return mMin.x > mMax.x; }
    bool isEqualTo(const AcDbExtents& other, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return mMin.isEqualTo(other.mMin, tol) && mMax.isEqualTo(other.mMax, tol);
    }

private:
    static constexpr double most = 1.0e20;
    AcGePoint3d mMin{most, most, most};
    AcGePoint3d mMax{-most, -most, -most};
};

class AcDbExtents2d
{
public:
    AcDbExtents2d() = default;
    AcDbExtents2d(const AcGePoint2d& min, const AcGePoint2d& max) : mMin(min), mMax(max) {}

    AcGePoint2d minPoint() const { return mMin; }
    AcGePoint2d maxPoint() const { return mMax; }
    Acad::ErrorStatus set(const AcGePoint2d& min, const AcGePoint2d& max);
    void addPoint(const AcGePoint2d& point);
    void addExt(const AcDbExtents2d& other);

private:
    static constexpr double most = 1.0e20;
    AcGePoint2d mMin{most, most};
    AcGePoint2d mMax{-most, -most};
};
