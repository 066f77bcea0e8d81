#include "geintrvl.h"

#include <algorithm>
#include <cmath>

AcGeInterval::AcGeInterval(double lower, double upper, double tol) : mTol(tol)
{
    set(lower, upper);
}

AcGeInterval::AcGeInterval(bool boundedBelow, double bound, double tol) : mTol(tol)
{
    set(boundedBelow, bound);
}

double AcGeInterval::element() const
{
    if (isBounded()) return mLower + (mUpper - mLower) / 2;
    return lowerBound() + upperBound();
}

void AcGeInterval::getBounds(double& lower, double& upper) const
{
    lower = lowerBound();
    upper = upperBound();
}

AcGeInterval& AcGeInterval::set(double lower, double upper)
{
    return setLower(lower).setUpper(upper);
}

AcGeInterval& AcGeInterval::set(bool boundedBelow, double bound)
{
    set();
    return boundedBelow ? setLower(bound) : setUpper(bound);
}

AcGeInterval& AcGeInterval::set()
{
    mHasLower = mHasUpper = false;
    return *this;
}

AcGeInterval& AcGeInterval::setUpper(double upper)
{
    mUpper = upper;
    mHasUpper = true;
    return *this;
}

AcGeInterval& AcGeInterval::setLower(double lower)
{
    mLower = lower;
    mHasLower = true;
    return *this;
}

AcGeInterval& AcGeInterval::setTolerance(double tol)
{
    mTol = tol;
    return *this;
}

void AcGeInterval::getMerge(const AcGeInterval& other, AcGeInterval& result) const
{
    AcGeInterval merged(mTol);
    if (mHasLower && other.mHasLower) merged.setLower(std::min(mLower, other.mLower));
    if (mHasUpper && other.mHasUpper) merged.setUpper(std::max(mUpper, other.mUpper));
    result = merged;
}

bool AcGeInterval::intersectWith(const AcGeInterval& other, AcGeInterval& result) const
{
    if (isDisjoint(other)) return false;
    AcGeInterval common(*this);
    if (other.mHasLower) common.setLower(mHasLower ? std::max(mLower, other.mLower) : other.mLower);
    if (other.mHasUpper) common.setUpper(mHasUpper ? std::min(mUpper, other.mUpper) : other.mUpper);
    result = common;
    return true;
}

bool AcGeInterval::contains(double value) const
{
    return (!mHasLower || value >= mLower - mTol) && (!mHasUpper || value <= mUpper + mTol);
}

bool AcGeInterval::contains(const AcGeInterval& other) const
{
    const bool below = !mHasLower || (other.mHasLower && other.mLower >= mLower - mTol);
    const bool above = !mHasUpper || (other.mHasUpper && other.mUpper <= mUpper + mTol);
    return below && above;
}

bool AcGeInterval::isDisjoint(const AcGeInterval& other) const
{
    return (mHasUpper && other.mHasLower && other.mLower > mUpper + mTol) ||
           (mHasLower && other.mHasUpper && other.mUpper < mLower - mTol);
}

bool AcGeInterval::isContinuousAtUpper(const AcGeInterval& other) const
{
    return mHasUpper && other.mHasLower && std::fabs(mUpper - other.mLower) <= mTol;
}

bool AcGeInterval::isOverlapAtUpper(const AcGeInterval& other, AcGeInterval& overlap) const
{
    if (!mHasUpper || !other.contains(mUpper) || (other.mHasUpper && other.mUpper < mUpper)) return false;
    return intersectWith(other, overlap);
}

bool AcGeInterval::operator==(const AcGeInterval& other) const
{
    if (mHasLower != other.mHasLower || mHasUpper != other.mHasUpper) return false;
    return (!mHasLower || isEqualAtLower(other.mLower)) && (!mHasUpper || isEqualAtUpper(other.mUpper));
}

bool AcGeInterval::isEqualAtUpper(double value) const
{
    return mHasUpper && std::fabs(value - mUpper) <= mTol;
}

bool AcGeInterval::isEqualAtLower(double value) const
{
    return mHasLower && std::fabs(value - mLower) <= mTol;
}
