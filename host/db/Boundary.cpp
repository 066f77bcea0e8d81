#include "Boundary.h"

#include "BoundaryTrace.h"
#include "dbblkref.h"
#include "dbblock.h"
#include "dbcurve.h"
#include "dbpl.h"
#include "dbregion.h"
#include "gearc2d.h"
#include "PlaneFrame.h"
#include "RegionAccess.h"
#include "Stub.h"

#include <algorithm>
#include <cmath>

namespace boundary
{
namespace
{
/// References nest; a drawing that is damaged may nest a block in itself.
constexpr int deepestNesting = 16;

bool isOnShownLayer(const AcDbEntity& entity)
{
    const auto* layer = AcDbLayerTableRecord::cast(residentObject(entity.layerId()));
    return !layer || (!layer->isOff() && !layer->isFrozen());
}

bool isSeen(const AcDbEntity& entity)
{
    return entity.visibility() == AcDb::kVisible && isOnShownLayer(entity);
}

bool canBound(const AcDbEntity& entity)
{
    return entity.isKindOf(AcDbCurve::desc()) || entity.isKindOf(AcDbRegion::desc()) ||
           entity.isKindOf(AcDbBlockReference::desc());
}

/// The curves of entities in the coordinates of a plane.
class FlatCurves
{
public:
    explicit FlatCurves(const AcGeMatrix3d& worldToPlane) : mWorldToPlane(worldToPlane) {}

    void add(const AcDbEntity& entity, int depth = 0)
    {
        if (!isSeen(entity) || !canBound(entity) || depth > deepestNesting) return;
        if (entity.isKindOf(AcDbBlockReference::desc())) return addContents(entity, depth);
        AcDbEntity::Curves curves;
        entity.intersectionCurves(curves, false);
        for (const auto& curve : curves)
            addCurve(*curve);
    }

    std::vector<kernel::TraceCurve> traceable() const
    {
        std::vector<kernel::TraceCurve> list;
        list.reserve(mCurves.size());
        for (const kernel::CurvePtr& curve : mCurves)
            list.push_back({curve.get(), static_cast<int>(list.size())});
        return list;
    }

private:
    void addContents(const AcDbEntity& reference, int depth)
    {
        AcDbVoidPtrArray parts;
        reference.explode(parts);
        for (void* const part : parts) {
            const std::unique_ptr<AcDbEntity> owned(static_cast<AcDbEntity*>(part));
            add(*owned, depth + 1);
        }
    }

    void addCurve(const AcGeCurve3d& curve)
    {
        if (!isLevel(curve)) return;
        if (kernel::CurvePtr flat = kernel::toPlane(curve, mWorldToPlane)) mCurves.push_back(std::move(flat));
    }

    /// Every point of the curve is at one height. A planar curve that five points show to be level is.
    bool isLevel(const AcGeCurve3d& curve) const
    {
        AcGeInterval range;
        curve.getInterval(range);
        const double from = range.isBoundedBelow() ? range.lowerBound() : 0.0;
        const double to = range.isBoundedAbove() ? range.upperBound() : from + 1.0;
        double low = heightAt(curve, from), high = low;
        for (int i = 1; i <= 4; ++i) {
            const double height = heightAt(curve, from + (to - from) * i / 4.0);
            low = std::min(low, height);
            high = std::max(high, height);
        }
        return high - low <= 1e-6 * (1.0 + std::max(std::fabs(low), std::fabs(high)));
    }

    double heightAt(const AcGeCurve3d& curve, double param) const
    {
        return (mWorldToPlane * curve.evalPoint(param)).z;
    }

    AcGeMatrix3d mWorldToPlane;
    std::vector<kernel::CurvePtr> mCurves;
};

bool isArc(const AcGeCurve2d& curve)
{
    return curve.type() == AcGe::kCircArc2d;
}

bool isPolyline(const kernel::TraceLoop& loop)
{
    return std::all_of(loop.pieces.begin(), loop.pieces.end(), [](const kernel::TracePiece& piece) {
        return piece.curve->type() == AcGe::kLineSeg2d || isArc(*piece.curve);
    });
}

/// The bulge of a part of a circle.
double bulgeOf(const AcGeCircArc2d& arc, double part)
{
    const double bulge = std::tan((arc.endAng() - arc.startAng()) * part / 4.0);
    return arc.isClockWise() ? -bulge : bulge;
}

/// A full circle is two arcs, as no polyline has one of a whole turn.
void addVertices(AcDbPolyline& polyline, const AcGeCurve2d& piece)
{
    AcGeInterval range;
    piece.getInterval(range);
    const int parts = isArc(piece) && piece.isClosed() ? 2 : 1;
    for (int i = 0; i < parts; ++i) {
        const AcGePoint2d at = piece.evalPoint(range.lowerBound() + range.length() * i / parts);
        const double bulge =
            isArc(piece) ? bulgeOf(static_cast<const AcGeCircArc2d&>(piece), 1.0 / parts) : 0.0;
        polyline.addVertexAt(polyline.numVerts(), at, bulge);
    }
}

std::unique_ptr<AcDbEntity> polylineOf(const kernel::TraceLoop& loop, const AcGeMatrix3d& planeToWorld)
{
    auto polyline = std::make_unique<AcDbPolyline>();
    for (const kernel::TracePiece& piece : loop.pieces)
        addVertices(*polyline, *piece.curve);
    polyline->setClosed(true);
    polyline->transformBy(planeToWorld);
    return polyline;
}

std::unique_ptr<AcDbEntity> regionOf(const kernel::TraceLoop& loop, const AcGeMatrix3d& planeToWorld)
{
    kernel::LoopCurves curves;
    for (const kernel::TracePiece& piece : loop.pieces)
        curves.push_back(kernel::toWorld(*piece.curve, planeToWorld));
    kernel::RegionStatus status = kernel::RegionStatus::kOk;
    const AcGeVector3d normal = planeToWorld * AcGeVector3d::kZAxis;
    kernel::Region shape = kernel::Region::fromFaces({{curves}}, normal, status);
    return status == kernel::RegionStatus::kOk ? RegionAccess::make(std::move(shape)) : nullptr;
}
} // namespace

std::vector<AcDbObjectId> candidatesIn(AcDbObjectId block)
{
    std::vector<AcDbObjectId> ids;
    const auto* record = AcDbBlockTableRecord::cast(residentObject(block));
    if (!record) return ids;
    for (const AcDbObjectId& id : record->entityIds()) {
        const AcDbEntity* entity = id.isErased() ? nullptr : AcDbEntity::cast(residentObject(id));
        if (entity && canBound(*entity) && isSeen(*entity)) ids.push_back(id);
    }
    return ids;
}

Outlines around(const std::vector<AcDbObjectId>& candidates, const Query& query)
{
    FlatCurves curves(query.planeToWorld.inverse());
    for (const AcDbObjectId& id : candidates)
        if (const AcDbEntity* entity = AcDbEntity::cast(residentObject(id))) curves.add(*entity);
    kernel::TraceOptions options;
    options.islands = query.islands ? kernel::IslandMode::kNested : kernel::IslandMode::kNone;
    const kernel::TraceResult traced =
        kernel::traceBoundary(curves.traceable(), {query.seed.x, query.seed.y}, options);

    Outlines outlines;
    const AcGeMatrix3d level = query.planeToWorld * AcGeMatrix3d::translation({0.0, 0.0, query.seed.z});
    for (const kernel::TraceLoop& loop : traced.loops) {
        const bool asPolyline = !query.asRegions && isPolyline(loop);
        std::unique_ptr<AcDbEntity> outline = asPolyline ? polylineOf(loop, level) : regionOf(loop, level);
        if (!outline) return {};
        outline->setDatabaseDefaults();
        outlines.push_back(std::move(outline));
    }
    return outlines;
}
} // namespace boundary
