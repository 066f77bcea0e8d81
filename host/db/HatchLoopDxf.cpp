#include "HatchLoopDxf.h"

#include "DxfFields.h"

namespace hatch
{
namespace
{
bool isNext(DxfSource& source, int code)
{
    return source.peek() && source.peek()->is(code);
}

/// Takes a group that is expected; false, and the value unchanged, when another one comes.
template <class Value>
bool takeNumber(DxfSource& source, int code, Value& value)
{
    if (!isNext(source, code)) return false;
    const DxfGroup* group = source.peek();
    value =
        group->kind == DxfKind::real ? static_cast<Value>(group->real) : static_cast<Value>(group->integer);
    source.take();
    return true;
}

double takeAngle(DxfSource& source, int code)
{
    double degrees = 0.0;
    takeNumber(source, code, degrees);
    return degrees * dxf::radiansPerDegree;
}

void writeAngle(DxfSink& sink, int code, double angle)
{
    sink.real(code, angle / dxf::radiansPerDegree);
}

void readVertices(DxfSource& source, Loop& loop)
{
    int hasBulges = 0, isClosed = 1;
    std::int64_t count = 0;
    takeNumber(source, 72, hasBulges);
    takeNumber(source, 73, isClosed);
    takeNumber(source, 93, count);
    loop.namesBulges = hasBulges != 0;
    loop.isClosed = isClosed != 0;
    while (isNext(source, 10)) {
        loop.points.push_back(takePoint(source, 10));
        double bulge = 0.0;
        if (takeNumber(source, 42, bulge)) loop.bulges.resize(loop.points.size() - 1);
        if (bulge != 0.0 || !loop.bulges.empty() || loop.namesBulges) loop.bulges.push_back(bulge);
    }
    if (!loop.bulges.empty()) loop.bulges.resize(loop.points.size());
}

LineEdge readLine(DxfSource& source)
{
    LineEdge line;
    line.start = takePoint(source, 10);
    line.end = takePoint(source, 11);
    return line;
}

ArcEdge readArc(DxfSource& source)
{
    ArcEdge arc;
    arc.center = takePoint(source, 10);
    takeNumber(source, 40, arc.radius);
    arc.startAngle = takeAngle(source, 50);
    arc.endAngle = takeAngle(source, 51);
    takeNumber(source, 73, arc.isCounterClockwise);
    return arc;
}

EllipseEdge readEllipse(DxfSource& source)
{
    EllipseEdge arc;
    arc.center = takePoint(source, 10);
    arc.majorAxis = takePoint(source, 11).asVector();
    takeNumber(source, 40, arc.ratio);
    arc.startAngle = takeAngle(source, 50);
    arc.endAngle = takeAngle(source, 51);
    takeNumber(source, 73, arc.isCounterClockwise);
    return arc;
}

/// What follows the number of fit points, which has been taken.
void readFit(DxfSource& source, SplineEdge& spline)
{
    spline.namesFit = true;
    while (isNext(source, 11))
        spline.fitPoints.push_back(takePoint(source, 11));
    if (isNext(source, 12)) spline.startTangent = takePoint(source, 12).asVector();
    if (isNext(source, 13)) spline.endTangent = takePoint(source, 13).asVector();
}

void readPoles(DxfSource& source, SplineEdge& spline)
{
    double value = 0.0;
    while (takeNumber(source, 40, value))
        spline.knots.push_back(value);
    while (isNext(source, 10)) {
        spline.controlPoints.push_back(takePoint(source, 10));
        if (takeNumber(source, 42, value)) spline.weights.push_back(value);
    }
    while (takeNumber(source, 42, value))
        spline.weights.push_back(value);
}

std::shared_ptr<SplineEdge> readSpline(DxfSource& source)
{
    auto spline = std::make_shared<SplineEdge>();
    std::int64_t count = 0;
    takeNumber(source, 94, spline->degree);
    takeNumber(source, 73, spline->isRational);
    takeNumber(source, 74, spline->isPeriodic);
    takeNumber(source, 95, count);
    takeNumber(source, 96, count);
    readPoles(source, *spline);
    return spline;
}

/// The edges, and the number of sources when it had to be taken: old files have no number of fit points
/// behind a spline, so that behind the last edge a 97 is one or the other.
bool readEdges(DxfSource& source, Loop& loop, std::int64_t& sources)
{
    std::int64_t count = 0;
    takeNumber(source, 93, count);
    int kind = 0;
    while (takeNumber(source, 72, kind)) {
        if (kind == 1)
            loop.edges.emplace_back(readLine(source));
        else if (kind == 2)
            loop.edges.emplace_back(readArc(source));
        else if (kind == 3)
            loop.edges.emplace_back(readEllipse(source));
        else if (kind == 4) {
            const auto spline = readSpline(source);
            loop.edges.emplace_back(std::shared_ptr<const SplineEdge>(spline));
            if (!takeNumber(source, 97, sources)) continue;
            const bool isFit =
                isNext(source, 11) || isNext(source, 12) || isNext(source, 97) || isNext(source, 72);
            if (!isFit) return true;
            readFit(source, *spline);
        } else
            break;
    }
    return false;
}

void readSources(DxfSource& source, Loop& loop)
{
    while (isNext(source, 330)) {
        loop.sources.emplace_back(source.stubOf(static_cast<std::uint64_t>(source.peek()->integer)));
        source.take();
    }
}

struct WriteEdge {
    DxfSink& sink;

    void operator()(const LineEdge& line) const
    {
        sink.integer(72, 1);
        sink.point(10, line.start.x, line.start.y);
        sink.point(11, line.end.x, line.end.y);
    }
    void operator()(const ArcEdge& arc) const
    {
        sink.integer(72, 2);
        sink.point(10, arc.center.x, arc.center.y);
        sink.real(40, arc.radius);
        writeAngle(sink, 50, arc.startAngle);
        writeAngle(sink, 51, arc.endAngle);
        sink.integer(73, arc.isCounterClockwise);
    }
    void operator()(const EllipseEdge& arc) const
    {
        sink.integer(72, 3);
        sink.point(10, arc.center.x, arc.center.y);
        sink.point(11, arc.majorAxis.x, arc.majorAxis.y);
        sink.real(40, arc.ratio);
        writeAngle(sink, 50, arc.startAngle);
        writeAngle(sink, 51, arc.endAngle);
        sink.integer(73, arc.isCounterClockwise);
    }
    void operator()(const std::shared_ptr<const SplineEdge>& spline) const
    {
        sink.integer(72, 4);
        sink.integer(94, spline->degree);
        sink.integer(73, spline->isRational);
        sink.integer(74, spline->isPeriodic);
        sink.integer(95, static_cast<std::int64_t>(spline->knots.size()));
        sink.integer(96, static_cast<std::int64_t>(spline->controlPoints.size()));
        for (const double knot : spline->knots)
            sink.real(40, knot);
        for (std::size_t i = 0; i < spline->controlPoints.size(); ++i) {
            sink.point(10, spline->controlPoints[i].x, spline->controlPoints[i].y);
            if (i < spline->weights.size()) sink.real(42, spline->weights[i]);
        }
        if (spline->namesFit || sink.version() >= static_cast<int>(DxfVersion::r2010)) fit(*spline);
    }
    void fit(const SplineEdge& spline) const
    {
        sink.integer(97, static_cast<std::int64_t>(spline.fitPoints.size()));
        for (const AcGePoint2d& point : spline.fitPoints)
            sink.point(11, point.x, point.y);
        if (spline.startTangent) sink.point(12, spline.startTangent->x, spline.startTangent->y);
        if (spline.endTangent) sink.point(13, spline.endTangent->x, spline.endTangent->y);
    }
};

void writeVertices(const Loop& loop, DxfSink& sink)
{
    sink.integer(72, loop.namesBulges || !loop.bulges.empty());
    sink.integer(73, loop.isClosed);
    sink.integer(93, static_cast<std::int64_t>(loop.points.size()));
    for (std::size_t i = 0; i < loop.points.size(); ++i) {
        sink.point(10, loop.points[i].x, loop.points[i].y);
        if (!loop.bulges.empty()) sink.real(42, loop.bulges[i]);
    }
}

void writeEdges(const Loop& loop, DxfSink& sink)
{
    sink.integer(93, static_cast<std::int64_t>(loop.edges.size()));
    for (const Edge& edge : loop.edges)
        std::visit(WriteEdge{sink}, edge);
}
} // namespace

AcGePoint2d takePoint(DxfSource& source, int code)
{
    AcGePoint2d point;
    takeNumber(source, code, point.x);
    takeNumber(source, code + 10, point.y);
    double height = 0.0; // points of lists have three coordinates
    takeNumber(source, code + 20, height);
    return point;
}

Loop readLoop(DxfSource& source)
{
    Loop loop;
    std::int64_t sources = 0;
    takeNumber(source, 92, loop.type);
    bool hasSources = false;
    if (loop.isPolyline())
        readVertices(source, loop);
    else
        hasSources = readEdges(source, loop, sources);
    if (hasSources || takeNumber(source, 97, sources)) readSources(source, loop);
    return loop;
}

void writeLoop(const Loop& loop, DxfSink& sink)
{
    sink.integer(92, loop.type);
    if (loop.isPolyline())
        writeVertices(loop, sink);
    else
        writeEdges(loop, sink);
    sink.integer(97, static_cast<std::int64_t>(loop.sources.size()));
    for (const AcDbObjectId& id : loop.sources)
        sink.handle(330, id);
}
} // namespace hatch
