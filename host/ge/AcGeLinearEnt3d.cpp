#include "gelent3d.h"

#include "DimensionNames.h"
#include "geline3d.h"
#include "gelnsg3d.h"
#include "geplane.h"
#include "geray3d.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(3d)
} // namespace

#include "AcGeLinearEnt.inl"

bool AcGeLinearEnt3d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kLinearEnt3d || AcGeCurve3d::isKindOf(entType);
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

bool AcGeLinearEnt3d::isOn(const AcGePlane& plane, const AcGeTol& tol) const
{
    AcGePoint3d a = mOrigin, b = mOrigin;
    const bool bounded = hasStartPoint(a) && hasEndPoint(b);
    return plane.isOn(a, tol) && (bounded ? plane.isOn(b, tol) : plane.isParallelTo(*this, tol));
}

bool AcGeLinearEnt3d::isParallelTo(const AcGePlanarEnt& plane, const AcGeTol& tol) const
{
    return plane.isParallelTo(*this, tol);
}

bool AcGeLinearEnt3d::isPerpendicularTo(const AcGePlanarEnt& plane, const AcGeTol& tol) const
{
    return plane.isPerpendicularTo(*this, tol);
}

void AcGeLinearEnt3d::getPerpPlane(const AcGePoint3d& pnt, AcGePlane& plane) const
{
    plane.set(pnt, direction());
}
