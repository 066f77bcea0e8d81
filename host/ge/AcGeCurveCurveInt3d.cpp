#include "gecint3d.h"

#include "CurveMeet.h"
#include "Dimension.h"
#include "geponc3d.h"

#include <algorithm>

using namespace gecore;

/// A meeting as it is handed out, with how each curve passes the other.
struct AcGeCurveCurveInt3d::Result {
    Meeting meeting;
    double gap;
    AcGe::AcGeXConfig config1, config2;
};

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
} // namespace

AcGeCurveCurveInt3d::AcGeCurveCurveInt3d() : mResults(std::make_shared<std::vector<Result>>()) {}

AcGeCurveCurveInt3d::AcGeCurveCurveInt3d(const AcGeCurve3d& curve1, const AcGeCurve3d& curve2,
                                         const AcGeVector3d& planeNormal, const AcGeTol& tol)
{
    set(curve1, curve2, planeNormal, tol);
}

AcGeCurveCurveInt3d::AcGeCurveCurveInt3d(const AcGeCurve3d& curve1, const AcGeCurve3d& curve2,
                                         const AcGeInterval& range1, const AcGeInterval& range2,
                                         const AcGeVector3d& planeNormal, const AcGeTol& tol)
{
    set(curve1, curve2, range1, range2, planeNormal, tol);
}

AcGeCurveCurveInt3d& AcGeCurveCurveInt3d::set(const AcGeCurve3d& curve1, const AcGeCurve3d& curve2,
                                              const AcGeVector3d& planeNormal, const AcGeTol& tol)
{
    return set(curve1, curve2, AcGeInterval(), AcGeInterval(), planeNormal, tol);
}

AcGeCurveCurveInt3d& AcGeCurveCurveInt3d::set(const AcGeCurve3d& curve1, const AcGeCurve3d& curve2,
                                              const AcGeInterval& range1, const AcGeInterval& range2,
                                              const AcGeVector3d& planeNormal, const AcGeTol& tol)
{
    mCurve1 = &curve1;
    mCurve2 = &curve2;
    mRange1 = range1;
    mRange2 = range2;
    mNormal = planeNormal;
    mTol = tol;
    mOverlaps.removeAll();
    const Arrow normal = lift(mNormal).length() > 0 ? lift(mNormal) : Arrow(0, 0, 1);
    const CurveForm a = within(curve1.form(), range1), b = within(curve2.form(), range2);
    std::vector<Result> results;
    if (a.lo <= a.hi && b.lo <= b.hi) {
        const Meetings found = meet(a, b, tol.equalPoint());
        for (std::size_t i = 0; i < found.points.size(); ++i) {
            const Meeting& m = found.points[i];
            if (!range1.contains(m.s) || !range2.contains(m.t)) continue;
            results.push_back({m, m.point.distanceTo(pointAt(b, m.t)), configOf(a, m.s, b, m.t, normal),
                               configOf(b, m.t, a, m.s, normal)});
        }
        for (std::size_t i = 0; i < found.overlaps.size(); ++i)
            for (const double value :
                 {found.overlaps[i].s0, found.overlaps[i].s1, found.overlaps[i].t0, found.overlaps[i].t1})
                mOverlaps.append(value);
    }
    mResults = std::make_shared<const std::vector<Result>>(std::move(results));
    return *this;
}

const AcGeCurveCurveInt3d::Result* AcGeCurveCurveInt3d::resultAt(int intNum) const
{
    return intNum >= 0 && intNum < numIntPoints() ? &(*mResults)[static_cast<std::size_t>(intNum)] : nullptr;
}

bool AcGeCurveCurveInt3d::isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const AcGeCurveCurveInt3d&>(entity);
    bool equal = numIntPoints() == other.numIntPoints() && overlapCount() == other.overlapCount();
    for (int i = 0; equal && i < numIntPoints(); ++i)
        equal = intPoint(i).isEqualTo(other.intPoint(i), tol);
    return equal;
}

bool AcGeCurveCurveInt3d::isOn(const AcGePoint3d& pnt, const AcGeTol& tol) const
{
    for (int i = 0; i < numIntPoints(); ++i)
        if (intPoint(i).isEqualTo(pnt, tol)) return true;
    return false;
}

void AcGeCurveCurveInt3d::getIntRanges(AcGeInterval& range1, AcGeInterval& range2) const
{
    range1 = mRange1;
    range2 = mRange2;
}

int AcGeCurveCurveInt3d::numIntPoints() const
{
    return static_cast<int>(mResults->size());
}

int AcGeCurveCurveInt3d::numIntPoints(AcGeIntersectError& err) const
{
    err = AcGe::kXXOk;
    return numIntPoints();
}

AcGePoint3d AcGeCurveCurveInt3d::intPoint(int intNum) const
{
    AcGeIntersectError err;
    return intPoint(intNum, err);
}

AcGePoint3d AcGeCurveCurveInt3d::intPoint(int intNum, AcGeIntersectError& err) const
{
    const Result* result = resultAt(intNum);
    err = result ? AcGe::kXXOk : AcGe::kXXIndexOutOfRange;
    return result ? toPoint3d(result->meeting.point) : AcGePoint3d::kOrigin;
}

void AcGeCurveCurveInt3d::getIntParams(int intNum, double& param1, double& param2) const
{
    AcGeIntersectError err;
    getIntParams(intNum, param1, param2, err);
}

void AcGeCurveCurveInt3d::getIntParams(int intNum, double& param1, double& param2,
                                       AcGeIntersectError& err) const
{
    const Result* result = resultAt(intNum);
    err = result ? AcGe::kXXOk : AcGe::kXXIndexOutOfRange;
    param1 = result ? result->meeting.s : 0;
    param2 = result ? result->meeting.t : 0;
}

void AcGeCurveCurveInt3d::getPointOnCurve1(int intNum, AcGePointOnCurve3d& pnt) const
{
    if (const Result* result = resultAt(intNum)) pnt.setCurve(*mCurve1).setParameter(result->meeting.s);
}

void AcGeCurveCurveInt3d::getPointOnCurve2(int intNum, AcGePointOnCurve3d& pnt) const
{
    if (const Result* result = resultAt(intNum)) pnt.setCurve(*mCurve2).setParameter(result->meeting.t);
}

void AcGeCurveCurveInt3d::getIntConfigs(int intNum, AcGe::AcGeXConfig& config1wrt2,
                                        AcGe::AcGeXConfig& config2wrt1) const
{
    const Result* result = resultAt(intNum);
    config1wrt2 = result ? result->config2 : AcGe::kNotDefined;
    config2wrt1 = result ? result->config1 : AcGe::kNotDefined;
}

bool AcGeCurveCurveInt3d::isTangential(int intNum) const
{
    const Result* result = resultAt(intNum);
    return result && result->meeting.tangential;
}

bool AcGeCurveCurveInt3d::isTransversal(int intNum) const
{
    const Result* result = resultAt(intNum);
    return result && !result->meeting.tangential;
}

double AcGeCurveCurveInt3d::intPointTol(int intNum) const
{
    const Result* result = resultAt(intNum);
    return result ? result->gap : 0;
}

int AcGeCurveCurveInt3d::overlapCount() const
{
    return mOverlaps.length() / 4;
}

bool AcGeCurveCurveInt3d::overlapDirection() const
{
    return overlapCount() > 0 && mOverlaps[2] <= mOverlaps[3];
}

void AcGeCurveCurveInt3d::getOverlapRanges(int overlapNum, AcGeInterval& range1, AcGeInterval& range2) const
{
    if (overlapNum < 0 || overlapNum >= overlapCount()) return;
    const double* o = mOverlaps.asArrayPtr() + 4 * overlapNum;
    range1.set(o[0], o[1]);
    range2.set(std::min(o[2], o[3]), std::max(o[2], o[3]));
}

AcGeCurveCurveInt3d& AcGeCurveCurveInt3d::orderWrt1()
{
    std::vector<Result> sorted = *mResults;
    std::sort(sorted.begin(), sorted.end(),
              [](const Result& a, const Result& b) { return a.meeting.s < b.meeting.s; });
    mResults = std::make_shared<const std::vector<Result>>(std::move(sorted));
    return *this;
}

AcGeCurveCurveInt3d& AcGeCurveCurveInt3d::orderWrt2()
{
    std::vector<Result> sorted = *mResults;
    std::sort(sorted.begin(), sorted.end(),
              [](const Result& a, const Result& b) { return a.meeting.t < b.meeting.t; });
    mResults = std::make_shared<const std::vector<Result>>(std::move(sorted));
    return *this;
}

AcGeCurveCurveInt3d& AcGeCurveCurveInt3d::changeCurveOrder()
{
    return mCurve1 ? set(*mCurve2, *mCurve1, AcGeInterval(mRange2), AcGeInterval(mRange1),
                         AcGeVector3d(mNormal), AcGeTol(mTol))
                   : *this;
}
