#include "gearc2d.h"

#include "CurveForm.h"
#include "CurveMeet.h"
#include "Dimension.h"
#include "gelent2d.h"
#include "geline2d.h"
#include "Turns.h"

using namespace gecore;

namespace
{
/// The first two meetings; false when there is none.
bool firstTwo(const Meetings& found, int& count, AcGePoint2d& p1, AcGePoint2d& p2)
{
    count = found.overlaps.empty() ? static_cast<int>(found.points.size()) : 0;
    if (count > 0) p1 = toPoint2d(found.points[0].point);
    if (count > 1) p2 = toPoint2d(found.points[1].point);
    return count > 0;
}
} // namespace

bool AcGeCircArc2d::isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const AcGeCircArc2d&>(entity);
    return mCenter.isEqualTo(other.mCenter, tol) && mClockWise == other.mClockWise &&
           std::fabs(mRadius - other.mRadius) <= tol.equalPoint() &&
           startPoint().isEqualTo(other.startPoint(), tol) && endPoint().isEqualTo(other.endPoint(), tol) &&
           evalPoint((mStart + mEnd) / 2).isEqualTo(other.evalPoint((other.mStart + other.mEnd) / 2), tol);
}

AcGeCircArc2d& AcGeCircArc2d::transformBy(const AcGeMatrix2d& xfm)
{
    const AcGeVector2d u = xfm * mRef;
    mCenter.transformBy(xfm);
    mClockWise = mClockWise != (xfm.det() < 0);
    setRadius(mRadius * u.length());
    return setRefVec(u);
}

bool AcGeCircArc2d::intersectWith(const AcGeLinearEnt2d& line, int& intn, AcGePoint2d& p1, AcGePoint2d& p2,
                                  const AcGeTol& tol) const
{
    return firstTwo(meet(line.form(), form(), tol.equalPoint()), intn, p1, p2);
}

bool AcGeCircArc2d::intersectWith(const AcGeCircArc2d& circarc, int& intn, AcGePoint2d& p1, AcGePoint2d& p2,
                                  const AcGeTol& tol) const
{
    return firstTwo(meet(form(), circarc.form(), tol.equalPoint()), intn, p1, p2);
}

bool AcGeCircArc2d::tangent(const AcGePoint2d& pnt, AcGeLine2d& line, const AcGeTol& tol) const
{
    AcGeError error;
    return tangent(pnt, line, tol, error);
}

bool AcGeCircArc2d::tangent(const AcGePoint2d& pnt, AcGeLine2d& line, const AcGeTol& tol,
                            AcGeError& error) const
{
    double t = 0;
    error = !(mRadius > tol.equalPoint()) ? AcGe::k0This : isOn(pnt, t, tol) ? AcGe::kOk : AcGe::kArg1TooBig;
    if (error != AcGe::kOk) return false;
    Arrow d[2];
    derivatives(form(), t, 1, d);
    line.set(pnt, toVector2d(d[1]).normal());
    return true;
}

bool AcGeCircArc2d::isInside(const AcGePoint2d& pnt, const AcGeTol& tol) const
{
    return pnt.distanceTo(mCenter) <= mRadius + tol.equalPoint();
}

AcGeCircArc2d& AcGeCircArc2d::setCenter(const AcGePoint2d& cent)
{
    mCenter = cent;
    return *this;
}

AcGeCircArc2d& AcGeCircArc2d::setRadius(double radius)
{
    mRadius = std::fabs(radius);
    return *this;
}

AcGeCircArc2d& AcGeCircArc2d::setAngles(double startAng, double endAng)
{
    mStart = startAng;
    mEnd = endAng;
    orderAngles(mStart, mEnd);
    return *this;
}

AcGeCircArc2d& AcGeCircArc2d::setToComplement()
{
    return setAngles(mEnd, mStart);
}

AcGeCircArc2d& AcGeCircArc2d::setRefVec(const AcGeVector2d& vec)
{
    const double size = vec.length();
    if (size > 0) mRef = vec / size;
    return *this;
}

AcGeCircArc2d& AcGeCircArc2d::set(const AcGePoint2d& cent, double radius)
{
    return set(cent, radius, 0, kTwoPi);
}

AcGeCircArc2d& AcGeCircArc2d::set(const AcGePoint2d& cent, double radius, double ang1, double ang2,
                                  const AcGeVector2d& refVec, bool isClockWise)
{
    mClockWise = isClockWise;
    return setCenter(cent).setRadius(radius).setRefVec(refVec).setAngles(ang1, ang2);
}

AcGeCircArc2d& AcGeCircArc2d::set(const AcGePoint2d& startPoint, const AcGePoint2d& pnt,
                                  const AcGePoint2d& endPoint)
{
    AcGeError error;
    return set(startPoint, pnt, endPoint, error);
}

// The circumcentre: |a|^2 b turned back less |b|^2 a turned back, over twice a x b, from the start point.
AcGeCircArc2d& AcGeCircArc2d::set(const AcGePoint2d& startPoint, const AcGePoint2d& pnt,
                                  const AcGePoint2d& endPoint, AcGeError& error)
{
    const AcGeVector2d a = pnt - startPoint, b = endPoint - startPoint;
    const double cross = a.crossProduct(b);
    const AcGeTol& tol = AcGeContext::gTol;
    error = startPoint.isEqualTo(pnt, tol)                          ? AcGe::kEqualArg1Arg2
            : startPoint.isEqualTo(endPoint, tol)                   ? AcGe::kEqualArg1Arg3
            : pnt.isEqualTo(endPoint, tol)                          ? AcGe::kEqualArg2Arg3
            : !(std::fabs(cross) > 1e-14 * a.length() * b.length()) ? AcGe::kLinearlyDependentArg1Arg2Arg3
                                                                    : AcGe::kOk;
    if (error != AcGe::kOk) return *this;
    const AcGeVector2d toCentre =
        (b.perpVector() * -a.lengthSqrd() + a.perpVector() * b.lengthSqrd()) / (2 * cross);
    const AcGePoint2d centre = startPoint + toCentre;
    const AcGeVector2d last = endPoint - centre;
    const double turn = last.angle() - (-toCentre).angle();
    return set(centre, toCentre.length(), 0, cross > 0 ? turn : -turn, -toCentre, cross < 0);
}

// The centre lies on the chord's bisector, r cos(angle / 2) from the chord; in terms of b, the tangent of a
// quarter of the angle: chord (1 - b^2) / (4 b) to the left.
AcGeCircArc2d& AcGeCircArc2d::set(const AcGePoint2d& startPoint, const AcGePoint2d& endPoint, double bulge,
                                  bool bulgeFlag)
{
    const AcGeVector2d chord = endPoint - startPoint;
    if (!(chord.length() > 0) || bulge == 0) return *this;
    const double b = bulgeFlag ? 2 * bulge / chord.length() : bulge;
    const AcGePoint2d centre = startPoint + chord / 2 + chord.perpVector() * ((1 - b * b) / (4 * b));
    const double radius = chord.length() * (1 + b * b) / (4 * std::fabs(b));
    return set(centre, radius, 0, 4 * std::atan(std::fabs(b)), startPoint - centre, b < 0);
}

CurveForm AcGeCircArc2d::form() const
{
    const AcGeVector2d u = mRef * mRadius, v = mClockWise ? -u.perpVector() : u.perpVector();
    return conicForm(lift(mCenter), lift(u), lift(v), mStart, mEnd);
}

void AcGeCircArc2d::turnRound()
{
    const double start = mStart;
    mClockWise = !mClockWise;
    mStart = -mEnd;
    mEnd = -start;
}

bool AcGeCircArc2d::setBounds(double lo, double hi)
{
    if (!std::isfinite(lo) || !std::isfinite(hi) || hi - lo > kTwoPi + 1e-12) return false;
    mStart = lo;
    mEnd = hi;
    return true;
}

void AcGeCircArc2d::resetBounds()
{
    setAngles(0, kTwoPi);
}
