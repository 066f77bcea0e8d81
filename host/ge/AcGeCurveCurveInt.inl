/// The members of AcGeCurveCurveInt2d and AcGeCurveCurveInt3d that are the same in the plane and in space.

#include "CurveMeet.h"

#include <algorithm>

namespace
{
double lowerOf(const AcGeInterval& i)
{
    return i.isBoundedBelow() ? i.lowerBound() : -kInfinity;
}

double upperOf(const AcGeInterval& i)
{
    return i.isBoundedAbove() ? i.upperBound() : kInfinity;
}

/// A form cut to a range; chains stay whole, and their meetings are sifted.
CurveForm within(const CurveForm& form, const AcGeInterval& range)
{
    if (form.kind == FormKind::kChain) return form;
    return trimmed(form, std::max(form.lo, lowerOf(range)), std::min(form.hi, upperOf(range)));
}

/// On which side of a curve another one is, a little before or after they meet: 1 left, -1 right, 0 unknown.
int sideOf(const CurveForm& curve, double s, const CurveForm& other, double t, double step,
           const Arrow& normal)
{
    const double at = t + step;
    if (at < other.lo || at > other.hi) return 0;
    Arrow d[3];
    derivatives(curve, s, 2, d);
    const Arrow to = pointAt(other, at) - (Place() + d[0]);
    const double along = d[1].lengthSqrd() > 0 ? to.dotProduct(d[1]) / d[1].lengthSqrd() : 0;
    const Arrow off = to - d[1] * along - d[2] * (along * along / 2); // from the curve, bent as it is
    const double side = normal.dotProduct(d[1].crossProduct(off));
    return side > 0 ? 1 : side < 0 ? -1 : 0;
}

AcGe::AcGeXConfig configOf(const CurveForm& curve, double s, const CurveForm& other, double t,
                           const Arrow& normal)
{
    Arrow d[2];
    derivatives(other, t, 1, d);
    const double reach = std::isfinite(other.hi - other.lo) ? (other.hi - other.lo) * 1e-4 : 1e-4;
    const int before = sideOf(curve, s, other, t, -reach, normal),
              after = sideOf(curve, s, other, t, reach, normal);
    if (before == 0 && after == 0) return AcGe::kUnknown;
    if (before == 0) return after > 0 ? AcGe::kPointLeft : AcGe::kPointRight;
    if (after == 0) return before > 0 ? AcGe::kPointLeft : AcGe::kPointRight;
    if (before > 0) return after > 0 ? AcGe::kLeftLeft : AcGe::kLeftRight;
    return after > 0 ? AcGe::kRightLeft : AcGe::kRightRight;
}

/// The ends of each overlap on the first curve and on the second.
AcGeDoubleArray overlapsOf(const Meetings& found)
{
    AcGeDoubleArray ends;
    for (std::size_t i = 0; i < found.overlaps.size(); ++i)
        for (const double value :
             {found.overlaps[i].s0, found.overlaps[i].s1, found.overlaps[i].t0, found.overlaps[i].t1})
            ends.append(value);
    return ends;
}

template <class Result>
std::vector<Result> resultsOf(const CurveForm& a, const CurveForm& b, const Meetings& found,
                              const AcGeInterval& range1, const AcGeInterval& range2, const Arrow& normal)
{
    std::vector<Result> results;
    for (std::size_t i = 0; i < found.points.size(); ++i) {
        const Meeting& m = found.points[i];
        if (!range1.contains(m.s) || !range2.contains(m.t)) continue;
        results.push_back({m, m.point.distanceTo(pointAt(b, m.t)), configOf(a, m.s, b, m.t, normal),
                           configOf(b, m.t, a, m.s, normal)});
    }
    return results;
}
} // namespace

/// A meeting as it is handed out, with how each curve passes the other.
struct CurveCurveInt::Result {
    Meeting meeting;
    double gap;
    AcGe::AcGeXConfig config1, config2;
};

const CurveCurveInt::Result* CurveCurveInt::resultAt(int intNum) const
{
    return intNum >= 0 && intNum < numIntPoints() ? &(*mResults)[static_cast<std::size_t>(intNum)] : nullptr;
}

bool CurveCurveInt::isEqualTo(const Entity& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const CurveCurveInt&>(entity);
    bool equal = numIntPoints() == other.numIntPoints() && overlapCount() == other.overlapCount();
    for (int i = 0; equal && i < numIntPoints(); ++i)
        equal = intPoint(i).isEqualTo(other.intPoint(i), tol);
    return equal;
}

bool CurveCurveInt::isOn(const Point& pnt, const AcGeTol& tol) const
{
    for (int i = 0; i < numIntPoints(); ++i)
        if (intPoint(i).isEqualTo(pnt, tol)) return true;
    return false;
}

void CurveCurveInt::getIntRanges(AcGeInterval& range1, AcGeInterval& range2) const
{
    range1 = mRange1;
    range2 = mRange2;
}

int CurveCurveInt::numIntPoints() const
{
    return static_cast<int>(mResults->size());
}

int CurveCurveInt::numIntPoints(AcGeIntersectError& err) const
{
    err = AcGe::kXXOk;
    return numIntPoints();
}

Point CurveCurveInt::intPoint(int intNum) const
{
    AcGeIntersectError err;
    return intPoint(intNum, err);
}

Point CurveCurveInt::intPoint(int intNum, AcGeIntersectError& err) const
{
    const Result* result = resultAt(intNum);
    err = result ? AcGe::kXXOk : AcGe::kXXIndexOutOfRange;
    return result ? toPoint(result->meeting.point) : Point::kOrigin;
}

void CurveCurveInt::getIntParams(int intNum, double& param1, double& param2) const
{
    AcGeIntersectError err;
    getIntParams(intNum, param1, param2, err);
}

void CurveCurveInt::getIntParams(int intNum, double& param1, double& param2, AcGeIntersectError& err) const
{
    const Result* result = resultAt(intNum);
    err = result ? AcGe::kXXOk : AcGe::kXXIndexOutOfRange;
    param1 = result ? result->meeting.s : 0;
    param2 = result ? result->meeting.t : 0;
}

void CurveCurveInt::getPointOnCurve1(int intNum, PointOnCurve& pnt) const
{
    if (const Result* result = resultAt(intNum)) pnt.setCurve(*mCurve1).setParameter(result->meeting.s);
}

void CurveCurveInt::getPointOnCurve2(int intNum, PointOnCurve& pnt) const
{
    if (const Result* result = resultAt(intNum)) pnt.setCurve(*mCurve2).setParameter(result->meeting.t);
}

void CurveCurveInt::getIntConfigs(int intNum, AcGe::AcGeXConfig& config1wrt2,
                                  AcGe::AcGeXConfig& config2wrt1) const
{
    const Result* result = resultAt(intNum);
    config1wrt2 = result ? result->config2 : AcGe::kNotDefined;
    config2wrt1 = result ? result->config1 : AcGe::kNotDefined;
}

bool CurveCurveInt::isTangential(int intNum) const
{
    const Result* result = resultAt(intNum);
    return result && result->meeting.tangential;
}

bool CurveCurveInt::isTransversal(int intNum) const
{
    const Result* result = resultAt(intNum);
    return result && !result->meeting.tangential;
}

double CurveCurveInt::intPointTol(int intNum) const
{
    const Result* result = resultAt(intNum);
    return result ? result->gap : 0;
}

int CurveCurveInt::overlapCount() const
{
    return mOverlaps.length() / 4;
}

bool CurveCurveInt::overlapDirection() const
{
    return overlapCount() > 0 && mOverlaps[2] <= mOverlaps[3];
}

void CurveCurveInt::getOverlapRanges(int overlapNum, AcGeInterval& range1, AcGeInterval& range2) const
{
    if (overlapNum < 0 || overlapNum >= overlapCount()) return;
    const double* o = mOverlaps.asArrayPtr() + 4 * overlapNum;
    range1.set(o[0], o[1]);
    range2.set(std::min(o[2], o[3]), std::max(o[2], o[3]));
}

CurveCurveInt& CurveCurveInt::orderWrt1()
{
    std::vector<Result> sorted = *mResults;
    std::sort(sorted.begin(), sorted.end(),
              [](const Result& a, const Result& b) { return a.meeting.s < b.meeting.s; });
    mResults = std::make_shared<const std::vector<Result>>(std::move(sorted));
    return *this;
}

CurveCurveInt& CurveCurveInt::orderWrt2()
{
    std::vector<Result> sorted = *mResults;
    std::sort(sorted.begin(), sorted.end(),
              [](const Result& a, const Result& b) { return a.meeting.t < b.meeting.t; });
    mResults = std::make_shared<const std::vector<Result>>(std::move(sorted));
    return *this;
}
