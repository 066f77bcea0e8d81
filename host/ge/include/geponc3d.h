#pragma once

#include "gecurv3d.h"
#include "gepent3d.h"

/// A curve and a parameter on it. The curve is not owned; it must outlive this.
class AcGePointOnCurve3d : public AcGePointEnt3d
{
public:
    /// On the world's X axis.
    AcGePointOnCurve3d();
    AcGePointOnCurve3d(const AcGeCurve3d& crv) : AcGePointOnCurve3d(crv, 0) {}
    AcGePointOnCurve3d(const AcGeCurve3d& crv, double param) : mCurve(&crv), mParam(param) {}

    AcGe::EntityId type() const override { return AcGe::kPointOnCurve3d; }
    AcGePointOnCurve3d* copy() const override { return new AcGePointOnCurve3d(*this); }
    /// A point on a curve moves with its curve only: nothing happens.
    AcGePointOnCurve3d& transformBy(const AcGeMatrix3d&) override { return *this; }

    const AcGeCurve3d* curve() const { return mCurve; }
    double parameter() const { return mParam; }
    AcGePoint3d point3d() const override { return mCurve->evalPoint(mParam); }
    AcGePoint3d point() const { return point3d(); }
    AcGePoint3d point(double param);
    AcGePoint3d point(const AcGeCurve3d& crv, double param);
    /// The derivative of order 1 to 3; another order yields zero.
    AcGeVector3d deriv(int order) const;
    AcGeVector3d deriv(int order, double param);
    AcGeVector3d deriv(int order, const AcGeCurve3d& crv, double param);
    /// The first derivative vanishes.
    bool isSingular(const AcGeTol& tol = AcGeContext::gTol) const;
    /// 1 / radius of the osculating circle; false where the first derivative vanishes.
    bool curvature(double& res);
    bool curvature(double param, double& res);
    AcGePointOnCurve3d& setCurve(const AcGeCurve3d& crv);
    AcGePointOnCurve3d& setParameter(double param);

private:
    const AcGeCurve3d* mCurve;
    double mParam;
};
