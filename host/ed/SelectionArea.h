#pragma once

/// What the user draws to select: a window, a polygon or a fence, in the plane of the view.

#include "PlaneShapes.h"

namespace ed
{
class SelectionArea
{
public:
    /// Two opposite corners.
    static SelectionArea rectangle(const AcGePoint2d& one, const AcGePoint2d& other);
    /// At least three corners.
    static SelectionArea polygon(std::vector<AcGePoint2d> corners);
    /// At least two points.
    static SelectionArea fence(std::vector<AcGePoint2d> points);

    const PlaneBox& box() const { return mBox; }
    const std::vector<AcGePoint2d>& points() const { return mPoints; }

    /// False only when nothing in the box can meet the area.
    bool mayMeet(const PlaneBox& box) const;
    /// A fence holds nothing.
    bool holds(const PlaneBox& box) const;
    bool holds(const AcGePoint2d& point) const;
    bool holds(const PlaneSegment& segment) const;
    bool holds(const PlaneArc& arc) const;

    /// Whether a part lies in the area or on its edge, or crosses the fence.
    bool meets(const PlaneSegment& segment) const;
    bool meets(const PlaneArc& arc) const;
    /// A filled area, by its edges: whether it covers a part of the area.
    bool isIn(const std::vector<std::vector<AcGePoint2d>>& loops) const;

    /// Appends the points where the edge is met.
    void addCrossings(const PlaneSegment& segment, std::vector<AcGePoint2d>& points) const;
    void addCrossings(const PlaneArc& arc, std::vector<AcGePoint2d>& points) const;

private:
    enum class Kind { rectangle, polygon, fence };
    SelectionArea(Kind kind, std::vector<AcGePoint2d> points);
    std::size_t edgeCount() const { return mKind == Kind::fence ? mPoints.size() - 1 : mPoints.size(); }
    PlaneSegment edge(std::size_t i) const { return {mPoints[i], mPoints[(i + 1) % mPoints.size()]}; }

    Kind mKind;
    std::vector<AcGePoint2d> mPoints;
    PlaneBox mBox;
};
} // namespace ed
