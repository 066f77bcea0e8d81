#pragma once

/// The enumerations of the geometry interface, and its global settings.

#include "adesk.h"

struct AcGe {
    enum ErrorCondition {
        kOk,
        k0This,
        k0Arg1,
        k0Arg2,
        kPerpendicularArg1Arg2,
        kEqualArg1Arg2,
        kEqualArg1Arg3,
        kEqualArg2Arg3,
        kLinearlyDependentArg1Arg2Arg3,
        kArg1TooBig,
        kArg1OnThis,
        kArg1InsideThis
    };

    enum EntityId {
        kEntity2d,
        kEntity3d,
        kPointEnt2d,
        kPointEnt3d,
        kPosition2d,
        kPosition3d,
        kPointOnCurve2d,
        kPointOnCurve3d,
        kPointOnSurface,
        kBoundBlock2d,
        kBoundBlock3d,
        kCurve2d,
        kCurve3d,
        kLinearEnt2d,
        kLinearEnt3d,
        kLine2d,
        kLine3d,
        kRay2d,
        kRay3d,
        kLineSeg2d,
        kLineSeg3d,
        kCircArc2d,
        kCircArc3d,
        kEllipArc2d,
        kEllipArc3d,
        kSplineEnt2d,
        kSplineEnt3d,
        kPolyline2d,
        kPolyline3d,
        kNurbCurve2d,
        kNurbCurve3d,
        kCubicSplineCurve2d,
        kCubicSplineCurve3d,
        kCompositeCrv2d,
        kCompositeCrv3d,
        kExternalCurve2d,
        kExternalCurve3d,
        kOffsetCurve2d,
        kOffsetCurve3d,
        kSurface,
        kPlanarEnt,
        kPlane,
        kBoundedPlane,
        kSphere,
        kCylinder,
        kTorus,
        kCone,
        kNurbSurface,
        kExternalSurface,
        kExternalBoundedSurface,
        kCurveCurveInt2d,
        kCurveCurveInt3d,
        kCurveSurfaceInt,
        kSurfaceSurfaceInt,
        kClipBoundary2d
    };

    enum PointContainment { kInside, kOutside, kOnBoundary };

    /// How an outside corner of an offset curve is closed.
    enum OffsetCrvExtType { kFillet, kChamfer, kExtend };

    /// How the intersection code sees one curve at a crossing.
    enum AcGeXConfig {
        kNotDefined = 1 << 0,
        kUnknown = 1 << 1,
        kLeftRight = 1 << 2,
        kRightLeft = 1 << 3,
        kLeftLeft = 1 << 4,
        kRightRight = 1 << 5,
        kPointLeft = 1 << 6,
        kPointRight = 1 << 7,
        kLeftOverlap = 1 << 8,
        kOverlapLeft = 1 << 9,
        kRightOverlap = 1 << 10,
        kOverlapRight = 1 << 11,
        kOverlapStart = 1 << 12,
        kOverlapEnd = 1 << 13,
        kOverlapOverlap = 1 << 14
    };

    /// How fit points get their parameters: in proportion to the chords, to their square roots, or evenly.
    enum KnotParameterization { kChord, kSqrtChord, kUniform, kCustomParameterization, kNotDefinedKnotParam };

    enum AcGeIntersectError { kXXOk, kXXIndexOutOfRange, kXXWrongDimensionAtIndex, kXXUnknown };

    enum CurveType { kCurveTypeUnknown };
};

using AcGeError = AcGe::ErrorCondition;
using AcGeIntersectError = AcGe::AcGeIntersectError;
