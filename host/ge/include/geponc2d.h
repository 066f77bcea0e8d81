#pragma once

#include "gecurv2d.h"
#include "gepent2d.h"

/// A curve and a parameter on it. The curve is not owned; it must outlive this.
class AcGePointOnCurve2d : public AcGePointEnt2d
{
public:
    /// On the world's X axis.
    AcGePointOnCurve2d();
    AcGePointOnCurve2d(const AcGeCurve2d& crv) : AcGePointOnCurve2d(crv, 0) {}
    AcGePointOnCurve2d(const AcGeCurve2d& crv, double param) : mCurve(&crv), mParam(param) {}

    AcGe::EntityId type() const override { return AcGe::kPointOnCurve2d; }
    AcGePointOnCurve2d* copy() const override { return new AcGePointOnCurve2d(*this); }
    /// A point on a curve moves with its curve only: nothing happens.
    AcGePointOnCurve2d& transformBy(const AcGeMatrix2d&) override { return *this; }

    const AcGeCurve2d* curve() const { return mCurve; }
    double parameter() const { return mParam; }
    AcGePoint2d point2d() const override { return mCurve->evalPoint(mParam); }
    AcGePoint2d point() const { return point2d(); }
    AcGePoint2d point(double param);
    AcGePoint2d point(const AcGeCurve2d& crv, double param);
    /// The derivative of order 1 to 3; another order yields zero.
    AcGeVector2d deriv(int order) const;
    AcGeVector2d deriv(int order, double param);
    AcGeVector2d deriv(int order, const AcGeCurve2d& crv, double param);
    /// The first derivative vanishes.
    bool isSingular(const AcGeTol& tol = AcGeContext::gTol) const;
    /// 1 / radius of the osculating circle, never negative; false where the first derivative vanishes.
    bool curvature(double& res);
    bool curvature(double param, double& res);
    AcGePointOnCurve2d& setCurve(const AcGeCurve2d& crv);
    AcGePointOnCurve2d& setParameter(double param);

private:
    const AcGeCurve2d* mCurve;
    double mParam;
};
