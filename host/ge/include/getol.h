#pragma once

/// A pair of tolerances: a distance below which points are equal (drawing units) and a length below which
/// the difference of two vectors, or of two unit directions, is none.
class AcGeTol
{
public:
    constexpr AcGeTol() noexcept = default;

    constexpr double equalPoint() const noexcept { return mPoint; }
    constexpr double equalVector() const noexcept { return mVector; }
    constexpr AcGeTol& setEqualPoint(double value) noexcept
    {
        mPoint = value;
        return *this;
    }
    constexpr AcGeTol& setEqualVector(double value) noexcept
    {
        mVector = value;
        return *this;
    }

private:
    double mVector = 1e-10;
    double mPoint = 1e-10;
};
