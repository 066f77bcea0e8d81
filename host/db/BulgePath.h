#pragma once

/// A run of straight and circular segments in a plane of space: the geometry of planar polylines.

#include "BulgeSegment.h"
#include "dbextent.h"
#include "gecurv3d.h"
#include "gemat3d.h"

#include <memory>
#include <utility>
#include <vector>

/// Points and bulges may be the path's own (`ownPoints`, `ownBulges`, `ownWidths`) or those of an entity that
/// it looks at.
struct BulgePath {
    using Widths = std::pair<double, double>; ///< at the start and at the end of a segment
    const AcGePoint2d* points = nullptr;
    const double* bulges = nullptr; ///< one a vertex; null: all straight
    const Widths* widths = nullptr; ///< one a vertex, of the segment behind it; null: all constantWidth
    double constantWidth = 0.0;
    int count = 0;
    bool isClosed = false;
    double elevation = 0.0;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    std::vector<AcGePoint2d> ownPoints;
    std::vector<double> ownBulges;
    std::vector<Widths> ownWidths;

    BulgePath() = default;
    BulgePath(BulgePath&& other) = default;
    BulgePath& operator=(BulgePath&& other) = default;
    BulgePath(const BulgePath&) = delete;
    BulgePath& operator=(const BulgePath&) = delete;

    /// Looks at its own points from now on.
    void useOwn();
    void append(const AcGePoint2d& point, double bulge);

    int segments() const { return count < 2 ? 0 : isClosed ? count : count - 1; }
    double bulgeAt(int index) const { return bulges ? bulges[index] : 0.0; }
    BulgeSegment segment(int index) const
    {
        return {points[index], points[index + 1 < count ? index + 1 : 0], bulgeAt(index)};
    }
    bool hasArcs() const;
    Widths widthsAt(int index) const { return widths ? widths[index] : Widths(constantWidth, constantWidth); }
    bool hasWidths() const;

    AcGeMatrix3d toWorld() const;
    AcGeMatrix3d fromWorld() const;

    /// Splits a parameter into a segment and the fraction of it; false when it is not on the path.
    bool locate(double param, int& index, double& t) const;
    double length() const;
    double lengthTo(int index, double t) const;
    /// The parameter at a length from the start, which is not beyond the end.
    double paramAtLength(double length) const;
    /// Signed: positive when the path runs counter-clockwise. Open paths are closed by their chord.
    double area() const;
    /// The parameter of the point nearest to one in the path's plane; extended paths go on along their first
    /// and last segments, where the parameter leaves 0 to segments().
    double closestParam(const AcGePoint2d& point, bool extended = false) const;
    /// The point at a parameter, which may lie beyond the ends.
    AcGePoint2d pointAt(double param) const;
    /// Adds what the path reaches with its widths. `world` takes its plane anywhere, also askew.
    void addExtents(AcDbExtents& extents, const AcGeMatrix3d& world) const;

    /// One segment as a free curve in world coordinates: a line segment or an arc; null for a point.
    std::unique_ptr<AcGeCurve3d> geSegment(int index, const AcGeMatrix3d& world) const;
    /// The same for intersections: an arc so flat that its centre is too far to compute with is the equal spline.
    std::unique_ptr<AcGeCurve3d> geSegmentToMeet(int index, const AcGeMatrix3d& world) const;
};
