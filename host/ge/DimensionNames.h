#pragma once

/// The classes of the plane and of space have many members that are the same but for the names of the
/// classes. Such members stand once, in an .inl file, with the names that this gives the classes of one
/// dimension:
///
///     namespace
///     {
///     GE_DIMENSION_NAMES(2d)
///     }
///     #include "AcGeCurve.inl"

#include "CurveFactory.h"
#include "Dimension.h"
#include "gecurv2d.h"
#include "gecurv3d.h"

class AcGeBoundBlock2d;
class AcGeBoundBlock3d;
class AcGeCircArc2d;
class AcGeCircArc3d;
class AcGeCompositeCurve2d;
class AcGeCompositeCurve3d;
class AcGeCurveCurveInt2d;
class AcGeCurveCurveInt3d;
class AcGeEllipArc2d;
class AcGeEllipArc3d;
class AcGeLine2d;
class AcGeLine3d;
class AcGeLineSeg2d;
class AcGeLineSeg3d;
class AcGeLinearEnt2d;
class AcGeLinearEnt3d;
class AcGeNurbCurve2d;
class AcGeNurbCurve3d;
class AcGePointOnCurve2d;
class AcGePointOnCurve3d;
class AcGePolyline2d;
class AcGePolyline3d;
class AcGeRay2d;
class AcGeRay3d;
class AcGeSplineEnt2d;
class AcGeSplineEnt3d;

#define GE_DIMENSION_NAMES(D)                                                                                \
    using Point = AcGePoint##D;                                                                              \
    using Points = AcGePoint##D##Array;                                                                      \
    using Vector = AcGeVector##D;                                                                            \
    using Vectors = AcGeVector##D##Array;                                                                    \
    using Matrix = AcGeMatrix##D;                                                                            \
    using Entity = AcGeEntity##D;                                                                            \
    using BoundBlock = AcGeBoundBlock##D;                                                                    \
    using CircArc = AcGeCircArc##D;                                                                          \
    using CompositeCurve = AcGeCompositeCurve##D;                                                            \
    using Curve = AcGeCurve##D;                                                                              \
    using CurveCurveInt = AcGeCurveCurveInt##D;                                                              \
    using EllipArc = AcGeEllipArc##D;                                                                        \
    using Line = AcGeLine##D;                                                                                \
    using LineSeg = AcGeLineSeg##D;                                                                          \
    using LinearEnt = AcGeLinearEnt##D;                                                                      \
    using NurbCurve = AcGeNurbCurve##D;                                                                      \
    using PointOnCurve = AcGePointOnCurve##D;                                                                \
    using Polyline = AcGePolyline##D;                                                                        \
    using Ray = AcGeRay##D;                                                                                  \
    using SplineEnt = AcGeSplineEnt##D;                                                                      \
    constexpr AcGe::EntityId kPosition = AcGe::kPosition##D;                                                 \
    inline Curve* curveOf(const gecore::CurveForm& form)                                                     \
    {                                                                                                        \
        return gecore::curve##D##Of(form);                                                                   \
    }                                                                                                        \
    inline Point toPoint(const gecore::Place& place)                                                         \
    {                                                                                                        \
        return gecore::toPoint##D(place);                                                                    \
    }                                                                                                        \
    inline Vector toVector(const gecore::Arrow& arrow)                                                       \
    {                                                                                                        \
        return gecore::toVector##D(arrow);                                                                   \
    }
