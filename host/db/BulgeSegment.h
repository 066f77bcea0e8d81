#pragma once

/// One segment of a polyline in its plane: straight, or an arc given by its bulge.

#include "gepnt2d.h"

/// The bulge is the tangent of a quarter of the arc's angle, positive when the arc turns counter-clockwise.
/// The parameter t runs from 0 to 1, evenly along the segment; other values lie on the line or circle beyond.
///
/// With the chord c and the arc's angle A, the point at t lies at the distance |c| sin(tA/2) / sin(A/2) from
/// the start, in the direction of the chord turned by (t - 1) A/2. So no radius is needed, which for flat
/// arcs is huge.
class BulgeSegment
{
public:
    BulgeSegment(const AcGePoint2d& start, const AcGePoint2d& end, double bulge);

    const AcGePoint2d& start() const { return mStart; }
    const AcGePoint2d& end() const { return mEnd; }
    bool isArc() const { return mSweep != 0.0; }
    bool isPoint() const { return mChord.x == 0.0 && mChord.y == 0.0; }
    /// The arc's angle, negative when it turns clockwise; 0 for straight segments.
    double sweep() const { return mSweep; }
    double radius() const;
    AcGePoint2d center() const;

    AcGePoint2d pointAt(double t) const;
    AcGeVector2d derivAt(double t) const;
    AcGeVector2d secondDerivAt(double t) const;
    /// The direction of the tangent, in radians, not reduced to one turn.
    double tangentAngleAt(double t) const { return mChordAngle + (t - 0.5) * mSweep; }
    double length() const;
    /// The area between the segment and the lines from the origin to its ends, positive to the left.
    double area() const;
    /// The parameter of the nearest point; with `beyondStart` and `beyondEnd` that of the whole line or
    /// circle, on the sides asked for.
    double closestParam(const AcGePoint2d& point, bool beyondStart = false, bool beyondEnd = false) const;
    /// The parameters within the segment where its tangent has one of the two directions perpendicular to
    /// `axis`.
    int extremesAlong(const AcGeVector2d& axis, double (&params)[4]) const;
    /// The bulge of the part between two parameters.
    double bulgeBetween(double from, double to) const;

private:
    double lineParam(const AcGePoint2d& point, bool beyondStart, bool beyondEnd) const;
    double arcParam(const AcGePoint2d& point, bool beyondStart, bool beyondEnd) const;

    AcGePoint2d mStart, mEnd;
    AcGeVector2d mChord;
    double mSweep;
    double mChordAngle;
    double mHalfSine; ///< sin(A/2); 0 for straight segments
};
