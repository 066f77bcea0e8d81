#include "geponc2d.h"

#include "CurveForm.h"
#include "Dimension.h"
#include "geline2d.h"

AcGePointOnCurve2d::AcGePointOnCurve2d() : AcGePointOnCurve2d(AcGeLine2d::kXAxis) {}

AcGePoint2d AcGePointOnCurve2d::point(double param)
{
    return setParameter(param).point();
}

AcGePoint2d AcGePointOnCurve2d::point(const AcGeCurve2d& crv, double param)
{
    return setCurve(crv).setParameter(param).point();
}

AcGeVector2d AcGePointOnCurve2d::deriv(int order) const
{
    if (order < 1 || order > 3) return {};
    gecore::Arrow d[4];
    gecore::derivatives(mCurve->form(), mParam, order, d);
    return gecore::toVector2d(d[order]);
}

AcGeVector2d AcGePointOnCurve2d::deriv(int order, double param)
{
    return setParameter(param).deriv(order);
}

AcGeVector2d AcGePointOnCurve2d::deriv(int order, const AcGeCurve2d& crv, double param)
{
    return setCurve(crv).setParameter(param).deriv(order);
}

bool AcGePointOnCurve2d::isSingular(const AcGeTol& tol) const
{
    return deriv(1).isZeroLength(tol);
}

bool AcGePointOnCurve2d::curvature(double& res)
{
    const auto along = gecore::lift(deriv(1)), bend = gecore::lift(deriv(2));
    const double size = along.length();
    if (!(size > 0)) return false;
    res = along.crossProduct(bend).length() / (size * size * size);
    return true;
}

bool AcGePointOnCurve2d::curvature(double param, double& res)
{
    return setParameter(param).curvature(res);
}

AcGePointOnCurve2d& AcGePointOnCurve2d::setCurve(const AcGeCurve2d& crv)
{
    mCurve = &crv;
    return *this;
}

AcGePointOnCurve2d& AcGePointOnCurve2d::setParameter(double param)
{
    mParam = param;
    return *this;
}
