#include "gekvec.h"

#include <algorithm>
#include <cmath>

bool AcGeKnotVector::isEqualTo(const AcGeKnotVector& other) const
{
    const auto near = [&](double a, double b) { return std::fabs(a - b) <= mTolerance; };
    return length() == other.length() && std::equal(mKnots.begin(), mKnots.end(), other.mKnots.begin(), near);
}

int AcGeKnotVector::multiplicityAt(double param) const
{
    const auto near = [&](double knot) { return std::fabs(knot - param) <= mTolerance; };
    return static_cast<int>(std::count_if(mKnots.begin(), mKnots.end(), near));
}

int AcGeKnotVector::numIntervals() const
{
    AcGeDoubleArray distinct;
    getDistinctKnots(distinct);
    return std::max(distinct.length() - 1, 0);
}

void AcGeKnotVector::getDistinctKnots(AcGeDoubleArray& knots) const
{
    knots.removeAll();
    for (const double knot : mKnots)
        if (knots.isEmpty() || knot - knots.last() > mTolerance) knots.append(knot);
}

bool AcGeKnotVector::contains(double param) const
{
    return !isEmpty() && param >= startParam() - mTolerance && param <= endParam() + mTolerance;
}

AcGeKnotVector& AcGeKnotVector::reverse()
{
    const double sum = startParam() + endParam();
    mKnots.reverse();
    for (double& knot : mKnots)
        knot = sum - knot;
    return *this;
}

AcGeKnotVector& AcGeKnotVector::removeAt(int i)
{
    mKnots.removeAt(i);
    return *this;
}

AcGeKnotVector& AcGeKnotVector::removeSubArray(int startIndex, int endIndex)
{
    mKnots.removeSubArray(startIndex, endIndex);
    return *this;
}

AcGeKnotVector& AcGeKnotVector::insertAt(int i, double u, int multiplicity)
{
    for (int k = 0; k < multiplicity; ++k)
        mKnots.insertAt(i, u);
    return *this;
}

AcGeKnotVector& AcGeKnotVector::insert(double u)
{
    mKnots.insertAt(static_cast<int>(std::upper_bound(mKnots.begin(), mKnots.end(), u) - mKnots.begin()), u);
    return *this;
}

AcGeKnotVector& AcGeKnotVector::append(const AcGeKnotVector& tail)
{
    mKnots.append(tail.mKnots);
    return *this;
}

AcGeKnotVector& AcGeKnotVector::setRange(double lower, double upper)
{
    const double from = startParam(), width = endParam() - from;
    if (!(width > 0) || !(upper > lower)) return *this;
    for (double& knot : mKnots)
        knot = lower + (knot - from) * ((upper - lower) / width);
    return *this;
}

AcGeKnotVector& AcGeKnotVector::setTolerance(double eps)
{
    mTolerance = eps;
    return *this;
}

AcGeKnotVector& AcGeKnotVector::setLogicalLength(int n)
{
    mKnots.setLogicalLength(n);
    return *this;
}

AcGeKnotVector& AcGeKnotVector::set(int size, const double knots[], double eps)
{
    mTolerance = eps;
    mKnots.setLogicalLength(size);
    std::copy(knots, knots + mKnots.length(), mKnots.begin());
    return *this;
}
