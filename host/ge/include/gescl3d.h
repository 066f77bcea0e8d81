#pragma once

#include "gegbl.h"

#include <algorithm>
#include <cmath>

class AcGeMatrix3d;

/// Scale factors along x, y and z.
class AcGeScale3d
{
public:
    constexpr AcGeScale3d() noexcept = default;
    constexpr explicit AcGeScale3d(double factor) noexcept : sx(factor), sy(factor), sz(factor) {}
    constexpr AcGeScale3d(double xFactor, double yFactor, double zFactor) noexcept
        : sx(xFactor), sy(yFactor), sz(zFactor)
    {
    }

    static const AcGeScale3d kIdentity;

    constexpr AcGeScale3d operator*(const AcGeScale3d& by) const noexcept
    {
        return {sx * by.sx, sy * by.sy, sz * by.sz};
    }
    AcGeScale3d& operator*=(const AcGeScale3d& by) noexcept { return *this = *this * by; }
    constexpr AcGeScale3d operator*(double by) const noexcept { return {sx * by, sy * by, sz * by}; }
    AcGeScale3d& operator*=(double by) noexcept { return *this = *this * by; }
    friend constexpr AcGeScale3d operator*(double by, const AcGeScale3d& scale) noexcept
    {
        return scale * by;
    }
    AcGeScale3d& preMultBy(const AcGeScale3d& by) noexcept { return *this *= by; }
    AcGeScale3d& postMultBy(const AcGeScale3d& by) noexcept { return *this *= by; }
    AcGeScale3d& setToProduct(const AcGeScale3d& a, const AcGeScale3d& b) noexcept { return *this = a * b; }
    AcGeScale3d& setToProduct(const AcGeScale3d& a, double s) noexcept { return *this = a * s; }
    constexpr AcGeScale3d inverse() const noexcept { return {1 / sx, 1 / sy, 1 / sz}; }
    AcGeScale3d& invert() noexcept { return *this = inverse(); }

    /// True when the factors are equal in size.
    bool isProportional(const AcGeTol& tol = AcGeContext::gTol) const
    {
        const double a = std::fabs(sx), b = std::fabs(sy), c = std::fabs(sz);
        return std::max({a, b, c}) - std::min({a, b, c}) <= tol.equalPoint();
    }
    bool isEqualTo(const AcGeScale3d& other, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return std::fabs(sx - other.sx) <= tol.equalPoint() && std::fabs(sy - other.sy) <= tol.equalPoint() &&
               std::fabs(sz - other.sz) <= tol.equalPoint();
    }
    bool operator==(const AcGeScale3d& other) const { return isEqualTo(other); }
    bool operator!=(const AcGeScale3d& other) const { return !isEqualTo(other); }
    double operator[](unsigned int i) const { return i == 0 ? sx : i == 1 ? sy : sz; }
    double& operator[](unsigned int i) { return i == 0 ? sx : i == 1 ? sy : sz; }
    AcGeScale3d& set(double xFactor, double yFactor, double zFactor) noexcept
    {
        return *this = AcGeScale3d(xFactor, yFactor, zFactor);
    }
    operator AcGeMatrix3d() const;
    void getMatrix(AcGeMatrix3d& matrix) const;
    /// Takes the lengths of the matrix's columns.
    AcGeScale3d& extractScale(const AcGeMatrix3d& matrix);

    double sx = 1, sy = 1, sz = 1;
};
