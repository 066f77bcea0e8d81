/// The loops of hatches, given and taken.

#include "dbhatch.h"
#include "HatchEdges.h"
#include "HatchSources.h"
#include "PlanarCoords.h"

namespace
{
constexpr AcGe::EntityId curveTypes[] = {AcGe::kLineSeg2d, AcGe::kCircArc2d, AcGe::kEllipArc2d,
                                         AcGe::kNurbCurve2d};

bool isOfType(const AcGeCurve2d& curve, int edgeType)
{
    return edgeType >= AcDbHatch::kLine && edgeType <= AcDbHatch::kSpline &&
           curve.type() == curveTypes[edgeType - 1];
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
    return hatch::loopOfCurves(std::move(curves), type, loop) ? Acad::eOk : Acad::eInvalidInput;
}

template <class Item>
bool allFinite(const AcArray<Item>& items)
{
    for (const Item& item : items)
        if (!isFinite(item)) return false;
    return true;
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
    hatch::dropRepeatedEnd(loop);
    const std::size_t fewest = loop.bulges.empty() ? 3 : 2;
    return loop.points.size() < fewest ? Acad::eInvalidInput : Acad::eOk;
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

Acad::ErrorStatus AcDbHatch::insertLoops(int index, std::vector<hatch::Loop> loops)
{
    if (index < 0 || index > numLoops()) return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = beginPatternChange();
    if (status != Acad::eOk) return status;
    for (const hatch::Loop& loop : loops)
        mSourcesChanged |= !loop.sources.empty();
    mLoops.insert(mLoops.begin() + index, std::make_move_iterator(loops.begin()),
                  std::make_move_iterator(loops.end()));
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
    return status == Acad::eOk ? insertLoops(loopIndex, {std::move(loop)}) : status;
}

Acad::ErrorStatus AcDbHatch::insertLoopAt(int loopIndex, Adesk::Int32 loopType,
                                          const AcGePoint2dArray& vertices, const AcGeDoubleArray& bulges)
{
    hatch::Loop loop;
    const Acad::ErrorStatus status = vertexLoop(loopType, vertices, bulges, loop);
    return status == Acad::eOk ? insertLoops(loopIndex, {std::move(loop)}) : status;
}

Acad::ErrorStatus AcDbHatch::insertLoopAt(int loopIndex, Adesk::Int32 loopType,
                                          const AcDbObjectIdArray& dbObjIds)
{
    const std::vector<AcDbObjectId> sources(dbObjIds.begin(), dbObjIds.end());
    std::vector<hatch::Loop> loops;
    const Acad::ErrorStatus status = hatch::loopsOf(sources, nullptr, plane(), loopType, loops);
    if (status != Acad::eOk) return status;
    if (associative())
        for (hatch::Loop& loop : loops)
            loop.sources = sources;
    return insertLoops(loopIndex, std::move(loops));
}

Acad::ErrorStatus AcDbHatch::removeLoopAt(int loopIndex)
{
    if (loopIndex < 0 || loopIndex >= numLoops()) return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = beginPatternChange();
    if (status == Acad::eOk) mLoops.erase(mLoops.begin() + loopIndex);
    return status;
}
