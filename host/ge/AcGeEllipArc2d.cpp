#include "geell2d.h"

#include "CurveForm.h"
#include "CurveMeet.h"
#include "Dimension.h"
#include "gearc2d.h"
#include "gelent2d.h"
#include "geline2d.h"
#include "Turns.h"

using namespace gecore;

namespace
{
AcGeVector2d unit(const AcGeVector2d& v)
{
    const double size = v.length();
    return size > 0 ? v / size : AcGeVector2d();
}
} // namespace

bool AcGeEllipArc2d::isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const AcGeEllipArc2d&>(entity);
    return mCenter.isEqualTo(other.mCenter, tol) && mMajor.isEqualTo(other.mMajor, tol) &&
           mMinor.isEqualTo(other.mMinor, tol) && std::fabs(mStart - other.mStart) <= tol.equalVector() &&
           std::fabs(mEnd - other.mEnd) <= tol.equalVector();
}

// Conjugate half axes p and q become perpendicular when the parameter is shifted by half of atan2(2 p.q, p^2
// - q^2).
AcGeEllipArc2d& AcGeEllipArc2d::transformBy(const AcGeMatrix2d& xfm)
{
    const AcGeVector2d p = xfm * mMajor, q = xfm * mMinor;
    mCenter.transformBy(xfm);
    mMajor = p;
    mMinor = q;
    const double skew = p.dotProduct(q);
    if (std::fabs(skew) <= 1e-15 * p.length() * q.length()) return *this;
    const double shift = std::atan2(2 * skew, p.lengthSqrd() - q.lengthSqrd()) / 2;
    mMajor = p * std::cos(shift) + q * std::sin(shift);
    mMinor = q * std::cos(shift) - p * std::sin(shift);
    mStart -= shift;
    mEnd -= shift;
    return *this;
}

bool AcGeEllipArc2d::intersectWith(const AcGeLinearEnt2d& line, int& intn, AcGePoint2d& p1, AcGePoint2d& p2,
                                   const AcGeTol& tol) const
{
    const Meetings found = meet(line.form(), form(), tol.equalPoint());
    intn = static_cast<int>(found.points.size());
    if (intn > 0) p1 = toPoint2d(found.points[0].point);
    if (intn > 1) p2 = toPoint2d(found.points[1].point);
    return intn > 0;
}

bool AcGeEllipArc2d::isCircular(const AcGeTol& tol) const
{
    return std::fabs(majorRadius() - minorRadius()) <= tol.equalPoint();
}

bool AcGeEllipArc2d::isInside(const AcGePoint2d& pnt, const AcGeTol& tol) const
{
    const AcGeVector2d to = pnt - mCenter, u = majorAxis(), v = minorAxis();
    const double x = to.dotProduct(u), y = to.dotProduct(v);
    if ((to - u * x - v * y).length() > tol.equalPoint()) return false;
    if (std::hypot(x / majorRadius(), y / minorRadius()) <= 1) return true;
    AcGeEllipArc2d whole(*this);
    whole.setAngles(0, kTwoPi);
    return whole.isOn(pnt, tol);
}

AcGeVector2d AcGeEllipArc2d::majorAxis() const
{
    return unit(mMajor);
}

AcGeVector2d AcGeEllipArc2d::minorAxis() const
{
    return unit(mMinor);
}

AcGeEllipArc2d& AcGeEllipArc2d::setCenter(const AcGePoint2d& cent)
{
    mCenter = cent;
    return *this;
}

AcGeEllipArc2d& AcGeEllipArc2d::setMajorRadius(double rad)
{
    mMajor = majorAxis() * std::fabs(rad);
    return *this;
}

AcGeEllipArc2d& AcGeEllipArc2d::setMinorRadius(double rad)
{
    mMinor = minorAxis() * std::fabs(rad);
    return *this;
}

AcGeEllipArc2d& AcGeEllipArc2d::setAxes(const AcGeVector2d& majorAxis, const AcGeVector2d& minorAxis)
{
    const double a = majorRadius(), b = minorRadius();
    const AcGeVector2d u = unit(majorAxis), v = minorAxis - u * u.dotProduct(minorAxis);
    if (!(u.length() > 0) || !(v.length() > 1e-12 * minorAxis.length())) return *this;
    mMajor = u * a;
    mMinor = unit(v) * b;
    return *this;
}

AcGeEllipArc2d& AcGeEllipArc2d::setAngles(double startAngle, double endAngle)
{
    mStart = startAngle;
    mEnd = endAngle;
    orderAngles(mStart, mEnd);
    return *this;
}

AcGeEllipArc2d& AcGeEllipArc2d::set(const AcGePoint2d& cent, const AcGeVector2d& majorAxis,
                                    const AcGeVector2d& minorAxis, double majorRadius, double minorRadius)
{
    return set(cent, majorAxis, minorAxis, majorRadius, minorRadius, 0, kTwoPi);
}

AcGeEllipArc2d& AcGeEllipArc2d::set(const AcGePoint2d& cent, const AcGeVector2d& majorAxis,
                                    const AcGeVector2d& minorAxis, double majorRadius, double minorRadius,
                                    double startAngle, double endAngle)
{
    *this = AcGeEllipArc2d();
    setCenter(cent).setAxes(majorAxis, minorAxis);
    return setMajorRadius(majorRadius).setMinorRadius(minorRadius).setAngles(startAngle, endAngle);
}

AcGeEllipArc2d& AcGeEllipArc2d::set(const AcGeCircArc2d& arc)
{
    const CurveForm circle = arc.form();
    mCenter = arc.center();
    mMajor = toVector2d(circle.u);
    mMinor = toVector2d(circle.v);
    mStart = circle.lo;
    mEnd = circle.hi;
    return *this;
}

CurveForm AcGeEllipArc2d::form() const
{
    return conicForm(lift(mCenter), lift(mMajor), lift(mMinor), mStart, mEnd);
}

void AcGeEllipArc2d::turnRound()
{
    const double start = mStart;
    mMinor.negate();
    mStart = -mEnd;
    mEnd = -start;
}

bool AcGeEllipArc2d::setBounds(double lo, double hi)
{
    if (!std::isfinite(lo) || !std::isfinite(hi) || hi - lo > kTwoPi + 1e-12) return false;
    mStart = lo;
    mEnd = hi;
    return true;
}

void AcGeEllipArc2d::resetBounds()
{
    setAngles(0, kTwoPi);
}
