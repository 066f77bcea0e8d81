#pragma once

#include "gecurv3d.h"
#include "gekvec.h"

#include <memory>
#include <vector>

namespace gecore
{
struct Spline;
}

/// What splines and polylines have in common: control points and knots. Copies share their data until one of
/// them changes. Indices out of range yield the origin or 0, and change nothing.
class AcGeSplineEnt3d : public AcGeCurve3d
{
public:
    bool isKindOf(AcGe::EntityId entType) const override;
    bool isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    AcGeSplineEnt3d& transformBy(const AcGeMatrix3d& xfm) override;

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
    AcGePoint3d startPoint() const;
    AcGePoint3d endPoint() const;
    double knotAt(int idx) const;
    /// A knot that would be out of order changes nothing.
    AcGeSplineEnt3d& setKnotAt(int idx, double val);
    AcGePoint3d controlPointAt(int idx) const;
    AcGeSplineEnt3d& setControlPointAt(int idx, const AcGePoint3d& pnt);

protected:
    AcGeSplineEnt3d();
    const gecore::Spline& spline() const { return *mSpline; }
    /// Takes new data; an invalid spline counts as an empty one.
    virtual void setSpline(gecore::Spline spline);
    void turnRound() override;
    bool setBounds(double lo, double hi) override;

private:
    std::shared_ptr<const gecore::Spline> mSpline;
};
