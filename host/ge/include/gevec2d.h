#pragma once

#include "gegbl.h"

#include <cmath>

class AcGeMatrix2d;

/// A direction with a length in the plane. Angles are in radians, counter-clockwise.
class AcGeVector2d
{
public:
    constexpr AcGeVector2d() noexcept = default;
    constexpr AcGeVector2d(double xx, double yy) noexcept : x(xx), y(yy) {}

    static const AcGeVector2d kIdentity; ///< the zero vector
    static const AcGeVector2d kXAxis;
    static const AcGeVector2d kYAxis;

    /// Applies the linear part of the matrix.
    friend AcGeVector2d operator*(const AcGeMatrix2d& matrix, const AcGeVector2d& vec);
    AcGeVector2d& setToProduct(const AcGeMatrix2d& matrix, const AcGeVector2d& vec);
    AcGeVector2d& transformBy(const AcGeMatrix2d& matrix);
    AcGeVector2d& rotateBy(double angle);
    /// Mirrors in the line through the origin along `line`; a zero vector changes nothing.
    AcGeVector2d& mirror(const AcGeVector2d& line);

    constexpr AcGeVector2d operator*(double s) const noexcept { return {x * s, y * s}; }
    friend constexpr AcGeVector2d operator*(double s, const AcGeVector2d& v) noexcept { return v * s; }
    AcGeVector2d& operator*=(double s) noexcept { return *this = *this * s; }
    AcGeVector2d& setToProduct(const AcGeVector2d& v, double s) noexcept { return *this = v * s; }
    constexpr AcGeVector2d operator/(double s) const noexcept { return {x / s, y / s}; }
    AcGeVector2d& operator/=(double s) noexcept { return *this = *this / s; }
    constexpr AcGeVector2d operator+(const AcGeVector2d& v) const noexcept { return {x + v.x, y + v.y}; }
    AcGeVector2d& operator+=(const AcGeVector2d& v) noexcept { return *this = *this + v; }
    constexpr AcGeVector2d operator-(const AcGeVector2d& v) const noexcept { return {x - v.x, y - v.y}; }
    AcGeVector2d& operator-=(const AcGeVector2d& v) noexcept { return *this = *this - v; }
    constexpr AcGeVector2d operator-() const noexcept { return {-x, -y}; }
    AcGeVector2d& setToSum(const AcGeVector2d& a, const AcGeVector2d& b) noexcept { return *this = a + b; }
    AcGeVector2d& setToDifference(const AcGeVector2d& a, const AcGeVector2d& b) noexcept
    {
        return *this = a - b;
    }
    AcGeVector2d& negate() noexcept { return *this = -*this; }

    /// This vector turned by a quarter counter-clockwise.
    constexpr AcGeVector2d perpVector() const noexcept { return {-y, x}; }
    /// The angle from the x axis, 0 <= angle < 2 pi; 0 for a zero vector.
    double angle() const;
    /// The angle between the vectors, 0 <= angle <= pi; 0 when one of them is zero.
    double angleTo(const AcGeVector2d& vec) const;

    /// The unit vector of this direction; the zero vector when this is no longer than tol.equalVector().
    AcGeVector2d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector2d& normalize(const AcGeTol& tol = AcGeContext::gTol) { return *this = normal(tol); }
    /// As above; the flag is k0This, and this vector unchanged, when it is too short.
    AcGeVector2d& normalize(const AcGeTol& tol, AcGeError& flag);
    double length() const { return std::hypot(x, y); }
    constexpr double lengthSqrd() const noexcept { return x * x + y * y; }
    bool isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const
    {
        return std::fabs(length() - 1) <= tol.equalVector();
    }
    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const { return length() <= tol.equalVector(); }

    /// Parallel: the unit vectors, one of them reversed perhaps, differ by tol.equalVector() at most.
    /// Codirectional: the same without the reversal. Perpendicular: the unit vectors' dot product is
    /// tol.equalVector() at most. A vector that is zero is none of these; the flag says which one it was.
    bool isParallelTo(const AcGeVector2d& vec, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isParallelTo(const AcGeVector2d& vec, const AcGeTol& tol, AcGeError& flag) const;
    bool isCodirectionalTo(const AcGeVector2d& vec, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isCodirectionalTo(const AcGeVector2d& vec, const AcGeTol& tol, AcGeError& flag) const;
    bool isPerpendicularTo(const AcGeVector2d& vec, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeVector2d& vec, const AcGeTol& tol, AcGeError& flag) const;

    constexpr double dotProduct(const AcGeVector2d& v) const noexcept { return x * v.x + y * v.y; }
    /// The z component of the cross product: positive when `v` is counter-clockwise of this.
    constexpr double crossProduct(const AcGeVector2d& v) const noexcept { return x * v.y - y * v.x; }

    bool operator==(const AcGeVector2d& v) const { return isEqualTo(v); }
    bool operator!=(const AcGeVector2d& v) const { return !isEqualTo(v); }
    /// The difference is no longer than tol.equalVector().
    bool isEqualTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return (*this - v).length() <= tol.equalVector();
    }

    double operator[](unsigned int i) const { return i == 0 ? x : y; }
    double& operator[](unsigned int i) { return i == 0 ? x : y; }
    AcGeVector2d& set(double xx, double yy) noexcept { return *this = AcGeVector2d(xx, yy); }
    /// The translation by this vector.
    operator AcGeMatrix2d() const;

    double x = 0, y = 0;
};
