#pragma once

/// Curves of every class of the plane with random shapes, from a printed seed.

#include "gearc2d.h"
#include "gearc3d.h"
#include "geblok2d.h"
#include "geblok3d.h"
#include "gecint2d.h"
#include "gecint3d.h"
#include "gecomp2d.h"
#include "gecomp3d.h"
#include "geell2d.h"
#include "geell3d.h"
#include "geline2d.h"
#include "geline3d.h"
#include "gelnsg2d.h"
#include "gelnsg3d.h"
#include "genurb2d.h"
#include "genurb3d.h"
#include "geplane.h"
#include "geplin2d.h"
#include "geplin3d.h"
#include "geponc2d.h"
#include "geponc3d.h"
#include "geray2d.h"
#include "geray3d.h"

#include <memory>
#include <random>
#include <string>

constexpr double kPi = 3.14159265358979323846;

using Curve2d = std::unique_ptr<AcGeCurve2d>;
using Curve3d = std::unique_ptr<AcGeCurve3d>;

class RandomCurves
{
public:
    explicit RandomCurves(unsigned seed) : mEngine(seed) {}

    static constexpr int kKinds = 9;
    static const char* nameOf(int kind)
    {
        static const char* const names[kKinds] = {"line",    "ray",    "segment",  "circle",   "arc",
                                                  "ellipse", "spline", "polyline", "composite"};
        return names[kind];
    }

    double real(double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(mEngine); }
    AcGePoint2d point() { return {real(-10, 10), real(-10, 10)}; }
    AcGeVector2d vector() { return AcGeVector2d(real(0.5, 4), 0).rotateBy(real(0, 2 * kPi)); }
    AcGePoint2dArray points(int n)
    {
        AcGePoint2dArray list;
        while (list.length() < n)
            list.append(point());
        return list;
    }

    /// A clamped spline of degree 2 to 4, rational every other time.
    AcGeNurbCurve2d spline()
    {
        const int degree = 2 + static_cast<int>(real(0, 2.99)),
                  n = degree + 1 + static_cast<int>(real(0, 4.99));
        AcGeKnotVector knots;
        for (int i = 0; i < n + degree + 1; ++i)
            knots.append(std::min(std::max(i - degree, 0), n - degree));
        AcGeDoubleArray weights;
        for (int i = 0; i < n; ++i)
            weights.append(real(0.3, 3));
        if (real(0, 1) < 0.5) weights.removeAll();
        return {degree, knots, points(n), weights};
    }

    Curve2d make(int kind)
    {
        switch (kind) {
        case 0:
            return std::make_unique<AcGeLine2d>(point(), vector());
        case 1:
            return std::make_unique<AcGeRay2d>(point(), vector());
        case 2:
            return std::make_unique<AcGeLineSeg2d>(point(), point());
        case 3:
            return std::make_unique<AcGeCircArc2d>(point(), real(1, 8));
        case 4:
            return std::make_unique<AcGeCircArc2d>(point(), point(), real(0.2, 3), real(0, 1) < 0.5);
        case 5: {
            const AcGeVector2d axis = vector();
            const double from = real(0, 6), to = from + real(0.5, 2 * kPi);
            return std::make_unique<AcGeEllipArc2d>(point(), axis, axis.perpVector(), real(1, 9),
                                                    real(0.5, 4), from, to);
        }
        case 6:
            return std::make_unique<AcGeNurbCurve2d>(spline());
        case 7:
            return std::make_unique<AcGePolyline2d>(points(6));
        default:
            return composite();
        }
    }

private:
    Curve2d composite()
    {
        AcGeVoidPointerArray parts;
        const AcGePoint2d a = point(), b = point(), c = point(), d = point();
        AcGeLineSeg2d first(a, b);
        AcGeCircArc2d second(b, c, real(-2, -0.2), false);
        AcGeNurbCurve2d third(AcGePoint2dArray{c, point(), d});
        for (AcGeCurve2d* part : {static_cast<AcGeCurve2d*>(&first), static_cast<AcGeCurve2d*>(&second),
                                  static_cast<AcGeCurve2d*>(&third)})
            parts.append(part);
        return std::make_unique<AcGeCompositeCurve2d>(parts);
    }

    std::mt19937 mEngine;
};

/// The part of a curve of the plane that a test can walk along: lines are cut.
inline void walkOf(const AcGeCurve2d& curve, int n, AcGePoint2dArray& points, AcGeDoubleArray& params)
{
    AcGeInterval interval;
    curve.getInterval(interval);
    const double lo = interval.isBoundedBelow() ? interval.lowerBound() : -50;
    const double hi = interval.isBoundedAbove() ? interval.upperBound() : 50;
    for (int i = 0; i < n; ++i) {
        params.append(i == n - 1 ? hi : lo + (hi - lo) * i / (n - 1));
        points.append(curve.evalPoint(params.last()));
    }
}

inline AcGePoint3d liftOf(const AcGePoint2d& p)
{
    return {p.x, p.y, 0};
}

inline AcGeVector3d liftOf(const AcGeVector2d& v)
{
    return {v.x, v.y, 0};
}

inline AcGePoint3dArray liftedControlPoints(const AcGeSplineEnt2d& curve)
{
    AcGePoint3dArray points;
    for (int i = 0; i < curve.numControlPoints(); ++i)
        points.append(liftOf(curve.controlPointAt(i)));
    return points;
}

inline Curve3d liftOf(const AcGeNurbCurve2d& curve)
{
    AcGeDoubleArray weights;
    for (int i = 0; i < curve.numWeights(); ++i)
        weights.append(curve.weightAt(i));
    return std::make_unique<AcGeNurbCurve3d>(curve.degree(), curve.knots(), liftedControlPoints(curve),
                                             weights);
}

inline Curve3d liftOf(const AcGeCurve2d& curve, const AcGeMatrix3d& place);

inline Curve3d liftOf(const AcGeCompositeCurve2d& curve)
{
    AcGeVoidPointerArray flat, parts;
    AcGeIntArray owned;
    curve.getCurveList(flat);
    for (void* part : flat) {
        parts.append(liftOf(*static_cast<AcGeCurve2d*>(part), AcGeMatrix3d()).release());
        owned.append(1);
    }
    return std::make_unique<AcGeCompositeCurve3d>(parts, owned);
}

/// The curve of the plane put into space by a map that keeps lengths.
inline Curve3d liftOf(const AcGeCurve2d& curve, const AcGeMatrix3d& place)
{
    Curve3d result;
    switch (curve.type()) {
    case AcGe::kLine2d: {
        const auto& c = static_cast<const AcGeLine2d&>(curve);
        result = std::make_unique<AcGeLine3d>(liftOf(c.pointOnLine()), liftOf(c.evalPoint(1)));
        break;
    }
    case AcGe::kRay2d: {
        const auto& c = static_cast<const AcGeRay2d&>(curve);
        result = std::make_unique<AcGeRay3d>(liftOf(c.pointOnLine()), liftOf(c.evalPoint(1)));
        break;
    }
    case AcGe::kLineSeg2d: {
        const auto& c = static_cast<const AcGeLineSeg2d&>(curve);
        result = std::make_unique<AcGeLineSeg3d>(liftOf(c.startPoint()), liftOf(c.endPoint()));
        break;
    }
    case AcGe::kCircArc2d: {
        const auto& c = static_cast<const AcGeCircArc2d&>(curve);
        result =
            std::make_unique<AcGeCircArc3d>(liftOf(c.center()), AcGeVector3d(0, 0, c.isClockWise() ? -1 : 1),
                                            liftOf(c.refVec()), c.radius(), c.startAng(), c.endAng());
        break;
    }
    case AcGe::kEllipArc2d: {
        const auto& c = static_cast<const AcGeEllipArc2d&>(curve);
        result =
            std::make_unique<AcGeEllipArc3d>(liftOf(c.center()), liftOf(c.majorAxis()), liftOf(c.minorAxis()),
                                             c.majorRadius(), c.minorRadius(), c.startAng(), c.endAng());
        break;
    }
    case AcGe::kNurbCurve2d:
        result = liftOf(static_cast<const AcGeNurbCurve2d&>(curve));
        break;
    case AcGe::kPolyline2d:
        result =
            std::make_unique<AcGePolyline3d>(liftedControlPoints(static_cast<const AcGePolyline2d&>(curve)));
        break;
    default:
        result = liftOf(static_cast<const AcGeCompositeCurve2d&>(curve));
    }
    result->transformBy(place);
    return result;
}
