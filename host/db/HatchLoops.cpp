/// The loops of hatches, given and taken.

#include "dbhatch.h"
#include "dbpl.h"
#include "HatchEdges.h"
#include "PlanarCoords.h"
#include "PlaneFrame.h"

#include "BulgePath.h"

namespace
{
constexpr AcGe::EntityId curveTypes[] = {AcGe::kLineSeg2d, AcGe::kCircArc2d, AcGe::kEllipArc2d,
                                         AcGe::kNurbCurve2d};

bool isOfType(const AcGeCurve2d& curve, int edgeType)
{
    return edgeType >= AcDbHatch::kLine && edgeType <= AcDbHatch::kSpline &&
           curve.type() == curveTypes[edgeType - 1];
}

/// A loop of curves in any direction that make one chain; false when they do not.
bool loopOfCurves(hatch::Curves curves, Adesk::Int32 type, hatch::Loop& loop)
{
    loop.type = type & ~AcDbHatch::kPolyline;
    if (!hatch::chain(curves)) return false;
    for (const auto& curve : curves) {
        hatch::Edge edge;
        if (!hatch::edgeOf(*curve, edge)) return false;
        loop.edges.push_back(std::move(edge));
    }
    return true;
}

Acad::ErrorStatus edgeLoop(Adesk::Int32 type, const AcGeVoidPointerArray& edgePtrs,
                           const AcGeIntArray& edgeTypes, hatch::Loop& loop)
{
    if (edgePtrs.isEmpty() || edgePtrs.length() != edgeTypes.length()) return Acad::eInvalidInput;
    hatch::Curves curves;
    for (int i = 0; i < edgePtrs.length(); ++i) {
        const auto* curve = static_cast<const AcGeCurve2d*>(edgePtrs[i]);
        if (!curve || !isOfType(*curve, edgeTypes[i])) return Acad::eInvalidInput;
        curves.emplace_back(static_cast<const AcGeCurve2d*>(curve->copy()));
    }
    return loopOfCurves(std::move(curves), type, loop) ? Acad::eOk : Acad::eInvalidInput;
}

template <class Item>
bool allFinite(const AcArray<Item>& items)
{
    for (const Item& item : items)
        if (!isFinite(item)) return false;
    return true;
}

void dropRepeatedEnd(hatch::Loop& loop)
{
    if (loop.points.size() < 2 || !loop.points.back().isEqualTo(loop.points.front())) return;
    loop.points.pop_back();
    if (!loop.bulges.empty()) loop.bulges.pop_back();
}

Acad::ErrorStatus vertexLoop(Adesk::Int32 type, const AcGePoint2dArray& vertices,
                             const AcGeDoubleArray& bulges, hatch::Loop& loop)
{
    if (!bulges.isEmpty() && bulges.length() != vertices.length()) return Acad::eInvalidInput;
    if (!allFinite(vertices) || !allFinite(bulges)) return Acad::eInvalidInput;
    loop.type = type | AcDbHatch::kPolyline;
    loop.points.assign(vertices.begin(), vertices.end());
    for (const double bulge : bulges)
        if (bulge != 0.0) loop.bulges.assign(bulges.begin(), bulges.end());
    dropRepeatedEnd(loop);
    const std::size_t fewest = loop.bulges.empty() ? 3 : 2;
    return loop.points.size() < fewest ? Acad::eInvalidInput : Acad::eOk;
}

/// A closed polyline in a plane parallel to the hatch keeps its vertices.
bool takeVertices(const AcDbEntity& entity, const AcGeVector3d& normal, hatch::Loop& loop)
{
    const AcDbPolyline* polyline = AcDbPolyline::cast(&entity);
    if (!polyline || !polyline->isClosed() || !polyline->normal().isEqualTo(normal)) return false;
    const BulgePath path = polyline->path();
    loop.points.assign(path.points, path.points + path.count);
    if (path.hasArcs()) loop.bulges.assign(path.bulges, path.bulges + path.count);
    dropRepeatedEnd(loop);
    loop.type |= AcDbHatch::kPolyline;
    return loop.points.size() > 1;
}

bool addCurves(const AcDbEntity& entity, const AcGeMatrix3d& worldToPlane, hatch::Curves& curves)
{
    AcDbEntity::Curves parts;
    entity.intersectionCurves(parts, false);
    for (const auto& part : parts) {
        auto curve = kernel::toPlane(*part, worldToPlane);
        if (!curve) return false;
        curves.push_back(std::move(curve));
    }
    return !parts.empty();
}
} // namespace

Adesk::Int32 AcDbHatch::loopTypeAt(int loopIndex) const
{
    return loopIndex < 0 || loopIndex >= numLoops() ? -1 : mLoops[static_cast<std::size_t>(loopIndex)].type;
}

Acad::ErrorStatus AcDbHatch::getLoopAt(int loopIndex, Adesk::Int32& loopType, AcGeVoidPointerArray& edgePtrs,
                                       AcGeIntArray& edgeTypes) const
{
    if (loopIndex < 0 || loopIndex >= numLoops()) return Acad::eInvalidIndex;
    const hatch::Loop& loop = mLoops[static_cast<std::size_t>(loopIndex)];
    if (loop.isPolyline()) return Acad::eInvalidInput;
    loopType = loop.type;
    for (const hatch::Edge& edge : loop.edges) {
        const auto curve = hatch::curveOf(edge);
        if (!curve) continue;
        edgePtrs.append(curve->copy());
        edgeTypes.append(static_cast<int>(edge.index()) + kLine);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getLoopAt(int loopIndex, Adesk::Int32& loopType, AcGePoint2dArray& vertices,
                                       AcGeDoubleArray& bulges) const
{
    if (loopIndex < 0 || loopIndex >= numLoops()) return Acad::eInvalidIndex;
    const hatch::Loop& loop = mLoops[static_cast<std::size_t>(loopIndex)];
    if (!loop.isPolyline()) return Acad::eInvalidInput;
    loopType = loop.type;
    for (std::size_t i = 0; i < loop.points.size(); ++i) {
        vertices.append(loop.points[i]);
        bulges.append(loop.bulgeAt(i));
    }
    if (loop.points.empty()) return Acad::eOk;
    vertices.append(loop.points.front());
    bulges.append(0.0);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::insertLoop(int index, hatch::Loop loop)
{
    if (index < 0 || index > numLoops()) return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = beginPatternChange();
    if (status != Acad::eOk) return status;
    mSourcesChanged |= !loop.sources.empty();
    mLoops.insert(mLoops.begin() + index, std::move(loop));
    return status;
}

Acad::ErrorStatus AcDbHatch::appendLoop(Adesk::Int32 loopType, const AcGeVoidPointerArray& edgePtrs,
                                        const AcGeIntArray& edgeTypes)
{
    return insertLoopAt(numLoops(), loopType, edgePtrs, edgeTypes);
}

Acad::ErrorStatus AcDbHatch::appendLoop(Adesk::Int32 loopType, const AcGePoint2dArray& vertices,
                                        const AcGeDoubleArray& bulges)
{
    return insertLoopAt(numLoops(), loopType, vertices, bulges);
}

Acad::ErrorStatus AcDbHatch::appendLoop(Adesk::Int32 loopType, const AcDbObjectIdArray& dbObjIds)
{
    return insertLoopAt(numLoops(), loopType, dbObjIds);
}

Acad::ErrorStatus AcDbHatch::insertLoopAt(int loopIndex, Adesk::Int32 loopType,
                                          const AcGeVoidPointerArray& edgePtrs, const AcGeIntArray& edgeTypes)
{
    hatch::Loop loop;
    const Acad::ErrorStatus status = edgeLoop(loopType, edgePtrs, edgeTypes, loop);
    return status == Acad::eOk ? insertLoop(loopIndex, std::move(loop)) : status;
}

Acad::ErrorStatus AcDbHatch::insertLoopAt(int loopIndex, Adesk::Int32 loopType,
                                          const AcGePoint2dArray& vertices, const AcGeDoubleArray& bulges)
{
    hatch::Loop loop;
    const Acad::ErrorStatus status = vertexLoop(loopType, vertices, bulges, loop);
    return status == Acad::eOk ? insertLoop(loopIndex, std::move(loop)) : status;
}

Acad::ErrorStatus AcDbHatch::insertLoopAt(int loopIndex, Adesk::Int32 loopType,
                                          const AcDbObjectIdArray& dbObjIds)
{
    hatch::Loop loop;
    loop.type = loopType;
    const Acad::ErrorStatus status = loopOf(dbObjIds, nullptr, loop);
    if (status != Acad::eOk) return status;
    if (associative()) loop.sources.assign(dbObjIds.begin(), dbObjIds.end());
    return insertLoop(loopIndex, std::move(loop));
}

Acad::ErrorStatus AcDbHatch::removeLoopAt(int loopIndex)
{
    if (loopIndex < 0 || loopIndex >= numLoops()) return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = beginPatternChange();
    if (status == Acad::eOk) mLoops.erase(mLoops.begin() + loopIndex);
    return status;
}

/// The loop that entities make; `open` is one of them that its user has open and cannot be opened again.
Acad::ErrorStatus AcDbHatch::loopOf(const AcDbObjectIdArray& ids, const AcDbEntity* open,
                                    hatch::Loop& loop) const
{
    const AcGeMatrix3d worldToPlane = planeToWorld().inverse();
    const Adesk::Int32 type = loop.type & ~kPolyline;
    hatch::Curves curves;
    for (const AcDbObjectId& id : ids) {
        AcDbEntity* opened = nullptr;
        const bool isOpen = open && open->objectId() == id;
        const Acad::ErrorStatus status = isOpen ? Acad::eOk : acdbOpenObject(opened, id);
        if (status != Acad::eOk) return status == Acad::eNotThatKindOfClass ? Acad::eInvalidInput : status;
        const AcDbEntity& entity = isOpen ? *open : *opened;
        loop.type = type;
        const bool isWhole = ids.length() == 1 && takeVertices(entity, mNormal, loop);
        const bool isTaken = isWhole || addCurves(entity, worldToPlane, curves);
        if (opened) opened->close();
        if (isWhole) return Acad::eOk;
        if (!isTaken) return Acad::eInvalidInput;
    }
    return loopOfCurves(std::move(curves), type, loop) ? Acad::eOk : Acad::eInvalidInput;
}
