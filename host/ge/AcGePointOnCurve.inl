/// The members of AcGePointOnCurve2d and AcGePointOnCurve3d that are the same in the plane and in space.

#include "CurveForm.h"

Point PointOnCurve::point(double param)
{
    return setParameter(param).point();
}

Point PointOnCurve::point(const Curve& crv, double param)
{
    return setCurve(crv).setParameter(param).point();
}

Vector PointOnCurve::deriv(int order) const
{
    if (order < 1 || order > 3) return {};
    gecore::Arrow d[4];
    gecore::derivatives(mCurve->form(), mParam, order, d);
    return toVector(d[order]);
}

Vector PointOnCurve::deriv(int order, double param)
{
    return setParameter(param).deriv(order);
}

Vector PointOnCurve::deriv(int order, const Curve& crv, double param)
{
    return setCurve(crv).setParameter(param).deriv(order);
}

bool PointOnCurve::isSingular(const AcGeTol& tol) const
{
    return deriv(1).isZeroLength(tol);
}

bool PointOnCurve::curvature(double& res)
{
    const auto along = gecore::lift(deriv(1)), bend = gecore::lift(deriv(2));
    const double size = along.length();
    if (!(size > 0)) return false;
    res = along.crossProduct(bend).length() / (size * size * size);
    return true;
}

bool PointOnCurve::curvature(double param, double& res)
{
    return setParameter(param).curvature(res);
}

PointOnCurve& PointOnCurve::setCurve(const Curve& crv)
{
    mCurve = &crv;
    return *this;
}

PointOnCurve& PointOnCurve::setParameter(double param)
{
    mParam = param;
    return *this;
}
