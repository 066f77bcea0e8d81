#include "HatchOutlines.h"

#include "dbarc.h"
#include "dbcircle.h"
#include "dbelipse.h"
#include "dbline.h"
#include "dbpl.h"
#include "dbregion.h"
#include "dbspline.h"
#include "gearc2d.h"
#include "geell2d.h"
#include "gelnsg2d.h"
#include "genurb2d.h"
#include "RegionExclusion.h"

#include <cmath>

namespace entity
{
namespace
{
using Curves = std::vector<std::unique_ptr<AcDbCurve>>;

AcGePoint3d lifted(const AcGePoint2d& p)
{
    return {p.x, p.y, 0.0};
}

/// A loop as the hatch hands it out: vertices, or edges.
struct LoopParts {
    AcGePoint2dArray vertices;
    AcGeDoubleArray bulges;
    std::vector<std::unique_ptr<AcGeCurve2d>> edges;

    bool read(const AcDbHatch& hatch, int index)
    {
        Adesk::Int32 type = 0;
        if (hatch.loopTypeAt(index) & AcDbHatch::kPolyline)
            return hatch.getLoopAt(index, type, vertices, bulges) == Acad::eOk;
        AcGeVoidPointerArray pointers;
        AcGeIntArray types;
        if (hatch.getLoopAt(index, type, pointers, types) != Acad::eOk) return false;
        for (void* const edge : pointers)
            edges.emplace_back(static_cast<AcGeCurve2d*>(edge));
        return true;
    }
};

double bulgeOf(const AcGeCurve2d& edge)
{
    if (edge.type() != AcGe::kCircArc2d) return 0.0;
    const auto& arc = static_cast<const AcGeCircArc2d&>(edge);
    const double bulge = std::tan((arc.endAng() - arc.startAng()) / 4.0);
    return arc.isClockWise() ? -bulge : bulge;
}

bool isOfLinesAndArcs(const LoopParts& parts)
{
    for (const auto& edge : parts.edges)
        if (edge->type() != AcGe::kLineSeg2d && edge->type() != AcGe::kCircArc2d) return false;
    return true;
}

bool isFullCircle(const AcGeCurve2d& edge)
{
    return edge.type() == AcGe::kCircArc2d && edge.isClosed();
}

struct Ends {
    AcGePoint2d start, end;
};

Ends endsOf(const AcGeCurve2d& edge)
{
    AcGeInterval range;
    edge.getInterval(range);
    return {edge.evalPoint(range.lowerBound()), edge.evalPoint(range.upperBound())};
}

/// Ends that a file has at one place differ by rounding.
bool meet(const AcGePoint2d& a, const AcGePoint2d& b)
{
    return a.distanceTo(b) <= 1e-6 + 1e-10 * a.asVector().length();
}

/// Turns the edges of a closed chain so that each starts where the one before it ends. False for others.
bool alignEdges(const std::vector<std::unique_ptr<AcGeCurve2d>>& edges)
{
    AcGePoint2d at = endsOf(*edges[0]).end;
    if (edges.size() > 1 && !meet(at, endsOf(*edges[1]).start) && !meet(at, endsOf(*edges[1]).end)) {
        edges[0]->reverseParam();
        at = endsOf(*edges[0]).end;
    }
    for (std::size_t i = 1; i < edges.size(); ++i) {
        if (!meet(at, endsOf(*edges[i]).start)) edges[i]->reverseParam();
        if (!meet(at, endsOf(*edges[i]).start)) return false;
        at = endsOf(*edges[i]).end;
    }
    return meet(at, endsOf(*edges[0]).start);
}

/// The vertices of edges; a full circle gives two.
void addVertices(const AcGeCurve2d& edge, AcGePoint2dArray& vertices, AcGeDoubleArray& bulges)
{
    AcGeInterval range;
    edge.getInterval(range);
    const bool isFull = isFullCircle(edge);
    vertices.append(edge.evalPoint(range.lowerBound()));
    bulges.append(isFull ? std::copysign(1.0, bulgeOf(edge)) : bulgeOf(edge));
    if (!isFull) return;
    vertices.append(edge.evalPoint((range.lowerBound() + range.upperBound()) / 2.0));
    bulges.append(bulges.last());
}

std::unique_ptr<AcDbPolyline> polylineOf(const LoopParts& parts)
{
    if (!parts.edges.empty() && !alignEdges(parts.edges)) return nullptr;
    AcGePoint2dArray vertices = parts.vertices;
    AcGeDoubleArray bulges = parts.bulges;
    for (const auto& edge : parts.edges)
        addVertices(*edge, vertices, bulges);
    if (vertices.length() > 1 && vertices.first().isEqualTo(vertices.last())) vertices.removeLast();
    auto polyline = std::make_unique<AcDbPolyline>(static_cast<unsigned>(vertices.length()));
    for (int i = 0; i < vertices.length(); ++i) {
        const double bulge = i < bulges.length() ? bulges[i] : 0.0;
        if (polyline->addVertexAt(static_cast<unsigned>(i), vertices[i], bulge) != Acad::eOk) return nullptr;
    }
    polyline->setClosed(true);
    return vertices.length() > 1 ? std::move(polyline) : nullptr;
}

std::unique_ptr<AcDbCurve> curveOf(const AcGeCircArc2d& arc)
{
    if (arc.isClosed())
        return std::make_unique<AcDbCircle>(lifted(arc.center()), AcGeVector3d::kZAxis, arc.radius());
    // An arc that runs clockwise ends where the entity starts.
    const AcGeVector2d start = (arc.isClockWise() ? arc.endPoint() : arc.startPoint()) - arc.center();
    const AcGeVector2d end = (arc.isClockWise() ? arc.startPoint() : arc.endPoint()) - arc.center();
    return std::make_unique<AcDbArc>(lifted(arc.center()), arc.radius(), start.angle(), end.angle());
}

std::unique_ptr<AcDbCurve> curveOf(const AcGeEllipArc2d& arc)
{
    const AcGeVector2d major = arc.majorAxis() * arc.majorRadius(), minor = arc.minorAxis();
    const bool turnsLeft = arc.majorAxis().x * minor.y - arc.majorAxis().y * minor.x > 0.0;
    auto ellipse = std::make_unique<AcDbEllipse>();
    const AcGeVector3d normal = turnsLeft ? AcGeVector3d::kZAxis : -AcGeVector3d::kZAxis;
    const Acad::ErrorStatus status = ellipse->set(lifted(arc.center()), normal, {major.x, major.y, 0.0},
                                                  arc.minorRadius() / arc.majorRadius());
    if (status != Acad::eOk) return nullptr;
    if (arc.isClosed()) return ellipse;
    ellipse->setStartParam(arc.startAng());
    ellipse->setEndParam(arc.endAng());
    return ellipse;
}

std::unique_ptr<AcDbCurve> curveOf(const AcGeNurbCurve2d& curve)
{
    AcGePoint3dArray points;
    AcGeDoubleArray knots, weights;
    for (int i = 0; i < curve.numControlPoints(); ++i)
        points.append(lifted(curve.controlPointAt(i)));
    for (int i = 0; i < curve.numKnots(); ++i)
        knots.append(curve.knotAt(i));
    for (int i = 0; i < curve.numWeights(); ++i)
        weights.append(curve.weightAt(i));
    auto spline = std::make_unique<AcDbSpline>();
    const Acad::ErrorStatus status = spline->setNurbsData(curve.degree(), curve.isRational(), false, false,
                                                          points, knots, weights, 0.0, 0.0);
    return status == Acad::eOk ? std::move(spline) : nullptr;
}

std::unique_ptr<AcDbCurve> curveOf(const AcGeCurve2d& edge)
{
    switch (edge.type()) {
    case AcGe::kCircArc2d:
        return curveOf(static_cast<const AcGeCircArc2d&>(edge));
    case AcGe::kEllipArc2d:
        return curveOf(static_cast<const AcGeEllipArc2d&>(edge));
    case AcGe::kNurbCurve2d:
        return curveOf(static_cast<const AcGeNurbCurve2d&>(edge));
    case AcGe::kLineSeg2d: {
        const auto& segment = static_cast<const AcGeLineSeg2d&>(edge);
        return std::make_unique<AcDbLine>(lifted(segment.startPoint()), lifted(segment.endPoint()));
    }
    default:
        return nullptr;
    }
}

/// In the plane of the hatch; empty when an edge has no entity.
Curves curvesOf(const LoopParts& parts)
{
    Curves curves;
    if (isOfLinesAndArcs(parts)) {
        if (auto polyline = polylineOf(parts)) curves.push_back(std::move(polyline));
        return curves;
    }
    for (const auto& edge : parts.edges) {
        auto curve = curveOf(*edge);
        if (!curve) return {};
        curves.push_back(std::move(curve));
    }
    return curves;
}

/// What lies inside of the curves; null when they make no closed chains.
std::unique_ptr<AcDbRegion> regionOf(const Curves& curves)
{
    AcDbVoidPtrArray segments, made;
    for (const auto& curve : curves)
        segments.append(curve.get());
    AcDbRegion::createFromCurves(segments, made);
    std::vector<std::unique_ptr<AcDbRegion>> regions;
    for (void* const region : made)
        regions.emplace_back(static_cast<AcDbRegion*>(region));
    return areaByTurns(std::move(regions));
}

/// From the plane of the hatch to the world.
AcGeMatrix3d planeOf(const AcDbHatch& hatch)
{
    AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(hatch.normal());
    return toWorld * AcGeMatrix3d::translation({0.0, 0.0, hatch.elevation()});
}
} // namespace

bool appendOutlines(const AcDbHatch& hatch, int loop, bool asRegion,
                    std::vector<std::unique_ptr<AcDbEntity>>& outlines)
{
    LoopParts parts;
    if (!parts.read(hatch, loop)) return false;
    Curves curves = curvesOf(parts);
    if (curves.empty()) return false;
    const AcGeMatrix3d toWorld = planeOf(hatch);
    for (const auto& curve : curves)
        if (curve->transformBy(toWorld) != Acad::eOk) return false;
    if (!asRegion) {
        std::move(curves.begin(), curves.end(), std::back_inserter(outlines));
        return true;
    }
    outlines.push_back(regionOf(curves));
    return outlines.back() != nullptr;
}
} // namespace entity
