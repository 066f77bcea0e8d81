#pragma once

#include "gedblar.h"
#include "geintrvl.h"

/// A knot vector: numbers that do not fall. Knots closer than the tolerance count as one.
class AcGeKnotVector
{
public:
    static constexpr double globalKnotTolerance = 1e-10;

    explicit AcGeKnotVector(double eps = globalKnotTolerance) : mTolerance(eps) {}
    AcGeKnotVector(int size, int growSize, double eps = globalKnotTolerance)
        : mKnots(size, growSize), mTolerance(eps)
    {
    }
    AcGeKnotVector(int size, const double knots[], double eps = globalKnotTolerance) : mTolerance(eps)
    {
        set(size, knots, eps);
    }
    AcGeKnotVector(const AcGeDoubleArray& knots, double eps = globalKnotTolerance)
        : mKnots(knots), mTolerance(eps)
    {
    }

    double& operator[](int i) { return mKnots[i]; }
    double operator[](int i) const { return mKnots[i]; }
    bool isEqualTo(const AcGeKnotVector& other) const;
    double startParam() const { return mKnots.isEmpty() ? 0 : mKnots.first(); }
    double endParam() const { return mKnots.isEmpty() ? 0 : mKnots.last(); }
    int multiplicityAt(int i) const { return multiplicityAt(mKnots[i]); }
    int multiplicityAt(double param) const;
    /// Intervals between distinct knots.
    int numIntervals() const;
    void getDistinctKnots(AcGeDoubleArray& knots) const;
    /// True for a parameter from the first knot to the last.
    bool contains(double param) const;
    bool isOn(double knot) const { return multiplicityAt(knot) > 0; }

    AcGeKnotVector& reverse();
    AcGeKnotVector& removeAt(int i);
    AcGeKnotVector& removeSubArray(int startIndex, int endIndex);
    AcGeKnotVector& insertAt(int i, double u, int multiplicity = 1);
    /// Inserts where the order asks for.
    AcGeKnotVector& insert(double u);
    int append(double val) { return mKnots.append(val); }
    AcGeKnotVector& append(const AcGeKnotVector& tail);
    /// Moves and stretches the knots linearly.
    AcGeKnotVector& setRange(double lower, double upper);

    double tolerance() const { return mTolerance; }
    AcGeKnotVector& setTolerance(double eps);
    int length() const { return mKnots.length(); }
    int logicalLength() const { return mKnots.length(); }
    bool isEmpty() const { return mKnots.isEmpty(); }
    AcGeKnotVector& setLogicalLength(int n);
    const double* asArrayPtr() const { return mKnots.asArrayPtr(); }
    double* asArrayPtr() { return mKnots.asArrayPtr(); }
    AcGeKnotVector& set(int size, const double knots[], double eps = globalKnotTolerance);

private:
    AcGeDoubleArray mKnots;
    double mTolerance;
};
