#pragma once

#include "gesent3d.h"

class AcGeEllipArc3d;
class AcGeLineSeg3d;
class AcGePolyline3d;

/// A non-uniform rational B-spline, made of control points or fitted through points. Input that makes no
/// spline (too few points or knots, knots that fall, weights that are not positive, a degree outside of 1 to
/// 25) yields one without control points, which is the origin everywhere.
class AcGeNurbCurve3d : public AcGeSplineEnt3d
{
public:
    AcGeNurbCurve3d() = default;
    /// knots.length() == points + degree + 1; for a periodic one also points + 1: the knots of one period.
    AcGeNurbCurve3d(int degree, const AcGeKnotVector& knots, const AcGePoint3dArray& cntrlPnts,
                    bool isPeriodic = false);
    AcGeNurbCurve3d(int degree, const AcGeKnotVector& knots, const AcGePoint3dArray& cntrlPnts,
                    const AcGeDoubleArray& weights, bool isPeriodic = false);
    /// A cubic through the points with these directions at the ends. Points closer to their predecessor than
    /// fitTolerance.equalPoint() are left out; the curve goes exactly through the others. Ends without a
    /// direction have no curvature.
    AcGeNurbCurve3d(const AcGePoint3dArray& fitPnts, const AcGeVector3d& startTangent,
                    const AcGeVector3d& endTangent, bool startTangentDefined = true,
                    bool endTangentDefined = true, const AcGeTol& fitTolerance = AcGeContext::gTol,
                    AcGe::KnotParameterization knotParam = AcGe::kChord);
    /// The same without directions. When the last point equals the first the curve is smooth there as well.
    AcGeNurbCurve3d(const AcGePoint3dArray& fitPnts, const AcGeTol& fitTolerance = AcGeContext::gTol,
                    AcGe::KnotParameterization knotParam = AcGe::kChord);
    /// With a direction at each point. A periodic curve returns to the first point, smoothly.
    AcGeNurbCurve3d(const AcGePoint3dArray& fitPnts, const AcGeVector3dArray& fitTangents,
                    const AcGeTol& fitTolerance = AcGeContext::gTol, bool isPeriodic = false);
    /// The same curve exactly: a quadratic rational one, or a straight one.
    AcGeNurbCurve3d(const AcGeEllipArc3d& ellipse);
    AcGeNurbCurve3d(const AcGeLineSeg3d& linSeg);

    AcGe::EntityId type() const override { return AcGe::kNurbCurve3d; }
    AcGeNurbCurve3d* copy() const override { return new AcGeNurbCurve3d(*this); }
    AcGeNurbCurve3d& transformBy(const AcGeMatrix3d& xfm) override;

    int numFitPoints() const;
    bool hasFitData() const { return mFit != nullptr; }
    bool getFitPointAt(int index, AcGePoint3d& point) const;
    bool getFitTolerance(AcGeTol& fitTolerance) const;
    bool getFitTangents(AcGeVector3d& startTangent, AcGeVector3d& endTangent) const;
    bool getFitKnotParameterization(AcGe::KnotParameterization& knotParam) const;
    /// False, and nothing changed, for a curve that was not fitted or no longer is.
    bool getFitData(AcGePoint3dArray& fitPoints, AcGeTol& fitTolerance, bool& tangentsExist,
                    AcGeVector3d& startTangent, AcGeVector3d& endTangent) const;
    bool setFitData(const AcGePoint3dArray& fitPoints, const AcGeVector3d& startTangent,
                    const AcGeVector3d& endTangent, const AcGeTol& fitTol = AcGeContext::gTol);
    /// Forgets the fit points; the curve stays.
    bool purgeFitData();
    void getDefinitionData(int& degree, bool& rational, bool& periodic, AcGeKnotVector& knots,
                           AcGePoint3dArray& controlPoints, AcGeDoubleArray& weights) const;

    int numWeights() const;
    double weightAt(int idx) const;
    bool setWeightAt(int idx, double val);
    /// Gives every control point this weight, when there are none yet.
    AcGeNurbCurve3d& makeRational(double weight = 1.0);
    /// The same curve with one more knot; at most `degree` of them can be equal.
    AcGeNurbCurve3d& insertKnot(double newKnot);
    AcGeNurbCurve3d& addKnot(double newKnot) { return insertKnot(newKnot); }
    /// The same curve with a higher degree.
    AcGeNurbCurve3d& elevateDegree(int plusDegree);
    bool hardTrimByParams(double newStartParam, double newEndParam);
    /// Goes on with another curve that starts where this ends; k0This for an empty curve, kArg1TooBig for a
    /// gap.
    AcGeNurbCurve3d& joinWith(const AcGeNurbCurve3d& curve, AcGeError& error);
    /// Inner knots where the first derivative jumps, or its direction alone.
    bool getParamsOfC1Discontinuity(AcGeDoubleArray& params, const AcGeTol& tol = AcGeContext::gTol) const;
    bool getParamsOfG1Discontinuity(AcGeDoubleArray& params, const AcGeTol& tol = AcGeContext::gTol) const;

    gecore::CurveForm form() const override;

protected:
    void setSpline(gecore::Spline spline) override;
    void turnRound() override;

private:
    struct Fit;
    void fit(const AcGePoint3dArray& points, const AcGeVector3d* start, const AcGeVector3d* end,
             const AcGeTol& tol, AcGe::KnotParameterization knotParam, bool closed);

    std::shared_ptr<const Fit> mFit;
};
