#include "gelent3d.h"

#include "CurveForm.h"
#include "CurveMeet.h"
#include "Dimension.h"
#include "geline3d.h"
#include "gelnsg3d.h"
#include "geplane.h"
#include "geray3d.h"

#include <algorithm>

using namespace gecore;

bool AcGeLinearEnt3d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kLinearEnt3d || AcGeCurve3d::isKindOf(entType);
}

// Lines are equal when each runs through the other's points; bounded ones when their bounds are equal points.
bool AcGeLinearEnt3d::isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const AcGeLinearEnt3d&>(entity);
    AcGePoint3d a, b;
    if (hasStartPoint(a) && other.hasStartPoint(b) && !a.isEqualTo(b, tol)) return false;
    if (hasEndPoint(a) && other.hasEndPoint(b)) return a.isEqualTo(b, tol);
    return isColinearTo(other, tol) && mVector.dotProduct(other.mVector) > 0;
}

AcGeLinearEnt3d& AcGeLinearEnt3d::transformBy(const AcGeMatrix3d& xfm)
{
    mOrigin.transformBy(xfm);
    mVector.transformBy(xfm);
    return *this;
}

bool AcGeLinearEnt3d::intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& intPt, const AcGeTol& tol) const
{
    const Meetings found = meet(form(), line.form(), tol.equalPoint());
    if (found.points.size() != 1 || found.overlaps.size() != 0) return false;
    intPt = toPoint3d(found.points[0].point);
    return true;
}

bool AcGeLinearEnt3d::intersectWith(const AcGePlanarEnt& plane, AcGePoint3d& intPnt, const AcGeTol& tol) const
{
    return plane.intersectWith(*this, intPnt, tol);
}

bool AcGeLinearEnt3d::projIntersectWith(const AcGeLinearEnt3d& line, const AcGeVector3d& projDir,
                                        AcGePoint3d& pntOnThisLine, AcGePoint3d& pntOnOtherLine,
                                        const AcGeTol& tol) const
{
    const AcGeMatrix3d flat = AcGeMatrix3d::projection(AcGePlane(AcGePoint3d::kOrigin, projDir), projDir);
    const CurveForm a = lineForm(flat * mOrigin, flat * mVector, mLo, mHi);
    const CurveForm b = lineForm(flat * line.mOrigin, flat * line.mVector, line.mLo, line.mHi);
    const Meetings found = meet(a, b, tol.equalPoint());
    if (found.points.size() != 1 || found.overlaps.size() != 0) return false;
    pntOnThisLine = evalPoint(found.points[0].s);
    pntOnOtherLine = line.evalPoint(found.points[0].t);
    return true;
}

bool AcGeLinearEnt3d::overlap(const AcGeLinearEnt3d& line, AcGeLinearEnt3d*& overlap,
                              const AcGeTol& tol) const
{
    const Meetings found = meet(form(), line.form(), tol.equalPoint());
    if (found.overlaps.size() != 1) return false;
    const Overlap common = found.overlaps[0];
    if (common.s1 < kInfinity && common.s0 > -kInfinity) {
        overlap = new AcGeLineSeg3d(evalPoint(common.s0), evalPoint(common.s1));
    } else if (common.s0 > -kInfinity) {
        overlap = new AcGeRay3d(evalPoint(common.s0), mVector);
    } else if (common.s1 < kInfinity) {
        overlap = new AcGeRay3d(evalPoint(common.s1), -mVector);
    } else {
        overlap = new AcGeLine3d(mOrigin, mVector);
    }
    return true;
}

bool AcGeLinearEnt3d::isOn(const AcGePlane& plane, const AcGeTol& tol) const
{
    AcGePoint3d a = mOrigin, b = mOrigin;
    const bool bounded = hasStartPoint(a) && hasEndPoint(b);
    return plane.isOn(a, tol) && (bounded ? plane.isOn(b, tol) : plane.isParallelTo(*this, tol));
}

bool AcGeLinearEnt3d::isParallelTo(const AcGeLinearEnt3d& line, const AcGeTol& tol) const
{
    return direction().isParallelTo(line.direction(), tol);
}

bool AcGeLinearEnt3d::isParallelTo(const AcGePlanarEnt& plane, const AcGeTol& tol) const
{
    return plane.isParallelTo(*this, tol);
}

bool AcGeLinearEnt3d::isPerpendicularTo(const AcGeLinearEnt3d& line, const AcGeTol& tol) const
{
    return direction().isPerpendicularTo(line.direction(), tol);
}

bool AcGeLinearEnt3d::isPerpendicularTo(const AcGePlanarEnt& plane, const AcGeTol& tol) const
{
    return plane.isPerpendicularTo(*this, tol);
}

bool AcGeLinearEnt3d::isColinearTo(const AcGeLinearEnt3d& line, const AcGeTol& tol) const
{
    return isParallelTo(line, tol) && AcGeLine3d(mOrigin, mVector).isOn(line.mOrigin, tol);
}

void AcGeLinearEnt3d::getPerpPlane(const AcGePoint3d& pnt, AcGePlane& plane) const
{
    plane.set(pnt, direction());
}

AcGeVector3d AcGeLinearEnt3d::direction() const
{
    const double size = mVector.length();
    return size > 0 ? mVector / size : AcGeVector3d();
}

void AcGeLinearEnt3d::getLine(AcGeLine3d& line) const
{
    line.set(mOrigin, mVector);
}

CurveForm AcGeLinearEnt3d::form() const
{
    return lineForm(lift(mOrigin), lift(mVector), mLo, mHi);
}

// The bounded parameters stay the same ones: start and end exchange their places.
void AcGeLinearEnt3d::turnRound()
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
