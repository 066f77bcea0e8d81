#pragma once

#include "gepnt2d.h"
#include "gevec3d.h"

class AcGePlane;

/// A place in space.
class AcGePoint3d
{
public:
    constexpr AcGePoint3d() noexcept = default;
    constexpr AcGePoint3d(double xx, double yy, double zz) noexcept : x(xx), y(yy), z(zz) {}
    /// The point with the coordinates `pnt` in the plane's own system.
    AcGePoint3d(const AcGePlanarEnt& plane, const AcGePoint2d& pnt);

    static const AcGePoint3d kOrigin;

    friend AcGePoint3d operator*(const AcGeMatrix3d& matrix, const AcGePoint3d& pnt);
    AcGePoint3d& setToProduct(const AcGeMatrix3d& matrix, const AcGePoint3d& pnt);
    AcGePoint3d& transformBy(const AcGeMatrix3d& matrix);
    /// Rotates about the axis `vec` through a point; a zero axis changes nothing.
    AcGePoint3d& rotateBy(double angle, const AcGeVector3d& vec, const AcGePoint3d& wrtPoint = kOrigin);
    AcGePoint3d& mirror(const AcGePlane& plane);
    AcGePoint3d& scaleBy(double scaleFactor, const AcGePoint3d& wrtPoint = kOrigin)
    {
        return *this = wrtPoint + (*this - wrtPoint) * scaleFactor;
    }
    /// The coordinates in the plane's own system of this point's orthogonal projection.
    AcGePoint2d convert2d(const AcGePlanarEnt& plane) const;

    constexpr AcGePoint3d operator*(double s) const noexcept { return {x * s, y * s, z * s}; }
    friend constexpr AcGePoint3d operator*(double s, const AcGePoint3d& p) noexcept { return p * s; }
    AcGePoint3d& operator*=(double s) noexcept { return *this = *this * s; }
    constexpr AcGePoint3d operator/(double s) const noexcept { return {x / s, y / s, z / s}; }
    AcGePoint3d& operator/=(double s) noexcept { return *this = *this / s; }
    constexpr AcGePoint3d operator+(const AcGeVector3d& v) const noexcept
    {
        return {x + v.x, y + v.y, z + v.z};
    }
    AcGePoint3d& operator+=(const AcGeVector3d& v) noexcept { return *this = *this + v; }
    constexpr AcGePoint3d operator-(const AcGeVector3d& v) const noexcept
    {
        return {x - v.x, y - v.y, z - v.z};
    }
    AcGePoint3d& operator-=(const AcGeVector3d& v) noexcept { return *this = *this - v; }
    AcGePoint3d& setToSum(const AcGePoint3d& p, const AcGeVector3d& v) noexcept { return *this = p + v; }
    constexpr AcGeVector3d operator-(const AcGePoint3d& p) const noexcept
    {
        return {x - p.x, y - p.y, z - p.z};
    }
    constexpr AcGeVector3d asVector() const noexcept { return {x, y, z}; }
    double distanceTo(const AcGePoint3d& p) const { return (*this - p).length(); }

    /// The foot on the plane along `vec`; unchanged when `vec` is parallel to the plane.
    AcGePoint3d project(const AcGePlane& plane, const AcGeVector3d& vec) const;
    AcGePoint3d orthoProject(const AcGePlane& plane) const;

    bool operator==(const AcGePoint3d& p) const { return isEqualTo(p); }
    bool operator!=(const AcGePoint3d& p) const { return !isEqualTo(p); }
    /// The distance is tol.equalPoint() at most.
    bool isEqualTo(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return (*this - p).length() <= tol.equalPoint();
    }
    double operator[](unsigned int i) const { return i == 0 ? x : i == 1 ? y : z; }
    double& operator[](unsigned int i) { return i == 0 ? x : i == 1 ? y : z; }
    AcGePoint3d& set(double xx, double yy, double zz) noexcept { return *this = AcGePoint3d(xx, yy, zz); }
    AcGePoint3d& set(const AcGePlanarEnt& plane, const AcGePoint2d& pnt);

    double x = 0, y = 0, z = 0;
};
