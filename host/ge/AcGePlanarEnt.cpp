#include "geplanar.h"

#include "gelent3d.h"

bool AcGePlanarEnt::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kPlanarEnt || AcGeSurface::isKindOf(entType);
}

bool AcGePlanarEnt::isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const AcGePlanarEnt&>(entity);
    return mOrigin.isEqualTo(other.mOrigin, tol) && mU.isEqualTo(other.mU, tol) &&
           mV.isEqualTo(other.mV, tol);
}

AcGePlanarEnt& AcGePlanarEnt::transformBy(const AcGeMatrix3d& xfm)
{
    mOrigin.transformBy(xfm);
    mU.transformBy(xfm);
    mV.transformBy(xfm);
    return *this;
}

// Solves the normal equations of origin + s u + t v = pnt, so skewed axes are allowed.
AcGePoint2d AcGePlanarEnt::paramOf(const AcGePoint3d& pnt, const AcGeTol&) const
{
    const AcGeVector3d to = pnt - mOrigin;
    const double uu = mU.lengthSqrd(), uv = mU.dotProduct(mV), vv = mV.lengthSqrd();
    const double pu = to.dotProduct(mU), pv = to.dotProduct(mV), det = uu * vv - uv * uv;
    if (!(det > 0)) return {};
    return {(pu * vv - pv * uv) / det, (pv * uu - pu * uv) / det};
}

AcGePoint3d AcGePlanarEnt::evalPoint(const AcGePoint2d& param) const
{
    return mOrigin + mU * param.x + mV * param.y;
}

bool AcGePlanarEnt::intersectWith(const AcGeLinearEnt3d& linEnt, AcGePoint3d& pnt, const AcGeTol& tol) const
{
    const AcGeVector3d n = normal(), along = linEnt.direction();
    if (n.isZeroLength() || along.isPerpendicularTo(n, tol)) return false;
    const AcGePoint3d from = linEnt.pointOnLine();
    const AcGePoint3d found = from + along * ((mOrigin - from).dotProduct(n) / along.dotProduct(n));
    if (!linEnt.isOn(found, tol) || !isOn(found, tol)) return false;
    pnt = found;
    return true;
}

AcGePoint3d AcGePlanarEnt::closestPointToLinearEnt(const AcGeLinearEnt3d& line, AcGePoint3d& pointOnLine,
                                                   const AcGeTol& tol) const
{
    if (intersectWith(line, pointOnLine, tol)) return pointOnLine;
    pointOnLine = line.closestPointTo(closestPointTo(line.pointOnLine(), tol), tol);
    AcGePoint3d foot = closestPointTo(pointOnLine, tol);
    AcGePoint3d end;
    for (const bool found : {line.hasStartPoint(end), line.hasEndPoint(end)})
        if (found && distanceTo(end, tol) < foot.distanceTo(pointOnLine)) {
            pointOnLine = end;
            foot = closestPointTo(end, tol);
        }
    return foot;
}

bool AcGePlanarEnt::isParallelTo(const AcGeLinearEnt3d& linEnt, const AcGeTol& tol) const
{
    return linEnt.direction().isPerpendicularTo(normal(), tol);
}

bool AcGePlanarEnt::isParallelTo(const AcGePlanarEnt& otherPlnEnt, const AcGeTol& tol) const
{
    return normal().isParallelTo(otherPlnEnt.normal(), tol);
}

bool AcGePlanarEnt::isPerpendicularTo(const AcGeLinearEnt3d& linEnt, const AcGeTol& tol) const
{
    return linEnt.direction().isParallelTo(normal(), tol);
}

bool AcGePlanarEnt::isPerpendicularTo(const AcGePlanarEnt& otherPlnEnt, const AcGeTol& tol) const
{
    return normal().isPerpendicularTo(otherPlnEnt.normal(), tol);
}

bool AcGePlanarEnt::isCoplanarTo(const AcGePlanarEnt& otherPlnEnt, const AcGeTol& tol) const
{
    const double gap = (otherPlnEnt.mOrigin - mOrigin).dotProduct(normal());
    return isParallelTo(otherPlnEnt, tol) && std::fabs(gap) <= tol.equalPoint();
}

void AcGePlanarEnt::get(AcGePoint3d& origin, AcGeVector3d& uVec, AcGeVector3d& vVec) const
{
    getCoordSystem(origin, uVec, vVec);
}

void AcGePlanarEnt::get(AcGePoint3d& uPnt, AcGePoint3d& origin, AcGePoint3d& vPnt) const
{
    uPnt = mOrigin + mU;
    origin = mOrigin;
    vPnt = mOrigin + mV;
}

AcGeVector3d AcGePlanarEnt::normal() const
{
    const AcGeVector3d cross = mU.crossProduct(mV);
    const double size = cross.length();
    return size > 0 ? cross / size : AcGeVector3d();
}

void AcGePlanarEnt::getCoefficients(double& a, double& b, double& c, double& d) const
{
    const AcGeVector3d n = normal();
    a = n.x;
    b = n.y;
    c = n.z;
    d = -n.dotProduct(mOrigin.asVector());
}

void AcGePlanarEnt::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& axis1, AcGeVector3d& axis2) const
{
    origin = mOrigin;
    axis1 = mU;
    axis2 = mV;
}
