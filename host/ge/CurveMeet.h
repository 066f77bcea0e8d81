#pragma once

/// Intersections of curves in their numeric form.

#include "CurveForm.h"

#include <array>

namespace gecore
{
/// A list whose first items need no memory of their own.
template <class T, std::size_t kInside>
class ShortList
{
public:
    std::size_t size() const { return mCount; }
    bool empty() const { return mCount == 0; }
    T& operator[](std::size_t i) { return i < kInside ? mInside[i] : mMore[i - kInside]; }
    const T& operator[](std::size_t i) const { return i < kInside ? mInside[i] : mMore[i - kInside]; }
    void add(const T& item)
    {
        if (mCount < kInside) {
            mInside[mCount] = item;
        } else {
            mMore.push_back(item);
        }
        ++mCount;
    }
    void clear()
    {
        mCount = 0;
        mMore.clear();
    }

private:
    std::array<T, kInside> mInside;
    std::vector<T> mMore;
    std::size_t mCount = 0;
};

/// A place where two curves are no further apart than the tolerance.
struct Meeting {
    double s = 0, t = 0; ///< parameters on the first and the second curve
    AcGePoint3d point;   ///< on the first curve
    bool tangential = false;
};

/// A stretch that two curves share: s0 < s1 on the first; t0 > t1 when the second runs against it.
struct Overlap {
    double s0 = 0, s1 = 0, t0 = 0, t1 = 0;
};

/// Everything that two curves have in common, in the order of s. Points within overlaps are not repeated.
struct Meetings {
    ShortList<Meeting, 4> points;
    ShortList<Overlap, 2> overlaps;
};

/// How far the points of a curve may be off by rounding, in drawing units. A flat arc's centre lies far away:
/// the points are sums of numbers as large as its radius, at angles that are rounded too.
double roundingOf(const CurveForm& form);

/// Where the curves are within `tol` of each other, or within their rounding where that is wider. A contact
/// that stays within tol over a stretch (near a tangency) is one meeting. Lines and circles by closed forms,
/// without allocation, ellipses of one plane by the zeros of a polynomial; splines and all others by bounds
/// on halved spans, so that no meeting is missed. Both are refined by Newton's method.
Meetings meet(const CurveForm& first, const CurveForm& second, double tol);

/// The closed forms, for two bare lines and circles; and the search, for bounded forms that are no chains.
Meetings meetLines(const CurveForm& first, const CurveForm& second, double tol);
Meetings meetLineCircle(const CurveForm& line, const CurveForm& circle, double tol);
Meetings meetCircles(const CurveForm& first, const CurveForm& second, double tol);
/// Two conics, or a conic and a line, of one plane, by the zeros of one polynomial. False for others, for
/// such as are too thin, and for those that run along each other: they have to be searched.
bool meetConics(const CurveForm& first, const CurveForm& second, double tol, Meetings& found);
Meetings searchMeetings(const CurveForm& first, const CurveForm& second, double tol);

/// Sorts by s and makes one of those that are the same contact, within `tol` or rounding.
void tidy(const CurveForm& first, const CurveForm& second, double tol, Meetings& meetings);
} // namespace gecore
