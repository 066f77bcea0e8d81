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
    AcGePoint2dArray vertices = parts.vertices;
    AcGeDoubleArray bulges = parts.bulges;
    for (const auto& edge : parts.edges)
        addVertices(*edge, vertices, bulges);
    if (vertices.length() > 1 && vertices.first().isEqualTo(vertices.last())) vertices.removeLast();
    auto polyline = std::make_unique<AcDbPolyline>(static_cast<unsigned>(vertices.length()));
    for (int i = 0; i < vertices.length(); ++i)
        polyline->addVertexAt(static_cast<unsigned>(i), vertices[i], i < bulges.length() ? bulges[i] : 0.0);
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
    ellipse->set(lifted(arc.center()), normal, {major.x, major.y, 0.0},
                 arc.minorRadius() / arc.majorRadius());
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
