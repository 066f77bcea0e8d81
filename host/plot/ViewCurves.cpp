/// Curves and marks on the canvas.

#include "CurvePoints.h"
#include "PlanarCoords.h"
#include "ViewGeometry.h"
#include "WideLine.h"
#include "dbpl.h"
#include "geell3d.h"
#include "geintrvl.h"
#include "genurb3d.h"

namespace plot
{
namespace
{
constexpr double fullTurn = 2 * 3.14159265358979323846;

/// A segment of a polyline, flattened in its own plane.
struct FlatSegment {
    Points points;
    double startWidth = 0, endWidth = 0;

    bool isWide() const { return startWidth > 0 || endWidth > 0; }
};

/// A polyline's segments, from vertex to vertex.
std::vector<FlatSegment> flatten(const AcDbPolyline& polyline, double tolerance)
{
    std::vector<FlatSegment> segments;
    const unsigned count = polyline.numVerts(), last = polyline.isClosed() ? count : count - 1;
    for (unsigned i = 0; count > 1 && i < last; ++i) {
        AcGePoint2d start, end;
        double bulge = 0;
        FlatSegment segment;
        polyline.getPointAt(i, start);
        polyline.getPointAt((i + 1) % count, end);
        polyline.getBulgeAt(i, bulge);
        polyline.getWidthsAt(i, segment.startWidth, segment.endWidth);
        segment.points.push_back(start);
        appendSegment(segment.points, BulgeSegment(start, end, bulge), tolerance);
        segments.push_back(std::move(segment));
    }
    return segments;
}

/// The straight pieces of a wide segment, whose width changes evenly.
void addPieces(std::vector<WidePiece>& pieces, const FlatSegment& segment)
{
    const std::size_t count = segment.points.size() - 1;
    const auto half = [&](std::size_t i) {
        if (segment.startWidth == segment.endWidth) return segment.startWidth / 2;
        const double t = static_cast<double>(i) / static_cast<double>(count);
        return (segment.startWidth + t * (segment.endWidth - segment.startWidth)) / 2;
    };
    for (std::size_t i = 0; i < count; ++i)
        pieces.push_back({segment.points[i], segment.points[i + 1], half(i), half(i + 1)});
}

/// The dashes of wide segments that keep their width. Segments whose width changes are drawn whole.
std::vector<FlatSegment> dashed(std::vector<FlatSegment> segments, const DashPattern& pattern, double scale)
{
    std::vector<FlatSegment> cut;
    DashOptions options;
    options.scale = scale;
    for (FlatSegment& segment : segments) {
        if (!segment.isWide() || segment.startWidth != segment.endWidth) {
            cut.push_back(std::move(segment));
            continue;
        }
        for (Points& dash : dashLine(segment.points, pattern, options).dashes)
            cut.push_back({std::move(dash), segment.startWidth, segment.endWidth});
    }
    return cut;
}

/// All segments as one where they are equally wide: the dashes run on across the vertices.
std::vector<FlatSegment> joined(std::vector<FlatSegment> segments)
{
    const auto widthOf = [](const FlatSegment& segment) { return std::make_pair(segment.startWidth, segment.endWidth); };
    for (const FlatSegment& segment : segments) {
        if (widthOf(segment) != std::make_pair(segments[0].startWidth, segments[0].startWidth)) return segments;
    }
    for (std::size_t i = 1; i < segments.size(); ++i)
        segments[0].points.insert(segments[0].points.end(), segments[i].points.begin() + 1, segments[i].points.end());
    segments.resize(std::min<std::size_t>(segments.size(), 1));
    return segments;
}

template <class Shape>
void mapAll(Shape& points, const AcGeMatrix2d& map)
{
    for (AcGePoint2d& point : points)
        point = map * point;
}

/// The lines to stroke: one, or one a segment where dashes start anew at every vertex.
std::vector<Points> linesOf(std::vector<FlatSegment>& segments, bool perSegment)
{
    std::vector<Points> lines;
    for (FlatSegment& segment : segments) {
        if (lines.empty() || perSegment)
            lines.push_back(std::move(segment.points));
        else
            lines.back().insert(lines.back().end(), segment.points.begin() + 1, segment.points.end());
    }
    return lines;
}
} // namespace

bool ViewGeometry::circle(const AcGePoint3d& center, double radius, const AcGeVector3d& normal)
{
    const AcGeMatrix3d frame = ocsToWorld(normal);
    Points points = arcPoints(place(center), place(frame * AcGeVector3d(radius, 0, 0)),
                              place(frame * AcGeVector3d(0, radius, 0)), 0, fullTurn, mTolerance);
    points.pop_back();
    stroke(std::move(points), true);
    return true;
}

bool ViewGeometry::circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                               const AcGeVector3d& start, double sweep, AcGiArcType type)
{
    const AcGeVector3d a = radius * start.normal(), b = normal.normal().crossProduct(a);
    Points points = arcPoints(place(center), place(a), place(b), 0, sweep, mTolerance);
    if (type == kAcGiArcSector) points.push_back(place(center));
    if (type != kAcGiArcSimple && mTraits.isFilled())
        fill({std::move(points)}, FillRule::evenOdd);
    else
        stroke(std::move(points), type != kAcGiArcSimple);
    return true;
}

bool ViewGeometry::ellipArc(const AcGeEllipArc3d& arc)
{
    const double sweep = arc.endAng() - arc.startAng();
    Points points =
        arcPoints(place(arc.center()), place(arc.majorRadius() * arc.majorAxis()),
                  place(arc.minorRadius() * arc.minorAxis()), arc.startAng(), sweep, mTolerance);
    const bool isWhole = sweep >= fullTurn - 1e-9;
    if (isWhole) points.pop_back();
    stroke(std::move(points), isWhole);
    return true;
}

bool ViewGeometry::nurbs(const AcGeNurbCurve3d& curve)
{
    AcGeInterval range;
    curve.getInterval(range);
    AcGePoint3dArray points;
    AcGeDoubleArray params;
    curve.getSamplePoints(range.lowerBound(), range.upperBound(), modelTolerance(), points, params);
    return polyline(static_cast<unsigned>(points.length()), points.asArrayPtr());
}

bool ViewGeometry::pline(const AcDbPolyline& polyline)
{
    if (!mTraits.look().isShown) return true;
    AcGeMatrix3d frame, up;
    polyline.getEcs(frame);
    up.setToTranslation({0, 0, polyline.elevation()});
    const AcGeMatrix2d map = planeMap(frame * up);
    std::vector<FlatSegment> segments = flatten(polyline, modelTolerance());
    if (polyline.hasWidth()) {
        const DashPattern dashes = pen().dashes; // as they are in the plane that is drawn on
        if (!dashes.empty() && polyline.hasPlinegen()) segments = joined(std::move(segments));
        if (!dashes.empty()) segments = dashed(std::move(segments), dashes, 1.0 / map.scale());
        std::vector<WidePiece> pieces;
        for (const FlatSegment& segment : segments)
            if (segment.isWide()) addPieces(pieces, segment);
        Loops area = wideArea(pieces, polyline.isClosed());
        for (Points& loop : area)
            mapAll(loop, map);
        fill(area, FillRule::nonZero);
        segments.erase(std::remove_if(segments.begin(), segments.end(),
                                      [](const FlatSegment& segment) { return segment.isWide(); }),
                       segments.end());
    }
    const bool perSegment = polyline.hasWidth() || (!polyline.hasPlinegen() && !mTraits.look().dashes->empty());
    std::vector<Points> lines = linesOf(segments, perSegment);
    const bool isClosed = polyline.isClosed() && !perSegment;
    for (Points& line : lines) {
        mapAll(line, map);
        if (isClosed && line.size() > 2) line.pop_back();
        stroke(std::move(line), isClosed);
    }
    return true;
}

bool ViewGeometry::pointMark(const AcGePoint3d& point)
{
    if (!mTraits.look().isShown) return true;
    const double scale = modelTolerance() > 0 ? mTolerance / modelTolerance() : 1;
    const double size = mView.points.sizeOn(mView.max.y - mView.min.y, scale);
    const AcGePoint2d at = place(point);
    const PointMark mark = plot::pointMark(mView.points, at, size);
    for (const Points& line : mark.lines)
        stroke(line, false);
    if (mark.hasCircle) {
        Points circle = arcPoints(at, {size / 2, 0}, {0, size / 2}, 0, fullTurn, mTolerance);
        circle.pop_back();
        stroke(std::move(circle), true);
    }
    if (mark.hasDot) {
        const Pen now = pen();
        begin(now);
        mCanvas.dots({at}, now);
    }
    return true;
}
} // namespace plot
