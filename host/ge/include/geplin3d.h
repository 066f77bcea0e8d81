#pragma once

#include "gesent3d.h"

namespace gecore
{
struct ChainLink;
}

/// A piecewise linear curve: the parameter i is the point i unless knots were given.
class AcGePolyline3d : public AcGeSplineEnt3d
{
public:
    AcGePolyline3d();
    AcGePolyline3d(const AcGePoint3dArray& points);
    /// One rising knot for each point.
    AcGePolyline3d(const AcGeKnotVector& knots, const AcGePoint3dArray& points);
    /// Points of another curve whose chords stay within apprEps of it.
    AcGePolyline3d(const AcGeCurve3d& crv, double apprEps);
    AcGePolyline3d(const AcGePolyline3d& other);
    AcGePolyline3d& operator=(const AcGePolyline3d& other);
    ~AcGePolyline3d() override;

    AcGe::EntityId type() const override { return AcGe::kPolyline3d; }
    AcGePolyline3d* copy() const override { return new AcGePolyline3d(*this); }

    int numFitPoints() const { return numControlPoints(); }
    AcGePoint3d fitPointAt(int idx) const { return controlPointAt(idx); }
    AcGeSplineEnt3d& setFitPointAt(int idx, const AcGePoint3d& point)
    {
        return setControlPointAt(idx, point);
    }

    gecore::CurveForm form() const override;

protected:
    void setSpline(gecore::Spline spline) override;

private:
    void setPoints(const AcGePoint3dArray& points, const double* knots);

    std::shared_ptr<const std::vector<gecore::ChainLink>> mLinks;
};
