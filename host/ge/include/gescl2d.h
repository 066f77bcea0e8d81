#pragma once

#include "gegbl.h"

#include <cmath>

class AcGeMatrix2d;

/// Scale factors along x and y.
class AcGeScale2d
{
public:
    constexpr AcGeScale2d() noexcept = default;
    constexpr explicit AcGeScale2d(double factor) noexcept : sx(factor), sy(factor) {}
    constexpr AcGeScale2d(double xFactor, double yFactor) noexcept : sx(xFactor), sy(yFactor) {}

    static const AcGeScale2d kIdentity;

    constexpr AcGeScale2d operator*(const AcGeScale2d& by) const noexcept { return {sx * by.sx, sy * by.sy}; }
    AcGeScale2d& operator*=(const AcGeScale2d& by) noexcept { return *this = *this * by; }
    constexpr AcGeScale2d operator*(double by) const noexcept { return {sx * by, sy * by}; }
    AcGeScale2d& operator*=(double by) noexcept { return *this = *this * by; }
    friend constexpr AcGeScale2d operator*(double by, const AcGeScale2d& scale) noexcept
    {
        return scale * by;
    }
    AcGeScale2d& preMultBy(const AcGeScale2d& by) noexcept { return *this *= by; }
    AcGeScale2d& postMultBy(const AcGeScale2d& by) noexcept { return *this *= by; }
    AcGeScale2d& setToProduct(const AcGeScale2d& a, const AcGeScale2d& b) noexcept { return *this = a * b; }
    AcGeScale2d& setToProduct(const AcGeScale2d& a, double s) noexcept { return *this = a * s; }
    constexpr AcGeScale2d inverse() const noexcept { return {1 / sx, 1 / sy}; }
    AcGeScale2d& invert() noexcept { return *this = inverse(); }

    /// True when the factors are equal in size.
    bool isProportional(const AcGeTol& tol = AcGeContext::gTol) const
    {
        return std::fabs(std::fabs(sx) - std::fabs(sy)) <= tol.equalPoint();
    }
    bool isEqualTo(const AcGeScale2d& other, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return std::fabs(sx - other.sx) <= tol.equalPoint() && std::fabs(sy - other.sy) <= tol.equalPoint();
    }
    bool operator==(const AcGeScale2d& other) const { return isEqualTo(other); }
    bool operator!=(const AcGeScale2d& other) const { return !isEqualTo(other); }
    double operator[](unsigned int i) const { return i == 0 ? sx : sy; }
    double& operator[](unsigned int i) { return i == 0 ? sx : sy; }
    AcGeScale2d& set(double xFactor, double yFactor) noexcept
    {
        return *this = AcGeScale2d(xFactor, yFactor);
    }
    operator AcGeMatrix2d() const;
    void getMatrix(AcGeMatrix2d& matrix) const;

    double sx = 1, sy = 1;
};
