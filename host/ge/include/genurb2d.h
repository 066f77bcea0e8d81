#pragma once

#include "gesent2d.h"

class AcGeEllipArc2d;
class AcGeLineSeg2d;
class AcGePolyline2d;

/// A non-uniform rational B-spline, made of control points or fitted through points. Input that makes no
/// spline (too few points or knots, knots that fall, weights that are not positive, a degree outside of 1 to
/// 25) yields one without control points, which is the origin everywhere.
class AcGeNurbCurve2d : public AcGeSplineEnt2d
{
public:
    AcGeNurbCurve2d() = default;
    /// knots.length() == points + degree + 1; for a periodic one also points + 1: the knots of one period.
    AcGeNurbCurve2d(int degree, const AcGeKnotVector& knots, const AcGePoint2dArray& cntrlPnts,
                    bool isPeriodic = false);
    AcGeNurbCurve2d(int degree, const AcGeKnotVector& knots, const AcGePoint2dArray& cntrlPnts,
                    const AcGeDoubleArray& weights, bool isPeriodic = false);
    /// A cubic through the points with these directions at the ends. Points closer to their predecessor than
    /// fitTolerance.equalPoint() are left out; the curve goes exactly through the others. Ends without a
    /// direction have no curvature.
    AcGeNurbCurve2d(const AcGePoint2dArray& fitPnts, const AcGeVector2d& startTangent,
                    const AcGeVector2d& endTangent, bool startTangentDefined = true,
                    bool endTangentDefined = true, const AcGeTol& fitTolerance = AcGeContext::gTol,
                    AcGe::KnotParameterization knotParam = AcGe::kChord);
    /// The same without directions. When the last point equals the first the curve is smooth there as well.
    AcGeNurbCurve2d(const AcGePoint2dArray& fitPnts, const AcGeTol& fitTolerance = AcGeContext::gTol,
                    AcGe::KnotParameterization knotParam = AcGe::kChord);
    /// With a direction at each point. A periodic curve returns to the first point, smoothly.
    AcGeNurbCurve2d(const AcGePoint2dArray& fitPnts, const AcGeVector2dArray& fitTangents,
                    const AcGeTol& fitTolerance = AcGeContext::gTol, bool isPeriodic = false);
    /// The same curve exactly: a quadratic rational one, or a straight one.
    AcGeNurbCurve2d(const AcGeEllipArc2d& ellipse);
    AcGeNurbCurve2d(const AcGeLineSeg2d& linSeg);

    AcGe::EntityId type() const override { return AcGe::kNurbCurve2d; }
    AcGeNurbCurve2d* copy() const override { return new AcGeNurbCurve2d(*this); }
    AcGeNurbCurve2d& transformBy(const AcGeMatrix2d& xfm) override;

    int numFitPoints() const;
    bool hasFitData() const { return mFit != nullptr; }
    bool getFitPointAt(int index, AcGePoint2d& point) const;
    bool getFitTolerance(AcGeTol& fitTolerance) const;
    bool getFitTangents(AcGeVector2d& startTangent, AcGeVector2d& endTangent) const;
    bool getFitKnotParameterization(AcGe::KnotParameterization& knotParam) const;
    /// False, and nothing changed, for a curve that was not fitted or no longer is.
    bool getFitData(AcGePoint2dArray& fitPoints, AcGeTol& fitTolerance, bool& tangentsExist,
                    AcGeVector2d& startTangent, AcGeVector2d& endTangent) const;
    bool setFitData(const AcGePoint2dArray& fitPoints, const AcGeVector2d& startTangent,
                    const AcGeVector2d& endTangent, const AcGeTol& fitTol = AcGeContext::gTol);
    /// Forgets the fit points; the curve stays.
    bool purgeFitData();
    void getDefinitionData(int& degree, bool& rational, bool& periodic, AcGeKnotVector& knots,
                           AcGePoint2dArray& controlPoints, AcGeDoubleArray& weights) const;

    int numWeights() const;
    double weightAt(int idx) const;
    bool setWeightAt(int idx, double val);
    /// Gives every control point this weight, when there are none yet.
    AcGeNurbCurve2d& makeRational(double weight = 1.0);
    /// The same curve with one more knot; at most `degree` of them can be equal.
    AcGeNurbCurve2d& insertKnot(double newKnot);
    AcGeNurbCurve2d& addKnot(double newKnot) { return insertKnot(newKnot); }
    /// The same curve with a higher degree.
    AcGeNurbCurve2d& elevateDegree(int plusDegree);
    bool hardTrimByParams(double newStartParam, double newEndParam);
    /// Goes on with another curve that starts where this ends; k0This for an empty curve, kArg1TooBig for a
    /// gap.
    AcGeNurbCurve2d& joinWith(const AcGeNurbCurve2d& curve, AcGeError& error);
    /// Inner knots where the first derivative jumps, or its direction alone.
    bool getParamsOfC1Discontinuity(AcGeDoubleArray& params, const AcGeTol& tol = AcGeContext::gTol) const;
    bool getParamsOfG1Discontinuity(AcGeDoubleArray& params, const AcGeTol& tol = AcGeContext::gTol) const;

    gecore::CurveForm form() const override;

protected:
    void setSpline(gecore::Spline spline) override;
    void turnRound() override;

private:
    struct Fit;
    void fit(const AcGePoint2dArray& points, const AcGeVector2d* start, const AcGeVector2d* end,
             const AcGeTol& tol, AcGe::KnotParameterization knotParam, bool closed);

    std::shared_ptr<const Fit> mFit;
};
