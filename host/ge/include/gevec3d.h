#pragma once

#include "gegbl.h"
#include "gevec2d.h"

#include <cmath>

class AcGeMatrix3d;
class AcGePlanarEnt;

/// A direction with a length in space. Angles are in radians, right-handed about their axis.
class AcGeVector3d
{
public:
    constexpr AcGeVector3d() noexcept = default;
    constexpr AcGeVector3d(double xx, double yy, double zz) noexcept : x(xx), y(yy), z(zz) {}
    /// The vector with the coordinates `v` along the axes of the plane.
    AcGeVector3d(const AcGePlanarEnt& plane, const AcGeVector2d& v);

    static const AcGeVector3d kIdentity; ///< the zero vector
    static const AcGeVector3d kXAxis;
    static const AcGeVector3d kYAxis;
    static const AcGeVector3d kZAxis;

    /// Applies the linear part of the matrix.
    friend AcGeVector3d operator*(const AcGeMatrix3d& matrix, const AcGeVector3d& vec);
    AcGeVector3d& setToProduct(const AcGeMatrix3d& matrix, const AcGeVector3d& vec);
    AcGeVector3d& transformBy(const AcGeMatrix3d& matrix);
    /// Rotates about `axis`; a zero axis changes nothing.
    AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis);
    /// Mirrors in the plane with this normal; a zero normal changes nothing.
    AcGeVector3d& mirror(const AcGeVector3d& normalToPlane);
    /// The coordinates of this vector along the axes of the plane.
    AcGeVector2d convert2d(const AcGePlanarEnt& plane) const;

    constexpr AcGeVector3d operator*(double s) const noexcept { return {x * s, y * s, z * s}; }
    friend constexpr AcGeVector3d operator*(double s, const AcGeVector3d& v) noexcept { return v * s; }
    AcGeVector3d& operator*=(double s) noexcept { return *this = *this * s; }
    AcGeVector3d& setToProduct(const AcGeVector3d& v, double s) noexcept { return *this = v * s; }
    constexpr AcGeVector3d operator/(double s) const noexcept { return {x / s, y / s, z / s}; }
    AcGeVector3d& operator/=(double s) noexcept { return *this = *this / s; }
    constexpr AcGeVector3d operator+(const AcGeVector3d& v) const noexcept
    {
        return {x + v.x, y + v.y, z + v.z};
    }
    AcGeVector3d& operator+=(const AcGeVector3d& v) noexcept { return *this = *this + v; }
    constexpr AcGeVector3d operator-(const AcGeVector3d& v) const noexcept
    {
        return {x - v.x, y - v.y, z - v.z};
    }
    AcGeVector3d& operator-=(const AcGeVector3d& v) noexcept { return *this = *this - v; }
    constexpr AcGeVector3d operator-() const noexcept { return {-x, -y, -z}; }
    AcGeVector3d& setToSum(const AcGeVector3d& a, const AcGeVector3d& b) noexcept { return *this = a + b; }
    AcGeVector3d& setToDifference(const AcGeVector3d& a, const AcGeVector3d& b) noexcept
    {
        return *this = a - b;
    }
    AcGeVector3d& negate() noexcept { return *this = -*this; }

    /// A unit vector at right angles to this, by the arbitrary axis rule of drawing files: Y x this when this
    /// is within 1/64 of the world Z direction in x and y, else Z x this. The zero vector for a zero vector.
    AcGeVector3d perpVector() const;

    /// The angle between the vectors, 0 <= angle <= pi; 0 when one of them is zero.
    double angleTo(const AcGeVector3d& vec) const;
    /// The angle from this to `vec`, right-handed about `refVec`, 0 <= angle < 2 pi: angleTo(vec) when
    /// refVec . (this x vec) >= 0, else 2 pi less it.
    double angleTo(const AcGeVector3d& vec, const AcGeVector3d& refVec) const;
    /// The angle of this vector's projection from the plane's first axis, 0 <= angle < 2 pi.
    double angleOnPlane(const AcGePlanarEnt& plane) const;

    /// The unit vector of this direction; the zero vector when this is no longer than tol.equalVector().
    AcGeVector3d normal(const AcGeTol& tol = AcGeContext::gTol) const
    {
        const double size = length();
        return size > tol.equalVector() ? *this / size : AcGeVector3d();
    }
    AcGeVector3d& normalize(const AcGeTol& tol = AcGeContext::gTol) { return *this = normal(tol); }
    /// As above; the flag is k0This, and this vector unchanged, when it is too short.
    AcGeVector3d& normalize(const AcGeTol& tol, AcGeError& flag);
    double length() const { return std::sqrt(lengthSqrd()); }
    constexpr double lengthSqrd() const noexcept { return x * x + y * y + z * z; }
    bool isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const
    {
        return std::fabs(length() - 1) <= tol.equalVector();
    }
    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const { return length() <= tol.equalVector(); }

    /// Parallel: the unit vectors, one of them reversed perhaps, differ by tol.equalVector() at most.
    /// Codirectional: the same without the reversal. Perpendicular: the unit vectors' dot product is
    /// tol.equalVector() at most. A vector that is zero is none of these; the flag says which one it was.
    bool isParallelTo(const AcGeVector3d& vec, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isParallelTo(const AcGeVector3d& vec, const AcGeTol& tol, AcGeError& flag) const;
    bool isCodirectionalTo(const AcGeVector3d& vec, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isCodirectionalTo(const AcGeVector3d& vec, const AcGeTol& tol, AcGeError& flag) const;
    bool isPerpendicularTo(const AcGeVector3d& vec, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeVector3d& vec, const AcGeTol& tol, AcGeError& flag) const;

    constexpr double dotProduct(const AcGeVector3d& v) const noexcept { return x * v.x + y * v.y + z * v.z; }
    constexpr AcGeVector3d crossProduct(const AcGeVector3d& v) const noexcept
    {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }

    /// The rotation that turns this direction into that of `vec`. For opposite directions it is about `axis`,
    /// or about perpVector() when no axis is given.
    AcGeMatrix3d rotateTo(const AcGeVector3d& vec, const AcGeVector3d& axis = kIdentity) const;
    /// Projects along `projectDirection` onto the plane with this normal; unchanged when the two are
    /// perpendicular (kPerpendicularArg1Arg2) or zero (k0Arg1, k0Arg2).
    AcGeVector3d project(const AcGeVector3d& planeNormal, const AcGeVector3d& projectDirection) const;
    AcGeVector3d project(const AcGeVector3d& planeNormal, const AcGeVector3d& projectDirection,
                         const AcGeTol& tol, AcGeError& flag) const;
    /// Projects at right angles onto the plane with this normal; unchanged for a zero normal (k0Arg1).
    AcGeVector3d orthoProject(const AcGeVector3d& planeNormal) const;
    AcGeVector3d orthoProject(const AcGeVector3d& planeNormal, const AcGeTol& tol, AcGeError& flag) const;

    bool operator==(const AcGeVector3d& v) const { return isEqualTo(v); }
    bool operator!=(const AcGeVector3d& v) const { return !isEqualTo(v); }
    /// The difference is no longer than tol.equalVector().
    bool isEqualTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return (*this - v).length() <= tol.equalVector();
    }

    double operator[](unsigned int i) const { return i == 0 ? x : i == 1 ? y : z; }
    double& operator[](unsigned int i) { return i == 0 ? x : i == 1 ? y : z; }
    /// The index of the component that is largest in size.
    unsigned int largestElement() const;
    AcGeVector3d& set(double xx, double yy, double zz) noexcept { return *this = AcGeVector3d(xx, yy, zz); }
    AcGeVector3d& set(const AcGePlanarEnt& plane, const AcGeVector2d& v);
    /// The translation by this vector.
    operator AcGeMatrix3d() const;

    double x = 0, y = 0, z = 0;
};
