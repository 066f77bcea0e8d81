#pragma once

#include "gesent2d.h"

namespace gecore
{
struct ChainLink;
}

/// A piecewise linear curve: the parameter i is the point i unless knots were given.
class AcGePolyline2d : public AcGeSplineEnt2d
{
public:
    AcGePolyline2d();
    AcGePolyline2d(const AcGePoint2dArray& points);
    /// One rising knot for each point.
    AcGePolyline2d(const AcGeKnotVector& knots, const AcGePoint2dArray& points);
    /// Points of another curve whose chords stay within apprEps of it.
    AcGePolyline2d(const AcGeCurve2d& crv, double apprEps);
    AcGePolyline2d(const AcGePolyline2d& other);
    AcGePolyline2d& operator=(const AcGePolyline2d& other);
    ~AcGePolyline2d() override;

    AcGe::EntityId type() const override { return AcGe::kPolyline2d; }
    AcGePolyline2d* copy() const override { return new AcGePolyline2d(*this); }

    int numFitPoints() const { return numControlPoints(); }
    AcGePoint2d fitPointAt(int idx) const { return controlPointAt(idx); }
    AcGeSplineEnt2d& setFitPointAt(int idx, const AcGePoint2d& point)
    {
        return setControlPointAt(idx, point);
    }

    gecore::CurveForm form() const override;

protected:
    void setSpline(gecore::Spline spline) override;

private:
    void setPoints(const AcGePoint2dArray& points, const double* knots);

    std::shared_ptr<const std::vector<gecore::ChainLink>> mLinks;
};
