#pragma once

/// What a hatch is made of: the edges of its loops, the lines of its pattern, its gradient.

#include "dbid.h"
#include "gemat3d.h"
#include "gepnt2d.h"

#include <atlstr.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

/// Coordinates are those of the hatch's plane; angles are in radians.
namespace hatch
{
/// Where a hatch lies: the XY plane of the object coordinate system of a normal, at a height.
struct Plane {
    AcGeVector3d normal;
    double elevation = 0.0;

    AcGeMatrix3d toWorld() const;
};

struct LineEdge {
    AcGePoint2d start, end;
};

/// Angles are measured in the direction in which the arc runs.
struct ArcEdge {
    AcGePoint2d center;
    double radius = 1.0, startAngle = 0.0, endAngle = 0.0;
    bool isCounterClockwise = true;
};

/// Angles are those of the points seen from the centre, from the major axis on, in the direction of the arc.
struct EllipseEdge {
    AcGePoint2d center;
    AcGeVector2d majorAxis; ///< as long as the major radius
    double ratio = 1.0;     ///< of the minor radius to the major one
    double startAngle = 0.0, endAngle = 0.0;
    bool isCounterClockwise = true;
};

struct SplineEdge {
    int degree = 3;
    bool isRational = false, isPeriodic = false;
    std::vector<double> knots, weights; ///< weights: none, or one a control point
    std::vector<AcGePoint2d> controlPoints, fitPoints;
    std::optional<AcGeVector2d> startTangent, endTangent;
    bool namesFit = false; ///< the file gave the number of fit points, which old ones do not have
};

using Edge = std::variant<LineEdge, ArcEdge, EllipseEdge, std::shared_ptr<const SplineEdge>>;

/// A closed boundary: edges, or vertices when the type has the polyline bit.
struct Loop {
    std::int32_t type = 0; ///< of AcDbHatch::HatchLoopType
    std::vector<Edge> edges;
    std::vector<AcGePoint2d> points; ///< the first is not repeated
    std::vector<double> bulges;      ///< none, or one a point
    bool isClosed = true;
    bool namesBulges = false;          ///< the file said that bulges follow, and had none
    std::vector<AcDbObjectId> sources; ///< the entities it follows

    bool isPolyline() const { return type & 2; }
    double bulgeAt(std::size_t index) const { return bulges.empty() ? 0.0 : bulges[index]; }
};

/// One family of parallel lines, as it lies in the hatch.
struct PatternLine {
    double angle = 0.0;
    AcGePoint2d base;           ///< of the first line, where its dashes begin
    AcGeVector2d offset;        ///< to the next line
    std::vector<double> dashes; ///< above 0 dashes, below 0 gaps, 0 dots; none: a continuous line
};

struct GradientStop {
    double value = 0.0; ///< 0 at the start, 1 at the end
    std::optional<std::int32_t> index, rgb;
};

struct Gradient {
    std::int32_t isGradient = 0, reserved = 0, isOneColor = 0, colorCount = 0;
    double angle = 0.0, shift = 0.0, tint = 0.0;
    std::vector<GradientStop> stops;
    CString name;
};

/// A line of an evaluated hatch; a dot has equal ends.
struct Segment {
    AcGePoint2d start, end;
};
} // namespace hatch
