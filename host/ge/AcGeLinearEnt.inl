/// The members of AcGeLinearEnt2d and AcGeLinearEnt3d that are the same in the plane and in space.

#include "CurveForm.h"
#include "CurveMeet.h"

#include <algorithm>

// Lines are equal when each runs through the other's points; bounded ones when their bounds are equal points.
bool LinearEnt::isEqualTo(const Entity& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const LinearEnt&>(entity);
    Point a, b;
    if (hasStartPoint(a) && other.hasStartPoint(b) && !a.isEqualTo(b, tol)) return false;
    if (hasEndPoint(a) && other.hasEndPoint(b)) return a.isEqualTo(b, tol);
    return isColinearTo(other, tol) && mVector.dotProduct(other.mVector) > 0;
}

LinearEnt& LinearEnt::transformBy(const Matrix& xfm)
{
    mOrigin.transformBy(xfm);
    mVector.transformBy(xfm);
    return *this;
}

bool LinearEnt::intersectWith(const LinearEnt& line, Point& intPt, const AcGeTol& tol) const
{
    const Meetings found = meet(form(), line.form(), tol.equalPoint());
    if (found.points.size() != 1 || found.overlaps.size() != 0) return false;
    intPt = toPoint(found.points[0].point);
    return true;
}

bool LinearEnt::overlap(const LinearEnt& line, LinearEnt*& overlap, const AcGeTol& tol) const
{
    const Meetings found = meet(form(), line.form(), tol.equalPoint());
    if (found.overlaps.size() != 1) return false;
    const Overlap common = found.overlaps[0];
    if (common.s1 < kInfinity && common.s0 > -kInfinity) {
        overlap = new LineSeg(evalPoint(common.s0), evalPoint(common.s1));
    } else if (common.s0 > -kInfinity) {
        overlap = new Ray(evalPoint(common.s0), mVector);
    } else if (common.s1 < kInfinity) {
        overlap = new Ray(evalPoint(common.s1), -mVector);
    } else {
        overlap = new Line(mOrigin, mVector);
    }
    return true;
}

bool LinearEnt::isParallelTo(const LinearEnt& line, const AcGeTol& tol) const
{
    return direction().isParallelTo(line.direction(), tol);
}

bool LinearEnt::isPerpendicularTo(const LinearEnt& line, const AcGeTol& tol) const
{
    return direction().isPerpendicularTo(line.direction(), tol);
}

bool LinearEnt::isColinearTo(const LinearEnt& line, const AcGeTol& tol) const
{
    return isParallelTo(line, tol) && Line(mOrigin, mVector).isOn(line.mOrigin, tol);
}

Vector LinearEnt::direction() const
{
    const double size = mVector.length();
    return size > 0 ? mVector / size : Vector();
}

void LinearEnt::getLine(Line& line) const
{
    line.set(mOrigin, mVector);
}

CurveForm LinearEnt::form() const
{
    return lineForm(lift(mOrigin), lift(mVector), mLo, mHi);
}

// The bounded parameters stay the same ones: start and end exchange their places.
void LinearEnt::turnRound()
{
    if (std::isfinite(mLo) && std::isfinite(mHi)) {
        mOrigin += mVector * (mLo + mHi);
    } else {
        const double lo = mLo;
        mLo = -mHi;
        mHi = -lo;
    }
    mVector.negate();
}
