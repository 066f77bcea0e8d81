#include "BulgeSegment.h"

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;

AcGeVector2d turned(const AcGeVector2d& v, double angle)
{
    const double c = std::cos(angle), s = std::sin(angle);
    return {c * v.x - s * v.y, s * v.x + c * v.y};
}

/// x - sin x, by its series where the difference would lose its digits.
double lessSine(double x)
{
    if (std::fabs(x) > 0.05) return x - std::sin(x);
    const double q = x * x;
    return x * q / 6.0 * (1.0 - q / 20.0 * (1.0 - q / 42.0 * (1.0 - q / 72.0)));
}
} // namespace

BulgeSegment::BulgeSegment(const AcGePoint2d& start, const AcGePoint2d& end, double bulge)
    : mStart(start), mEnd(end), mChord(end - start), mSweep(4.0 * std::atan(bulge)), mChordAngle(0.0),
      mHalfSine(0.0)
{
    if (isPoint()) mSweep = 0.0;
    mChordAngle = std::atan2(mChord.y, mChord.x);
    if (mSweep != 0.0) mHalfSine = std::sin(mSweep / 2.0);
}

double BulgeSegment::radius() const
{
    return mChord.length() / (2.0 * std::fabs(mHalfSine));
}

AcGePoint2d BulgeSegment::center() const
{
    const double toCentre = 0.5 / std::tan(mSweep / 2.0);
    return mStart + 0.5 * mChord + toCentre * mChord.perpVector();
}

AcGePoint2d BulgeSegment::pointAt(double t) const
{
    if (t == 1.0) return mEnd;
    if (!isArc()) return mStart + t * mChord;
    const double size = std::sin(t * mSweep / 2.0) / mHalfSine;
    return mStart + turned(mChord, (t - 1.0) * mSweep / 2.0) * size;
}

AcGeVector2d BulgeSegment::derivAt(double t) const
{
    if (!isArc()) return mChord;
    return turned(mChord, (t - 0.5) * mSweep) * (mSweep / (2.0 * mHalfSine));
}

AcGeVector2d BulgeSegment::secondDerivAt(double t) const
{
    if (!isArc()) return {};
    return turned(mChord, (t - 0.5) * mSweep).perpVector() * (mSweep * mSweep / (2.0 * mHalfSine));
}

double BulgeSegment::length() const
{
    return isArc() ? mChord.length() * mSweep / (2.0 * mHalfSine) : mChord.length();
}

double BulgeSegment::area() const
{
    const double triangle = 0.5 * (mStart.x * mEnd.y - mStart.y * mEnd.x);
    if (!isArc()) return triangle;
    return triangle + mChord.lengthSqrd() * lessSine(mSweep) / (8.0 * mHalfSine * mHalfSine);
}

double BulgeSegment::closestParam(const AcGePoint2d& point, bool beyondStart, bool beyondEnd) const
{
    if (isPoint()) return 0.0;
    return isArc() ? arcParam(point, beyondStart, beyondEnd) : lineParam(point, beyondStart, beyondEnd);
}

double BulgeSegment::lineParam(const AcGePoint2d& point, bool beyondStart, bool beyondEnd) const
{
    const double t = (point - mStart).dotProduct(mChord) / mChord.lengthSqrd();
    if (t < 0.0) return beyondStart ? t : 0.0;
    return t > 1.0 && !beyondEnd ? 1.0 : t;
}

double BulgeSegment::arcParam(const AcGePoint2d& point, bool beyondStart, bool beyondEnd) const
{
    const AcGePoint2d middle = center();
    const AcGeVector2d first = mStart - middle, to = point - middle;
    double t = std::atan2(first.crossProduct(to), first.dotProduct(to)) / mSweep;
    const double turn = 2.0 * pi / std::fabs(mSweep);
    if (t < 0.0) t += turn;
    if (t > 1.0 && !beyondStart && !beyondEnd) return t - 1.0 < turn - t ? 1.0 : 0.0;
    if (t > 1.0) return t;
    // The centre of a flat arc is far and its angles coarse: one step of Newton's method along the arc.
    const AcGeVector2d miss = pointAt(t) - point, d = derivAt(t);
    const double slope = d.lengthSqrd() + miss.dotProduct(secondDerivAt(t));
    if (slope > 0.5 * d.lengthSqrd()) t -= miss.dotProduct(d) / slope;
    return std::fmin(1.0, std::fmax(0.0, t));
}

int BulgeSegment::extremesAlong(const AcGeVector2d& axis, double (&params)[4]) const
{
    int count = 0;
    if (!isArc() || (axis.x == 0.0 && axis.y == 0.0)) return count;
    const double wanted = std::atan2(axis.y, axis.x) + pi / 2.0;
    const double low = std::fmin(tangentAngleAt(0.0), tangentAngleAt(1.0));
    const double high = std::fmax(tangentAngleAt(0.0), tangentAngleAt(1.0));
    for (double at = wanted + pi * std::ceil((low - wanted) / pi); at <= high && count < 4; at += pi) {
        params[count++] = (at - tangentAngleAt(0.0)) / mSweep;
    }
    return count;
}

double BulgeSegment::bulgeBetween(double from, double to) const
{
    return std::tan((to - from) * mSweep / 4.0);
}
