#include "geell3d.h"

#include "CurveForm.h"
#include "CurveMeet.h"
#include "Dimension.h"
#include "gearc3d.h"
#include "gelent3d.h"
#include "geline3d.h"
#include "geplane.h"
#include "Turns.h"

using namespace gecore;

namespace
{
AcGeVector3d unit(const AcGeVector3d& v)
{
    const double size = v.length();
    return size > 0 ? v / size : AcGeVector3d();
}
} // namespace

bool AcGeEllipArc3d::isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const AcGeEllipArc3d&>(entity);
    return mCenter.isEqualTo(other.mCenter, tol) && mMajor.isEqualTo(other.mMajor, tol) &&
           mMinor.isEqualTo(other.mMinor, tol) && std::fabs(mStart - other.mStart) <= tol.equalVector() &&
           std::fabs(mEnd - other.mEnd) <= tol.equalVector();
}

// Conjugate half axes p and q become perpendicular when the parameter is shifted by half of atan2(2 p.q, p^2
// - q^2).
AcGeEllipArc3d& AcGeEllipArc3d::transformBy(const AcGeMatrix3d& xfm)
{
    const AcGeVector3d p = xfm * mMajor, q = xfm * mMinor;
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

bool AcGeEllipArc3d::intersectWith(const AcGeLinearEnt3d& line, int& intn, AcGePoint3d& p1, AcGePoint3d& p2,
                                   const AcGeTol& tol) const
{
    const Meetings found = meet(line.form(), form(), tol.equalPoint());
    intn = static_cast<int>(found.points.size());
    if (intn > 0) p1 = toPoint3d(found.points[0].point);
    if (intn > 1) p2 = toPoint3d(found.points[1].point);
    return intn > 0;
}

bool AcGeEllipArc3d::intersectWith(const AcGePlanarEnt& plane, int& numOfIntersect, AcGePoint3d& p1,
                                   AcGePoint3d& p2, const AcGeTol& tol) const
{
    numOfIntersect = 0;
    AcGePlane mine;
    AcGeLine3d line;
    getPlane(mine);
    if (!mine.intersectWith(AcGePlane(plane.pointOnPlane(), plane.normal()), line, tol)) return false;
    const Meetings found = meet(line.form(), form(), tol.equalPoint());
    for (std::size_t i = 0; i < found.points.size() && numOfIntersect < 2; ++i)
        if (plane.isOn(found.points[i].point, tol)) (numOfIntersect++ == 0 ? p1 : p2) = found.points[i].point;
    return numOfIntersect > 0;
}

void AcGeEllipArc3d::getPlane(AcGePlane& plane) const
{
    plane.set(mCenter, majorAxis(), minorAxis());
}

bool AcGeEllipArc3d::isCircular(const AcGeTol& tol) const
{
    return std::fabs(majorRadius() - minorRadius()) <= tol.equalPoint();
}

bool AcGeEllipArc3d::isInside(const AcGePoint3d& pnt, const AcGeTol& tol) const
{
    const AcGeVector3d to = pnt - mCenter, u = majorAxis(), v = minorAxis();
    const double x = to.dotProduct(u), y = to.dotProduct(v);
    if ((to - u * x - v * y).length() > tol.equalPoint()) return false;
    if (std::hypot(x / majorRadius(), y / minorRadius()) <= 1) return true;
    AcGeEllipArc3d whole(*this);
    whole.setAngles(0, kTwoPi);
    return whole.isOn(pnt, tol);
}

AcGeVector3d AcGeEllipArc3d::majorAxis() const
{
    return unit(mMajor);
}

AcGeVector3d AcGeEllipArc3d::minorAxis() const
{
    return unit(mMinor);
}

AcGeVector3d AcGeEllipArc3d::normal() const
{
    return unit(mMajor.crossProduct(mMinor));
}

AcGeEllipArc3d& AcGeEllipArc3d::setCenter(const AcGePoint3d& cent)
{
    mCenter = cent;
    return *this;
}

AcGeEllipArc3d& AcGeEllipArc3d::setMajorRadius(double rad)
{
    mMajor = majorAxis() * std::fabs(rad);
    return *this;
}

AcGeEllipArc3d& AcGeEllipArc3d::setMinorRadius(double rad)
{
    mMinor = minorAxis() * std::fabs(rad);
    return *this;
}

AcGeEllipArc3d& AcGeEllipArc3d::setAxes(const AcGeVector3d& majorAxis, const AcGeVector3d& minorAxis)
{
    const double a = majorRadius(), b = minorRadius();
    const AcGeVector3d u = unit(majorAxis), v = minorAxis - u * u.dotProduct(minorAxis);
    if (!(u.length() > 0) || !(v.length() > 1e-12 * minorAxis.length())) return *this;
    mMajor = u * a;
    mMinor = unit(v) * b;
    return *this;
}

AcGeEllipArc3d& AcGeEllipArc3d::setAngles(double startAngle, double endAngle)
{
    mStart = startAngle;
    mEnd = endAngle;
    orderAngles(mStart, mEnd);
    return *this;
}

AcGeEllipArc3d& AcGeEllipArc3d::set(const AcGePoint3d& cent, const AcGeVector3d& majorAxis,
                                    const AcGeVector3d& minorAxis, double majorRadius, double minorRadius)
{
    return set(cent, majorAxis, minorAxis, majorRadius, minorRadius, 0, kTwoPi);
}

AcGeEllipArc3d& AcGeEllipArc3d::set(const AcGePoint3d& cent, const AcGeVector3d& majorAxis,
                                    const AcGeVector3d& minorAxis, double majorRadius, double minorRadius,
                                    double startAngle, double endAngle)
{
    *this = AcGeEllipArc3d();
    setCenter(cent).setAxes(majorAxis, minorAxis);
    return setMajorRadius(majorRadius).setMinorRadius(minorRadius).setAngles(startAngle, endAngle);
}

AcGeEllipArc3d& AcGeEllipArc3d::set(const AcGeCircArc3d& arc)
{
    const CurveForm circle = arc.form();
    mCenter = arc.center();
    mMajor = toVector3d(circle.u);
    mMinor = toVector3d(circle.v);
    mStart = circle.lo;
    mEnd = circle.hi;
    return *this;
}

CurveForm AcGeEllipArc3d::form() const
{
    return conicForm(lift(mCenter), lift(mMajor), lift(mMinor), mStart, mEnd);
}

void AcGeEllipArc3d::turnRound()
{
    const double start = mStart;
    mMinor.negate();
    mStart = -mEnd;
    mEnd = -start;
}

bool AcGeEllipArc3d::setBounds(double lo, double hi)
{
    if (!std::isfinite(lo) || !std::isfinite(hi) || hi - lo > kTwoPi + 1e-12) return false;
    mStart = lo;
    mEnd = hi;
    return true;
}

void AcGeEllipArc3d::resetBounds()
{
    setAngles(0, kTwoPi);
}
