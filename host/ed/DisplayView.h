#pragma once

/// What a viewport shows, whichever kind of object keeps it.

#include "gemat3d.h"
#include "gepnt2d.h"

namespace ed
{
/// A view of model space, or of a sheet. Display coordinates (DCS) lie with their origin at the target and
/// look along their Z axis from the eye; centre and height are measured in them.
struct DisplayView {
    AcGePoint3d target;
    AcGeVector3d direction = AcGeVector3d::kZAxis; ///< from the target to the eye, in the world
    double twist = 0.0; ///< radians by which what is seen is turned, counter-clockwise
    AcGePoint2d center;
    double height = 1.0;
    double lensLength = 50.0; ///< in millimetres, of perspectives
    double frontClip = 0.0;   ///< from the target towards the eye
    double backClip = 0.0;
    bool isPerspective = false;
    bool isFrontClipped = false;
    bool isBackClipped = false;
    bool isFrontClipAtEye = true;
    bool followsUcs = false; ///< turns to the plan of each new UCS
};

/// From display coordinates to the world without regard to perspective: for displacements, and for all of a
/// view in parallel rays.
AcGeMatrix3d parallelToWorld(const DisplayView& view);
/// From display coordinates to the world. In a perspective the display coordinates of a point at the depth z
/// before the target are those of the parallel view divided by 1 - z / d, with d the distance of the eye:
/// what is seen in the plane of the target has its own size. The map keeps the order of depths and has an
/// inverse.
AcGeMatrix3d displayToWorld(const DisplayView& view);
/// Turns a view so that it looks down the Z axis of a coordinate system, whose X axis points to the right.
void turnToPlan(DisplayView& view, const AcGeMatrix3d& system);
} // namespace ed
