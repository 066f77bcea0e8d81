#include "HatchEdges.h"

#include "gearc2d.h"
#include "geell2d.h"
#include "geintrvl.h"
#include "gekvec.h"
#include "gelnsg2d.h"
#include "genurb2d.h"
#include "PlanarCoords.h"

#include <cmath>

namespace hatch
{
namespace
{
/// The ellipse's parameter of the point seen at an angle, in the same turn; and back, by the inverse ratio.
double turnedBy(double angle, double ratio)
{
    const double reduced = std::atan2(std::sin(angle), std::cos(angle));
    return angle - reduced + std::atan2(std::sin(angle) * ratio, std::cos(angle));
}

template <class Array, class Item>
Array arrayOf(const std::vector<Item>& items)
{
    Array array;
    for (const Item& item : items)
        array.append(item);
    return array;
}

using Made = std::shared_ptr<const AcGeCurve2d>;

struct MakeCurve {
    Made operator()(const LineEdge& line) const
    {
        if (line.start == line.end) return nullptr;
        return std::make_shared<AcGeLineSeg2d>(line.start, line.end);
    }
    Made operator()(const ArcEdge& arc) const
    {
        if (!(arc.radius > 0.0)) return nullptr;
        return std::make_shared<AcGeCircArc2d>(arc.center, arc.radius, arc.startAngle, arc.endAngle,
                                               AcGeVector2d::kXAxis, !arc.isCounterClockwise);
    }
    Made operator()(const EllipseEdge& arc) const
    {
        const double major = arc.majorAxis.length();
        if (!(major > 0.0) || !(arc.ratio > 0.0)) return nullptr;
        const AcGeVector2d left(-arc.majorAxis.y, arc.majorAxis.x);
        return std::make_shared<AcGeEllipArc2d>(
            arc.center, arc.majorAxis, arc.isCounterClockwise ? left : -left, major, major * arc.ratio,
            turnedBy(arc.startAngle, 1.0 / arc.ratio), turnedBy(arc.endAngle, 1.0 / arc.ratio));
    }
    Made operator()(const std::shared_ptr<const SplineEdge>& spline) const
    {
        AcGeKnotVector knots;
        for (const double knot : spline->knots)
            knots.append(knot);
        const auto points = arrayOf<AcGePoint2dArray>(spline->controlPoints);
        auto curve = spline->weights.empty()
                         ? std::make_shared<AcGeNurbCurve2d>(spline->degree, knots, points)
                         : std::make_shared<AcGeNurbCurve2d>(spline->degree, knots, points,
                                                             arrayOf<AcGeDoubleArray>(spline->weights));
        return curve->numControlPoints() > 0 ? curve : nullptr;
    }
};

bool isFiniteCurve(const AcGeCurve2d& curve)
{
    AcGeInterval range;
    curve.getInterval(range);
    if (!range.isBounded()) return false;
    const double from = range.lowerBound(), to = range.upperBound();
    return isFinite(curve.evalPoint(from)) && isFinite(curve.evalPoint(to)) &&
           isFinite(curve.evalPoint(0.5 * (from + to)));
}

Edge splineOf(const AcGeNurbCurve2d& curve)
{
    auto spline = std::make_shared<SplineEdge>();
    AcGeKnotVector knots;
    AcGePoint2dArray points;
    AcGeDoubleArray weights;
    curve.getDefinitionData(spline->degree, spline->isRational, spline->isPeriodic, knots, points, weights);
    for (int i = 0; i < knots.length(); ++i)
        spline->knots.push_back(knots[i]);
    spline->controlPoints.assign(points.begin(), points.end());
    spline->weights.assign(weights.begin(), weights.end());
    return std::shared_ptr<const SplineEdge>(std::move(spline));
}

Edge ellipseOf(const AcGeEllipArc2d& arc)
{
    EllipseEdge edge;
    edge.center = arc.center();
    edge.majorAxis = arc.majorAxis() * arc.majorRadius();
    edge.ratio = arc.minorRadius() / arc.majorRadius();
    edge.isCounterClockwise = !arc.isClockWise();
    edge.startAngle = turnedBy(arc.startAng(), edge.ratio);
    edge.endAngle = turnedBy(arc.endAng(), edge.ratio);
    return edge;
}

Edge arcOf(const AcGeCircArc2d& arc)
{
    // Angles of arcs count from their reference vector, those of edges from the X axis.
    const double turn = std::atan2(arc.refVec().y, arc.refVec().x) * (arc.isClockWise() ? -1.0 : 1.0);
    return ArcEdge{arc.center(), arc.radius(), arc.startAng() + turn, arc.endAng() + turn,
                   !arc.isClockWise()};
}

/// The side of a polyline loop; null when it is a point.
std::shared_ptr<AcGeCurve2d> sideOf(const Loop& loop, std::size_t index)
{
    const AcGePoint2d& start = loop.points[index];
    const AcGePoint2d& end = loop.points[(index + 1) % loop.points.size()];
    if (start == end) return nullptr;
    const double bulge = loop.bulgeAt(index);
    if (bulge == 0.0) return std::make_shared<AcGeLineSeg2d>(start, end);
    return std::make_shared<AcGeCircArc2d>(start, end, bulge, false);
}

std::shared_ptr<AcGeCurve2d> mappedCurve(const AcGeCurve2d& curve, const AcGeMatrix2d& map)
{
    const bool isArc = curve.type() == AcGe::kCircArc2d && !map.isUniScaledOrtho();
    std::shared_ptr<AcGeCurve2d> image(isArc ? new AcGeEllipArc2d(static_cast<const AcGeCircArc2d&>(curve))
                                             : static_cast<AcGeCurve2d*>(curve.copy()));
    image->transformBy(map);
    return image;
}

void mapSpline(std::shared_ptr<const SplineEdge>& spline, const AcGeMatrix2d& map)
{
    auto image = std::make_shared<SplineEdge>(*spline);
    for (auto* points : {&image->controlPoints, &image->fitPoints})
        for (AcGePoint2d& point : *points)
            point.transformBy(map);
    for (auto* tangent : {&image->startTangent, &image->endTangent})
        if (*tangent) (*tangent)->transformBy(map);
    spline = std::move(image);
}

void mapEdge(Edge& edge, const AcGeMatrix2d& map)
{
    if (auto* spline = std::get_if<std::shared_ptr<const SplineEdge>>(&edge)) {
        mapSpline(*spline, map);
    } else if (auto* line = std::get_if<LineEdge>(&edge)) {
        line->start.transformBy(map);
        line->end.transformBy(map);
    } else if (const auto curve = curveOf(edge)) {
        edgeOf(*mappedCurve(*curve, map), edge);
    }
}

void toEdges(Loop& loop)
{
    for (const auto& curve : curvesOf(loop)) {
        Edge edge;
        if (edgeOf(*curve, edge)) loop.edges.push_back(std::move(edge));
    }
    loop.points.clear();
    loop.bulges.clear();
    loop.type &= ~2;
}

void addChords(const AcGeCurve2d& curve, double deviation, kernel::Polygon& polygon)
{
    AcGeInterval range;
    curve.getInterval(range);
    AcGePoint2dArray points;
    AcGeDoubleArray params;
    curve.getSamplePoints(range.lowerBound(), range.upperBound(), deviation, points, params);
    // The last point is the next side's first.
    for (int i = 0; i + 1 < points.length(); ++i)
        polygon.push_back(points[i]);
}
} // namespace

std::shared_ptr<const AcGeCurve2d> curveOf(const Edge& edge)
{
    return std::visit(MakeCurve(), edge);
}

bool edgeOf(const AcGeCurve2d& curve, Edge& edge)
{
    if (!isFiniteCurve(curve)) return false;
    switch (curve.type()) {
    case AcGe::kLineSeg2d: {
        const auto& line = static_cast<const AcGeLineSeg2d&>(curve);
        edge = LineEdge{line.startPoint(), line.endPoint()};
        return true;
    }
    case AcGe::kCircArc2d:
        edge = arcOf(static_cast<const AcGeCircArc2d&>(curve));
        return true;
    case AcGe::kEllipArc2d:
        edge = ellipseOf(static_cast<const AcGeEllipArc2d&>(curve));
        return true;
    case AcGe::kNurbCurve2d:
        edge = splineOf(static_cast<const AcGeNurbCurve2d&>(curve));
        return true;
    default:
        return false;
    }
}

Curves curvesOf(const Loop& loop)
{
    Curves curves;
    for (const Edge& edge : loop.edges)
        if (auto curve = curveOf(edge)) curves.push_back(std::move(curve));
    for (std::size_t i = 0; i < loop.points.size(); ++i)
        if (auto side = sideOf(loop, i)) curves.push_back(std::move(side));
    return curves;
}

kernel::Polygon flattened(const Loop& loop, double deviation)
{
    if (loop.isPolyline() && loop.bulges.empty()) return loop.points;
    kernel::Polygon polygon;
    for (const auto& curve : curvesOf(loop))
        addChords(*curve, deviation, polygon);
    return polygon;
}

void mapLoop(Loop& loop, const AcGeMatrix2d& map)
{
    if (!loop.bulges.empty() && !map.isUniScaledOrtho()) toEdges(loop);
    for (AcGePoint2d& point : loop.points)
        point.transformBy(map);
    if (map.det() < 0.0)
        for (double& bulge : loop.bulges)
            bulge = -bulge;
    for (Edge& edge : loop.edges)
        mapEdge(edge, map);
}
} // namespace hatch
