#include "SelectionArea.h"

namespace
{
bool isWithin(const ed::PlaneBox& inner, const ed::PlaneBox& outer)
{
    return inner.min.x >= outer.min.x && inner.min.y >= outer.min.y && inner.max.x <= outer.max.x &&
           inner.max.y <= outer.max.y;
}
} // namespace

namespace ed
{
SelectionArea::SelectionArea(Kind kind, std::vector<AcGePoint2d> points) : mKind(kind), mPoints(std::move(points))
{
    for (const AcGePoint2d& point : mPoints) mBox.add(point);
}

SelectionArea SelectionArea::rectangle(const AcGePoint2d& one, const AcGePoint2d& other)
{
    return {Kind::rectangle, {one, {other.x, one.y}, other, {one.x, other.y}}};
}

SelectionArea SelectionArea::polygon(std::vector<AcGePoint2d> corners)
{
    return {Kind::polygon, std::move(corners)};
}

SelectionArea SelectionArea::fence(std::vector<AcGePoint2d> points)
{
    return {Kind::fence, std::move(points)};
}

bool SelectionArea::mayMeet(const PlaneBox& box) const
{
    return box.min.x <= mBox.max.x && box.max.x >= mBox.min.x && box.min.y <= mBox.max.y && box.max.y >= mBox.min.y;
}

bool SelectionArea::holds(const PlaneBox& box) const
{
    if (mKind == Kind::rectangle) return isWithin(box, mBox);
    if (mKind == Kind::fence || !isWithin(box, mBox)) return false;
    const AcGePoint2d right(box.max.x, box.min.y), left(box.min.x, box.max.y);
    return holds(PlaneSegment{box.min, right}) && holds(PlaneSegment{right, box.max}) &&
           holds(PlaneSegment{box.max, left}) && holds(PlaneSegment{left, box.min});
}

bool SelectionArea::holds(const AcGePoint2d& point) const
{
    if (mKind == Kind::fence) return false;
    const bool isInBox =
        point.x >= mBox.min.x && point.x <= mBox.max.x && point.y >= mBox.min.y && point.y <= mBox.max.y;
    return isInBox && (mKind == Kind::rectangle || isInside(mPoints, point));
}

bool SelectionArea::holds(const PlaneSegment& segment) const
{
    if (!holds(segment.start) || !holds(segment.end)) return false;
    for (std::size_t i = 0; mKind == Kind::polygon && i < edgeCount(); ++i) {
        if (cross(segment, edge(i))) return false;
    }
    return true;
}

bool SelectionArea::holds(const PlaneArc& arc) const
{
    if (mKind == Kind::rectangle) return holds(arc.box());
    if (!holds(arc.startPoint())) return false;
    std::vector<AcGePoint2d> crossings;
    addCrossings(arc, crossings);
    return crossings.empty();
}

bool SelectionArea::meets(const PlaneSegment& segment) const
{
    if (holds(segment.start) || holds(segment.end)) return true;
    PlaneBox box;
    box.add(segment.start);
    box.add(segment.end);
    AcGePoint2d point;
    for (std::size_t i = 0; mayMeet(box) && i < edgeCount(); ++i) {
        if (meet(segment, edge(i), point)) return true;
    }
    return false;
}

bool SelectionArea::meets(const PlaneArc& arc) const
{
    if (holds(arc.startPoint())) return true;
    std::vector<AcGePoint2d> crossings;
    addCrossings(arc, crossings);
    return !crossings.empty();
}

bool SelectionArea::isIn(const std::vector<std::vector<AcGePoint2d>>& loops) const
{
    bool inside = false;
    for (const std::vector<AcGePoint2d>& loop : loops) inside ^= isInside(loop, mPoints.front());
    return inside;
}

void SelectionArea::addCrossings(const PlaneSegment& segment, std::vector<AcGePoint2d>& points) const
{
    AcGePoint2d point;
    for (std::size_t i = 0; i < edgeCount(); ++i) {
        if (meet(edge(i), segment, point)) points.push_back(point);
    }
}

void SelectionArea::addCrossings(const PlaneArc& arc, std::vector<AcGePoint2d>& points) const
{
    if (arc.isFlat()) {
        const std::vector<AcGePoint2d> turns = arc.flatPoints();
        for (std::size_t i = 0; i + 1 < turns.size(); ++i) addCrossings(PlaneSegment{turns[i], turns[i + 1]}, points);
        return;
    }
    for (std::size_t i = 0; i < edgeCount(); ++i) addMeetings(arc, edge(i), points);
}
} // namespace ed
