/// What is seen of hatches: extents, the picture, lines of their own.

#include "acgi.h"
#include "BulgePath.h"
#include "dbhatch.h"
#include "dbline.h"
#include "dbpoint.h"
#include "geblok3d.h"
#include "HatchEdges.h"
#include "PlaneFrame.h"

namespace
{
using Path = std::vector<AcGePoint3d>;

AcGePoint3d placed(const AcGeMatrix3d& world, const AcGePoint2d& point)
{
    return world * AcGePoint3d(point.x, point.y, 0.0);
}

void addVertices(const hatch::Loop& loop, const AcGeMatrix3d& world, AcDbExtents& extents)
{
    for (const AcGePoint2d& point : loop.points)
        extents.addPoint(placed(world, point));
}

void addCurves(const hatch::Loop& loop, const AcGeMatrix3d& world, AcDbExtents& extents)
{
    for (const auto& curve : hatch::curvesOf(loop)) {
        AcGePoint3d low, high;
        kernel::toWorld(*curve, world)->orthoBoundBlock().getMinMaxPoints(low, high);
        extents.addPoint(low);
        extents.addPoint(high);
    }
}

void fill(AcGiWorldDraw& draw, const kernel::Polygons& polygons, const AcGeMatrix3d& world)
{
    std::vector<Path> paths;
    std::vector<AcGiLoop> loops;
    for (const kernel::Polygon& polygon : polygons) {
        Path path;
        for (const AcGePoint2d& point : polygon)
            path.push_back(placed(world, point));
        paths.push_back(std::move(path));
    }
    for (const Path& path : paths)
        loops.push_back({path.data(), static_cast<unsigned>(path.size())});
    if (!loops.empty()) draw.geometry().polyPolygon(static_cast<unsigned>(loops.size()), loops.data());
}
} // namespace

Acad::ErrorStatus AcDbHatch::subGetGeomExtents(AcDbExtents& extents) const
{
    const AcGeMatrix3d world = planeToWorld();
    for (const hatch::Loop& loop : mLoops) {
        const bool isStraight = loop.isPolyline() && loop.bulges.empty();
        (isStraight ? addVertices : addCurves)(loop, world, extents);
    }
    return extents.isEmpty() ? Acad::eInvalidExtents : Acad::eOk;
}

bool AcDbHatch::subWorldDraw(AcGiWorldDraw* draw)
{
    if (mLoops.empty()) return true;
    const AcGeMatrix3d world = planeToWorld();
    const double deviation = draw->deviation(kAcGiMaxDevForBoundary, world * AcGePoint3d::kOrigin);
    const auto filled = [&] { return hatch::filledPolygons(mLoops, mStyle, deviation); };
    if (isGradient() && !mGradient->stops.empty()) {
        // One colour stands for the run of colours: what draws has no gradients.
        AcCmColor color;
        if (evaluateGradientColorAt(0.5F, color) == Acad::eOk) draw->subEntityTraits().setTrueColor(color);
    }
    if (mSolid || isGradient()) {
        fill(*draw, filled(), world);
        return true;
    }
    if (hasBackground()) {
        draw->subEntityTraits().setTrueColor(mBackground);
        fill(*draw, filled(), world);
        draw->subEntityTraits().setTrueColor(color());
    }
    drawPattern(*draw);
    return true;
}

void AcDbHatch::drawPattern(AcGiWorldDraw& draw) const
{
    const AcGeMatrix3d world = planeToWorld();
    const double deviation = draw.deviation(kAcGiMaxDevForBoundary, world * AcGePoint3d::kOrigin);
    std::vector<hatch::Segment> segments;
    // Lines that cannot be told apart look like a filled area.
    if (makeSegments(deviation, segments) != Acad::eOk) {
        fill(draw, hatch::filledPolygons(mLoops, mStyle, deviation), world);
        return;
    }
    for (const hatch::Segment& segment : segments) {
        const AcGePoint3d ends[] = {placed(world, segment.start), placed(world, segment.end)};
        draw.geometry().polyline(2, ends);
    }
}

Acad::ErrorStatus AcDbHatch::subExplode(AcDbVoidPtrArray& entitySet) const
{
    if (mSolid || isGradient()) return Acad::eCannotExplodeEntity;
    std::vector<hatch::Segment> segments;
    const Acad::ErrorStatus status = makeSegments(0.0, segments);
    if (status != Acad::eOk) return status;
    const AcGeMatrix3d world = planeToWorld();
    for (const hatch::Segment& segment : segments) {
        const AcGePoint3d start = placed(world, segment.start), end = placed(world, segment.end);
        AcDbEntity* part = nullptr;
        if (segment.start == segment.end)
            part = new AcDbPoint(start);
        else
            part = new AcDbLine(start, end);
        part->setPropertiesFrom(this);
        entitySet.append(part);
    }
    return Acad::eOk;
}
