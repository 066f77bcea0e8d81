#include "gelent2d.h"

#include "CurveForm.h"
#include "CurveMeet.h"
#include "Dimension.h"
#include "geline2d.h"
#include "gelnsg2d.h"
#include "geray2d.h"

#include <algorithm>

using namespace gecore;

bool AcGeLinearEnt2d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kLinearEnt2d || AcGeCurve2d::isKindOf(entType);
}

// Lines are equal when each runs through the other's points; bounded ones when their bounds are equal points.
bool AcGeLinearEnt2d::isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const AcGeLinearEnt2d&>(entity);
    AcGePoint2d a, b;
    if (hasStartPoint(a) && other.hasStartPoint(b) && !a.isEqualTo(b, tol)) return false;
    if (hasEndPoint(a) && other.hasEndPoint(b)) return a.isEqualTo(b, tol);
    return isColinearTo(other, tol) && mVector.dotProduct(other.mVector) > 0;
}

AcGeLinearEnt2d& AcGeLinearEnt2d::transformBy(const AcGeMatrix2d& xfm)
{
    mOrigin.transformBy(xfm);
    mVector.transformBy(xfm);
    return *this;
}

bool AcGeLinearEnt2d::intersectWith(const AcGeLinearEnt2d& line, AcGePoint2d& intPt, const AcGeTol& tol) const
{
    const Meetings found = meet(form(), line.form(), tol.equalPoint());
    if (found.points.size() != 1 || found.overlaps.size() != 0) return false;
    intPt = toPoint2d(found.points[0].point);
    return true;
}

bool AcGeLinearEnt2d::overlap(const AcGeLinearEnt2d& line, AcGeLinearEnt2d*& overlap,
                              const AcGeTol& tol) const
{
    const Meetings found = meet(form(), line.form(), tol.equalPoint());
    if (found.overlaps.size() != 1) return false;
    const Overlap common = found.overlaps[0];
    if (common.s1 < kInfinity && common.s0 > -kInfinity) {
        overlap = new AcGeLineSeg2d(evalPoint(common.s0), evalPoint(common.s1));
    } else if (common.s0 > -kInfinity) {
        overlap = new AcGeRay2d(evalPoint(common.s0), mVector);
    } else if (common.s1 < kInfinity) {
        overlap = new AcGeRay2d(evalPoint(common.s1), -mVector);
    } else {
        overlap = new AcGeLine2d(mOrigin, mVector);
    }
    return true;
}

bool AcGeLinearEnt2d::isParallelTo(const AcGeLinearEnt2d& line, const AcGeTol& tol) const
{
    return direction().isParallelTo(line.direction(), tol);
}

bool AcGeLinearEnt2d::isPerpendicularTo(const AcGeLinearEnt2d& line, const AcGeTol& tol) const
{
    return direction().isPerpendicularTo(line.direction(), tol);
}

bool AcGeLinearEnt2d::isColinearTo(const AcGeLinearEnt2d& line, const AcGeTol& tol) const
{
    return isParallelTo(line, tol) && AcGeLine2d(mOrigin, mVector).isOn(line.mOrigin, tol);
}

void AcGeLinearEnt2d::getPerpLine(const AcGePoint2d& pnt, AcGeLine2d& perpLine) const
{
    perpLine.set(pnt, direction().perpVector());
}

AcGeVector2d AcGeLinearEnt2d::direction() const
{
    const double size = mVector.length();
    return size > 0 ? mVector / size : AcGeVector2d();
}

void AcGeLinearEnt2d::getLine(AcGeLine2d& line) const
{
    line.set(mOrigin, mVector);
}

CurveForm AcGeLinearEnt2d::form() const
{
    return lineForm(lift(mOrigin), lift(mVector), mLo, mHi);
}

// The bounded parameters stay the same ones: start and end exchange their places.
void AcGeLinearEnt2d::turnRound()
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
