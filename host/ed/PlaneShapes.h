#pragma once

/// What curves are in the plane of a view: segments and arcs of ellipses.

#include "gevec2d.h"
#include "InkBox.h"

#include <cmath>

#include <vector>

namespace ed
{
using PlaneBox = lettering::InkBox;

struct PlaneSegment {
    AcGePoint2d start, end;
    AcGePoint2d pointAt(double t) const { return start + t * (end - start); }
};

/// center + cos t a + sin t b, from `from` over `sweep` radians. `a` and `b` need not be perpendicular, nor differ in
/// direction: a circle seen from its edge.
struct PlaneArc {
    AcGePoint2d center;
    AcGeVector2d a, b;
    double from = 0.0, sweep = 0.0;

    AcGePoint2d pointAt(double t) const { return center + std::cos(t) * a + std::sin(t) * b; }
    AcGePoint2d startPoint() const { return pointAt(from); }
    bool hasAngle(double t) const;
    /// It lies on a line.
    bool isFlat() const;
    /// The places where the arc turns round along a direction, its ends among them, in order.
    std::vector<AcGePoint2d> turnsAlong(const AcGeVector2d& direction) const;
    PlaneBox box() const;
    /// The points of a flat arc between which it is straight.
    std::vector<AcGePoint2d> flatPoints() const;
};

/// Positive when c lies to the left of the line from a to b, 0 on it.
inline double sideOf(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// Where the segments meet, their ends included; of those that lie on each other one point. False when they do not.
bool meet(const PlaneSegment& one, const PlaneSegment& other, AcGePoint2d& point);
/// Whether one goes from one side of the other to the other side.
bool cross(const PlaneSegment& one, const PlaneSegment& other);
/// Appends the points where a segment meets an arc that is not flat.
void addMeetings(const PlaneArc& arc, const PlaneSegment& segment, std::vector<AcGePoint2d>& points);

/// Even-odd, the edges included.
bool isInside(const std::vector<AcGePoint2d>& polygon, const AcGePoint2d& point);
} // namespace ed
