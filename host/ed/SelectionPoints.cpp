#include "SelectionPoints.h"

#include "CurrentUcs.h"

#include <cmath>

namespace ed
{
Verdict answeredPoint(const Answer& answer, const std::optional<AcGePoint3d>& base, AcGePoint3d& point,
                      std::wstring& message)
{
    const AcGeMatrix3d toWorld = ucsToWorld();
    PointContext context;
    context.checkLimits = false;
    if (base) context.base = toWorld.inverse() * *base;
    AcGePoint3d inUcs;
    const Verdict verdict = readPoint(answer, context, inUcs, message);
    if (verdict == Verdict::good) point = toWorld * inUcs;
    return verdict;
}

std::optional<AcGePoint3d> worldPoint(const ads_real* point)
{
    if (!point || !std::isfinite(point[X]) || !std::isfinite(point[Y]) || !std::isfinite(point[Z])) return std::nullopt;
    return ucsToWorld() * AcGePoint3d(point[X], point[Y], point[Z]);
}

std::optional<std::vector<AcGePoint3d>> worldPoints(const resbuf* list)
{
    std::vector<AcGePoint3d> points;
    for (; list; list = list->rbnext) {
        const ads_point at = {list->resval.rpoint[X], list->resval.rpoint[Y],
                              list->restype == RT3DPOINT ? list->resval.rpoint[Z] : 0.0};
        const bool isPoint = list->restype == RTPOINT || list->restype == RT3DPOINT;
        const std::optional<AcGePoint3d> point = isPoint ? worldPoint(at) : std::nullopt;
        if (!point) return std::nullopt;
        points.push_back(*point);
    }
    return points;
}

DrawnArea windowOf(const SelectionView& view, SelectionCause::Kind kind, const AcGePoint3d& one,
                   const AcGePoint3d& other)
{
    DrawnArea drawn{SelectionArea::rectangle(view.place(one), view.place(other)), {kind, {}, view.direction}};
    for (const AcGePoint2d& corner : drawn.area.points()) drawn.cause.points.push_back(view.raise(corner));
    return drawn;
}

std::optional<DrawnArea> polygonOf(const SelectionView& view, SelectionCause::Kind kind,
                                   const std::vector<AcGePoint3d>& points)
{
    const bool isFence = kind == SelectionCause::Kind::fence;
    if (points.size() < (isFence ? 2u : 3u)) return std::nullopt;
    std::vector<AcGePoint2d> placed;
    for (const AcGePoint3d& point : points) placed.push_back(view.place(point));
    return DrawnArea{isFence ? SelectionArea::fence(std::move(placed)) : SelectionArea::polygon(std::move(placed)),
                     {kind, points, view.direction}};
}

SelectionCause pickAt(const SelectionView& view, const AcGePoint3d& point)
{
    return {SelectionCause::Kind::pick, {point}, view.direction};
}

SelectionCause::Kind kindByDirection(const SelectionView& view, const AcGePoint3d& one, const AcGePoint3d& other)
{
    return view.place(other).x >= view.place(one).x ? SelectionCause::Kind::window : SelectionCause::Kind::crossing;
}
} // namespace ed
