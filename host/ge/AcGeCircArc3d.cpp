#include "gearc3d.h"

#include "CurveForm.h"
#include "CurveMeet.h"
#include "gelent3d.h"
#include "geline3d.h"
#include "geplane.h"
#include "PlaneMeet.h"
#include "Turns.h"

using namespace gecore;

namespace
{
/// The first two meetings with a bare curve; false when there is none.
bool firstTwo(const Meetings& found, int& count, AcGePoint3d& p1, AcGePoint3d& p2)
{
    count = found.overlaps.empty() ? static_cast<int>(found.points.size()) : 0;
    if (count > 0) p1 = found.points[0].point;
    if (count > 1) p2 = found.points[1].point;
    return count > 0;
}
} // namespace

bool AcGeCircArc3d::isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const AcGeCircArc3d&>(entity);
    return mCenter.isEqualTo(other.mCenter, tol) && mNormal.isEqualTo(other.mNormal, tol) &&
           std::fabs(mRadius - other.mRadius) <= tol.equalPoint() &&
           startPoint().isEqualTo(other.startPoint(), tol) && endPoint().isEqualTo(other.endPoint(), tol) &&
           evalPoint((mStart + mEnd) / 2).isEqualTo(other.evalPoint((other.mStart + other.mEnd) / 2), tol);
}

AcGeCircArc3d& AcGeCircArc3d::transformBy(const AcGeMatrix3d& xfm)
{
    const AcGeVector3d u = xfm * mRef, v = xfm * mNormal.crossProduct(mRef);
    mCenter.transformBy(xfm);
    setRadius(mRadius * u.length());
    return setAxes(u.crossProduct(v), u);
}

AcGePoint3d AcGeCircArc3d::closestPointToPlane(const AcGePlanarEnt& plane, AcGePoint3d& pointOnPlane,
                                               const AcGeTol& tol) const
{
    int count;
    AcGePoint3d best, other;
    if (!intersectWith(plane, count, best, other, tol)) {
        // The height above the plane is a wave along the angle: its least size is at an end or where it
        // turns.
        const AcGeVector3d n = plane.normal();
        const double turn = std::atan2(mNormal.crossProduct(mRef).dotProduct(n), mRef.dotProduct(n));
        best = startPoint();
        for (int k = -4; k <= 8; ++k) {
            const double t = turn + k * kPi;
            const AcGePoint3d p = t > mStart && t < mEnd ? evalPoint(t) : endPoint();
            if (plane.distanceTo(p, tol) < plane.distanceTo(best, tol)) best = p;
        }
    }
    pointOnPlane = plane.closestPointTo(best, tol);
    return best;
}

bool AcGeCircArc3d::intersectWith(const AcGeLinearEnt3d& line, int& intn, AcGePoint3d& p1, AcGePoint3d& p2,
                                  const AcGeTol& tol) const
{
    return firstTwo(meet(line.form(), form(), tol.equalPoint()), intn, p1, p2);
}

bool AcGeCircArc3d::intersectWith(const AcGeCircArc3d& arc, int& intn, AcGePoint3d& p1, AcGePoint3d& p2,
                                  const AcGeTol& tol) const
{
    return firstTwo(meet(form(), arc.form(), tol.equalPoint()), intn, p1, p2);
}

bool AcGeCircArc3d::intersectWith(const AcGePlanarEnt& plane, int& numOfIntersect, AcGePoint3d& p1,
                                  AcGePoint3d& p2, const AcGeTol& tol) const
{
    AcGePlane own;
    getPlane(own);
    return meetPlane(form(), own, plane, tol, numOfIntersect, p1, p2);
}

bool AcGeCircArc3d::tangent(const AcGePoint3d& pnt, AcGeLine3d& line, const AcGeTol& tol) const
{
    AcGeError error;
    return tangent(pnt, line, tol, error);
}

bool AcGeCircArc3d::tangent(const AcGePoint3d& pnt, AcGeLine3d& line, const AcGeTol& tol,
                            AcGeError& error) const
{
    double t = 0;
    error = !(mRadius > tol.equalPoint()) ? AcGe::k0This : isOn(pnt, t, tol) ? AcGe::kOk : AcGe::kArg1TooBig;
    if (error != AcGe::kOk) return false;
    AcGeVector3d d[2];
    derivatives(form(), t, 1, d);
    line.set(pnt, d[1].normal());
    return true;
}

void AcGeCircArc3d::getPlane(AcGePlane& plane) const
{
    plane.set(mCenter, mRef, mNormal.crossProduct(mRef));
}

bool AcGeCircArc3d::isInside(const AcGePoint3d& pnt, const AcGeTol& tol) const
{
    const AcGeVector3d to = pnt - mCenter;
    return std::fabs(to.dotProduct(mNormal)) <= tol.equalPoint() && to.length() <= mRadius + tol.equalPoint();
}

AcGeCircArc3d& AcGeCircArc3d::setCenter(const AcGePoint3d& center)
{
    mCenter = center;
    return *this;
}

AcGeCircArc3d& AcGeCircArc3d::setAxes(const AcGeVector3d& normal, const AcGeVector3d& refVec)
{
    const double size = normal.length();
    if (!(size > 0)) return *this;
    const AcGeVector3d n = normal / size, ref = refVec - n * n.dotProduct(refVec);
    if (!(ref.length() > 1e-12 * refVec.length())) return *this;
    mNormal = n;
    mRef = ref / ref.length();
    return *this;
}

AcGeCircArc3d& AcGeCircArc3d::setRadius(double radius)
{
    mRadius = std::fabs(radius);
    return *this;
}

AcGeCircArc3d& AcGeCircArc3d::setAngles(double startAngle, double endAngle)
{
    mStart = startAngle;
    mEnd = endAngle;
    orderAngles(mStart, mEnd);
    return *this;
}

AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& cent, const AcGeVector3d& nrm, double radius)
{
    return set(cent, nrm, nrm.perpVector(), radius, 0, kTwoPi);
}

AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& cent, const AcGeVector3d& nrm,
                                  const AcGeVector3d& refVec, double radius, double startAngle,
                                  double endAngle)
{
    return setCenter(cent).setAxes(nrm, refVec).setRadius(radius).setAngles(startAngle, endAngle);
}

AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& startPoint, const AcGePoint3d& pnt,
                                  const AcGePoint3d& endPoint)
{
    AcGeError error;
    return set(startPoint, pnt, endPoint, error);
}

// The circumcentre from the two sides at the start point a and b and their cross product n:
// (|a|^2 b - |b|^2 a) x n / (2 |n|^2) from it.
AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& startPoint, const AcGePoint3d& pnt,
                                  const AcGePoint3d& endPoint, AcGeError& error)
{
    const AcGeVector3d a = pnt - startPoint, b = endPoint - startPoint, n = a.crossProduct(b);
    const AcGeTol& tol = AcGeContext::gTol;
    error = startPoint.isEqualTo(pnt, tol)                    ? AcGe::kEqualArg1Arg2
            : startPoint.isEqualTo(endPoint, tol)             ? AcGe::kEqualArg1Arg3
            : pnt.isEqualTo(endPoint, tol)                    ? AcGe::kEqualArg2Arg3
            : !(n.length() > 1e-14 * a.length() * b.length()) ? AcGe::kLinearlyDependentArg1Arg2Arg3
                                                              : AcGe::kOk;
    if (error != AcGe::kOk) return *this;
    const AcGeVector3d spoke =
        (b * a.lengthSqrd() - a * b.lengthSqrd()).crossProduct(n) / (-2 * n.lengthSqrd());
    const AcGePoint3d centre = startPoint - spoke;
    const AcGeVector3d ref = spoke, last = endPoint - centre;
    return set(centre, n, ref, ref.length(), 0, ref.angleTo(last, n));
}

CurveForm AcGeCircArc3d::form() const
{
    return conicForm(mCenter, mRef * mRadius, mNormal.crossProduct(mRef) * mRadius, mStart, mEnd);
}

void AcGeCircArc3d::turnRound()
{
    const double start = mStart;
    mNormal.negate();
    mStart = -mEnd;
    mEnd = -start;
}

bool AcGeCircArc3d::setBounds(double lo, double hi)
{
    if (!std::isfinite(lo) || !std::isfinite(hi) || hi - lo > kTwoPi + 1e-12) return false;
    mStart = lo;
    mEnd = hi;
    return true;
}

void AcGeCircArc3d::resetBounds()
{
    setAngles(0, kTwoPi);
}
