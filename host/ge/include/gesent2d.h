#pragma once

#include "gecurv2d.h"
#include "gekvec.h"

#include <memory>
#include <vector>

namespace gecore
{
struct Spline;
}

/// What splines and polylines have in common: control points and knots. Copies share their data until one of
/// them changes. Indices out of range yield the origin or 0, and change nothing.
class AcGeSplineEnt2d : public AcGeCurve2d
{
public:
    bool isKindOf(AcGe::EntityId entType) const override;
    bool isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    AcGeSplineEnt2d& transformBy(const AcGeMatrix2d& xfm) override;

    bool isRational() const;
    int degree() const;
    int order() const { return degree() + 1; }
    int numKnots() const;
    const AcGeKnotVector knots() const;
    int numControlPoints() const;
    /// The number of derivatives that are continuous at a knot; 0 at least.
    int continuityAtKnot(int idx, const AcGeTol& tol = AcGeContext::gTol) const;
    double startParam() const;
    double endParam() const;
    AcGePoint2d startPoint() const;
    AcGePoint2d endPoint() const;
    double knotAt(int idx) const;
    /// A knot that would be out of order changes nothing.
    AcGeSplineEnt2d& setKnotAt(int idx, double val);
    AcGePoint2d controlPointAt(int idx) const;
    AcGeSplineEnt2d& setControlPointAt(int idx, const AcGePoint2d& pnt);

protected:
    AcGeSplineEnt2d();
    const gecore::Spline& spline() const { return *mSpline; }
    /// Takes new data; an invalid spline counts as an empty one.
    virtual void setSpline(gecore::Spline spline);
    void turnRound() override;
    bool setBounds(double lo, double hi) override;

private:
    std::shared_ptr<const gecore::Spline> mSpline;
};
