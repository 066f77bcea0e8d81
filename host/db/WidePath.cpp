#include "WidePath.h"

#include <cmath>

bool miterOf(const AcGeVector2d& before, const AcGeVector2d& after, AcGeVector2d& corner)
{
    constexpr double sharpest = 0.25;
    const double turn = 1.0 + before.dotProduct(after);
    if (!(turn > sharpest)) return false;
    corner = (before + after) / turn;
    return true;
}

namespace
{
constexpr double pi = 3.14159265358979323846;

AcGeVector2d leftOf(const BulgeSegment& segment, double t)
{
    const double angle = segment.tangentAngleAt(t);
    return {-std::sin(angle), std::cos(angle)};
}

/// One segment with the half widths at its ends.
class WideSegment
{
public:
    WideSegment(const BulgePath& path, int index)
        : mShape(path.segment(index)), mStart(path.widthsAt(index).first / 2.0),
          mEnd(path.widthsAt(index).second / 2.0)
    {
    }

    bool isPoint() const { return mShape.isPoint(); }
    double halfAt(double t) const { return mStart + t * (mEnd - mStart); }
    AcGeVector2d left(double t) const { return leftOf(mShape, t); }
    AcGePoint2d end() const { return mShape.end(); }
    /// A point of the left edge, or with -1 of the right one.
    AcGePoint2d edge(double t, double side) const { return mShape.pointAt(t) + side * halfAt(t) * left(t); }

    /// Calls `visit` with the parameters where an edge runs across an axis of the plane.
    template <class Visit>
    void forEachExtreme(const AcGeVector2d& axis, double side, Visit visit) const
    {
        if (!mShape.isArc() || (axis.x == 0.0 && axis.y == 0.0)) return;
        const double bend = mShape.sweep(), start = mShape.tangentAngleAt(0.0);
        const double across = std::atan2(axis.x, -axis.y);
        // The edge's own extremes lie less than a quarter turn beside those of the arc.
        const double low = std::fmin(start, start + bend) - pi / 2.0,
                     high = std::fmax(start, start + bend) + pi / 2.0;
        for (double angle = across + pi * std::ceil((low - across) / pi); angle <= high; angle += pi) {
            const double t = edgeExtreme((angle - start) / bend, side);
            if (t > 0.0 && t < 1.0) visit(t);
        }
    }

private:
    /// The extreme of an edge that belongs to one of the arc itself: a width that changes turns the edge.
    double edgeExtreme(double ofArc, double side) const
    {
        const double bend = mShape.sweep(), speed = std::fabs(bend) * mShape.radius();
        double t = ofArc;
        for (int i = 0; i < 30; ++i)
            t = ofArc - std::atan(side * (mEnd - mStart) / (speed - side * halfAt(t) * bend)) / bend;
        return t;
    }

    BulgeSegment mShape;
    double mStart, mEnd;
};

/// Adds points of a plane to extents in space.
struct PlaneExtents {
    const AcGeMatrix3d& world;
    AcDbExtents& extents;
    void add(const AcGePoint2d& point) { extents.addPoint(world * AcGePoint3d(point.x, point.y, 0.0)); }
};

void addEdges(const WideSegment& segment, PlaneExtents& to)
{
    for (const double side : {1.0, -1.0}) {
        to.add(segment.edge(0.0, side));
        to.add(segment.edge(1.0, side));
        for (int row = 0; row < 3; ++row) {
            const auto& axis = to.world.entry[row];
            segment.forEachExtreme({axis[0], axis[1]}, side,
                                   [&](double t) { to.add(segment.edge(t, side)); });
        }
    }
}

void addMiter(const WideSegment& before, const WideSegment& after, PlaneExtents& to)
{
    AcGeVector2d corner;
    const double half = before.halfAt(1.0);
    if (half != after.halfAt(0.0) || !miterOf(before.left(1.0), after.left(0.0), corner)) return;
    to.add(before.end() + half * corner);
    to.add(before.end() - half * corner);
}
} // namespace

void addWideExtents(const BulgePath& path, const AcGeMatrix3d& world, AcDbExtents& extents)
{
    PlaneExtents to{world, extents};
    std::vector<WideSegment> segments;
    for (int i = 0; i < path.segments(); ++i) {
        segments.emplace_back(path, i);
        if (segments.back().isPoint()) segments.pop_back();
    }
    for (std::size_t i = 0; i < segments.size(); ++i) {
        addEdges(segments[i], to);
        const bool isLast = i + 1 == segments.size();
        if (!isLast || path.isClosed) addMiter(segments[i], segments[isLast ? 0 : i + 1], to);
    }
}
