#pragma once

#include "gevec2d.h"

class AcGeLine2d;
class AcGeMatrix2d;

/// A place in the plane.
class AcGePoint2d
{
public:
    constexpr AcGePoint2d() noexcept = default;
    constexpr AcGePoint2d(double xx, double yy) noexcept : x(xx), y(yy) {}

    static const AcGePoint2d kOrigin;

    friend AcGePoint2d operator*(const AcGeMatrix2d& matrix, const AcGePoint2d& pnt);
    AcGePoint2d& setToProduct(const AcGeMatrix2d& matrix, const AcGePoint2d& pnt);
    AcGePoint2d& transformBy(const AcGeMatrix2d& matrix);
    /// Rotates counter-clockwise about a point.
    AcGePoint2d& rotateBy(double angle, const AcGePoint2d& wrtPoint = kOrigin);
    AcGePoint2d& mirror(const AcGeLine2d& line);
    AcGePoint2d& scaleBy(double scaleFactor, const AcGePoint2d& wrtPoint = kOrigin)
    {
        return *this = wrtPoint + (*this - wrtPoint) * scaleFactor;
    }

    constexpr AcGePoint2d operator*(double s) const noexcept { return {x * s, y * s}; }
    friend constexpr AcGePoint2d operator*(double s, const AcGePoint2d& p) noexcept { return p * s; }
    AcGePoint2d& operator*=(double s) noexcept { return *this = *this * s; }
    constexpr AcGePoint2d operator/(double s) const noexcept { return {x / s, y / s}; }
    AcGePoint2d& operator/=(double s) noexcept { return *this = *this / s; }
    constexpr AcGePoint2d operator+(const AcGeVector2d& v) const noexcept { return {x + v.x, y + v.y}; }
    AcGePoint2d& operator+=(const AcGeVector2d& v) noexcept { return *this = *this + v; }
    constexpr AcGePoint2d operator-(const AcGeVector2d& v) const noexcept { return {x - v.x, y - v.y}; }
    AcGePoint2d& operator-=(const AcGeVector2d& v) noexcept { return *this = *this - v; }
    AcGePoint2d& setToSum(const AcGePoint2d& p, const AcGeVector2d& v) noexcept { return *this = p + v; }
    constexpr AcGeVector2d operator-(const AcGePoint2d& p) const noexcept { return {x - p.x, y - p.y}; }
    constexpr AcGeVector2d asVector() const noexcept { return {x, y}; }
    double distanceTo(const AcGePoint2d& p) const { return (*this - p).length(); }

    bool operator==(const AcGePoint2d& p) const { return isEqualTo(p); }
    bool operator!=(const AcGePoint2d& p) const { return !isEqualTo(p); }
    /// The distance is tol.equalPoint() at most.
    bool isEqualTo(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return (*this - p).length() <= tol.equalPoint();
    }
    double operator[](unsigned int i) const { return i == 0 ? x : y; }
    double& operator[](unsigned int i) { return i == 0 ? x : y; }
    AcGePoint2d& set(double xx, double yy) noexcept { return *this = AcGePoint2d(xx, yy); }

    double x = 0, y = 0;
};
