#include "geponc3d.h"

#include "CurveForm.h"
#include "Dimension.h"
#include "geline3d.h"

AcGePointOnCurve3d::AcGePointOnCurve3d() : AcGePointOnCurve3d(AcGeLine3d::kXAxis) {}

AcGePoint3d AcGePointOnCurve3d::point(double param)
{
    return setParameter(param).point();
}

AcGePoint3d AcGePointOnCurve3d::point(const AcGeCurve3d& crv, double param)
{
    return setCurve(crv).setParameter(param).point();
}

AcGeVector3d AcGePointOnCurve3d::deriv(int order) const
{
    if (order < 1 || order > 3) return {};
    gecore::Arrow d[4];
    gecore::derivatives(mCurve->form(), mParam, order, d);
    return gecore::toVector3d(d[order]);
}

AcGeVector3d AcGePointOnCurve3d::deriv(int order, double param)
{
    return setParameter(param).deriv(order);
}

AcGeVector3d AcGePointOnCurve3d::deriv(int order, const AcGeCurve3d& crv, double param)
{
    return setCurve(crv).setParameter(param).deriv(order);
}

bool AcGePointOnCurve3d::isSingular(const AcGeTol& tol) const
{
    return deriv(1).isZeroLength(tol);
}

bool AcGePointOnCurve3d::curvature(double& res)
{
    const auto along = gecore::lift(deriv(1)), bend = gecore::lift(deriv(2));
    const double size = along.length();
    if (!(size > 0)) return false;
    res = along.crossProduct(bend).length() / (size * size * size);
    return true;
}

bool AcGePointOnCurve3d::curvature(double param, double& res)
{
    return setParameter(param).curvature(res);
}

AcGePointOnCurve3d& AcGePointOnCurve3d::setCurve(const AcGeCurve3d& crv)
{
    mCurve = &crv;
    return *this;
}

AcGePointOnCurve3d& AcGePointOnCurve3d::setParameter(double param)
{
    mParam = param;
    return *this;
}
