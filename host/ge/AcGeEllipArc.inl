/// The members of AcGeEllipArc2d and AcGeEllipArc3d that are the same in the plane and in space.

#include "CurveForm.h"
#include "CurveMeet.h"
#include "Turns.h"

namespace
{
Vector unit(const Vector& v)
{
    const double size = v.length();
    return size > 0 ? v / size : Vector();
}
} // namespace

bool EllipArc::isEqualTo(const Entity& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const EllipArc&>(entity);
    return mCenter.isEqualTo(other.mCenter, tol) && mMajor.isEqualTo(other.mMajor, tol) &&
           mMinor.isEqualTo(other.mMinor, tol) && std::fabs(mStart - other.mStart) <= tol.equalVector() &&
           std::fabs(mEnd - other.mEnd) <= tol.equalVector();
}

// Conjugate half axes p and q become perpendicular when the parameter is shifted by half of atan2(2 p.q, p^2
// - q^2).
EllipArc& EllipArc::transformBy(const Matrix& xfm)
{
    const Vector p = xfm * mMajor, q = xfm * mMinor;
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

bool EllipArc::intersectWith(const LinearEnt& line, int& intn, Point& p1, Point& p2, const AcGeTol& tol) const
{
    const Meetings found = meet(line.form(), form(), tol.equalPoint());
    intn = static_cast<int>(found.points.size());
    if (intn > 0) p1 = toPoint(found.points[0].point);
    if (intn > 1) p2 = toPoint(found.points[1].point);
    return intn > 0;
}

bool EllipArc::isCircular(const AcGeTol& tol) const
{
    return std::fabs(majorRadius() - minorRadius()) <= tol.equalPoint();
}

bool EllipArc::isInside(const Point& pnt, const AcGeTol& tol) const
{
    const Vector to = pnt - mCenter, u = majorAxis(), v = minorAxis();
    const double x = to.dotProduct(u), y = to.dotProduct(v);
    if ((to - u * x - v * y).length() > tol.equalPoint()) return false;
    if (std::hypot(x / majorRadius(), y / minorRadius()) <= 1) return true;
    EllipArc whole(*this);
    whole.setAngles(0, kTwoPi);
    return whole.isOn(pnt, tol);
}

Vector EllipArc::majorAxis() const
{
    return unit(mMajor);
}

Vector EllipArc::minorAxis() const
{
    return unit(mMinor);
}

EllipArc& EllipArc::setCenter(const Point& cent)
{
    mCenter = cent;
    return *this;
}

EllipArc& EllipArc::setMajorRadius(double rad)
{
    mMajor = majorAxis() * std::fabs(rad);
    return *this;
}

EllipArc& EllipArc::setMinorRadius(double rad)
{
    mMinor = minorAxis() * std::fabs(rad);
    return *this;
}

EllipArc& EllipArc::setAxes(const Vector& majorAxis, const Vector& minorAxis)
{
    const double a = majorRadius(), b = minorRadius();
    const Vector u = unit(majorAxis), v = minorAxis - u * u.dotProduct(minorAxis);
    if (!(u.length() > 0) || !(v.length() > 1e-12 * minorAxis.length())) return *this;
    mMajor = u * a;
    mMinor = unit(v) * b;
    return *this;
}

EllipArc& EllipArc::setAngles(double startAngle, double endAngle)
{
    mStart = startAngle;
    mEnd = endAngle;
    orderAngles(mStart, mEnd);
    return *this;
}

EllipArc& EllipArc::set(const Point& cent, const Vector& majorAxis, const Vector& minorAxis,
                        double majorRadius, double minorRadius)
{
    return set(cent, majorAxis, minorAxis, majorRadius, minorRadius, 0, kTwoPi);
}

EllipArc& EllipArc::set(const Point& cent, const Vector& majorAxis, const Vector& minorAxis,
                        double majorRadius, double minorRadius, double startAngle, double endAngle)
{
    *this = EllipArc();
    setCenter(cent).setAxes(majorAxis, minorAxis);
    return setMajorRadius(majorRadius).setMinorRadius(minorRadius).setAngles(startAngle, endAngle);
}

EllipArc& EllipArc::set(const CircArc& arc)
{
    const CurveForm circle = arc.form();
    mCenter = arc.center();
    mMajor = toVector(circle.u);
    mMinor = toVector(circle.v);
    mStart = circle.lo;
    mEnd = circle.hi;
    return *this;
}

CurveForm EllipArc::form() const
{
    return conicForm(lift(mCenter), lift(mMajor), lift(mMinor), mStart, mEnd);
}

void EllipArc::turnRound()
{
    const double start = mStart;
    mMinor.negate();
    mStart = -mEnd;
    mEnd = -start;
}

bool EllipArc::setBounds(double lo, double hi)
{
    if (!std::isfinite(lo) || !std::isfinite(hi) || hi - lo > kTwoPi + 1e-12) return false;
    mStart = lo;
    mEnd = hi;
    return true;
}

void EllipArc::resetBounds()
{
    setAngles(0, kTwoPi);
}
