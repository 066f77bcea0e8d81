#pragma once

/// A range of parameters, closed where it is bounded.
class AcGeInterval
{
public:
    /// Unbounded on both sides.
    explicit AcGeInterval(double tol = kDefaultTol) : mTol(tol) {}
    AcGeInterval(double lower, double upper, double tol = kDefaultTol);
    /// Bounded on one side: below when `boundedBelow`, else above.
    AcGeInterval(bool boundedBelow, double bound, double tol = kDefaultTol);

    /// The bounds, 0 on a side without one.
    double lowerBound() const { return mHasLower ? mLower : 0; }
    double upperBound() const { return mHasUpper ? mUpper : 0; }
    /// A point of the interval: its middle when bounded, else its one bound, else 0.
    double element() const;
    void getBounds(double& lower, double& upper) const;
    /// upper - lower; -1 when unbounded.
    double length() const { return isBounded() ? mUpper - mLower : -1; }
    double tolerance() const { return mTol; }

    AcGeInterval& set(double lower, double upper);
    AcGeInterval& set(bool boundedBelow, double bound);
    AcGeInterval& set();
    AcGeInterval& setUpper(double upper);
    AcGeInterval& setLower(double lower);
    AcGeInterval& setTolerance(double tol);

    /// The smallest interval that holds both.
    void getMerge(const AcGeInterval& other, AcGeInterval& result) const;
    /// The common part; false when there is none.
    bool intersectWith(const AcGeInterval& other, AcGeInterval& result) const;

    bool isBounded() const { return mHasLower && mHasUpper; }
    bool isBoundedAbove() const { return mHasUpper; }
    bool isBoundedBelow() const { return mHasLower; }
    bool isUnBounded() const { return !mHasLower || !mHasUpper; }
    /// Bounded and no longer than the tolerance.
    bool isSingleton() const { return isBounded() && length() <= mTol; }
    bool contains(double value) const;
    bool contains(const AcGeInterval& other) const;
    bool isDisjoint(const AcGeInterval& other) const;
    bool isContinuousAtUpper(const AcGeInterval& other) const;
    bool isOverlapAtUpper(const AcGeInterval& other, AcGeInterval& overlap) const;

    bool operator==(const AcGeInterval& other) const;
    bool operator!=(const AcGeInterval& other) const { return !(*this == other); }
    bool isEqualAtUpper(double value) const;
    bool isEqualAtLower(double value) const;

private:
    static constexpr double kDefaultTol = 1e-12;

    double mTol;
    double mLower = 0, mUpper = 0;
    bool mHasLower = false, mHasUpper = false;
};
