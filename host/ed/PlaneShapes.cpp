#include "PlaneShapes.h"

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;

/// The point lies between the ends of a segment on whose line it is.
bool isBetween(const ed::PlaneSegment& segment, const AcGePoint2d& point)
{
    return std::min(segment.start.x, segment.end.x) <= point.x && point.x <= std::max(segment.start.x, segment.end.x) &&
           std::min(segment.start.y, segment.end.y) <= point.y && point.y <= std::max(segment.start.y, segment.end.y);
}

bool areOpposite(double a, double b)
{
    return (a > 0.0 && b < 0.0) || (a < 0.0 && b > 0.0);
}

/// An end of one that lies on the other.
bool touch(const ed::PlaneSegment& one, const ed::PlaneSegment& other, AcGePoint2d& point)
{
    for (const AcGePoint2d& end : {one.start, one.end}) {
        if (ed::sideOf(other.start, other.end, end) != 0.0 || !isBetween(other, end)) continue;
        point = end;
        return true;
    }
    return false;
}
} // namespace

namespace ed
{
bool PlaneArc::hasAngle(double t) const
{
    const double low = std::min(from, from + sweep), high = std::max(from, from + sweep);
    return t + 2.0 * pi * std::ceil((low - 1e-12 - t) / (2.0 * pi)) <= high + 1e-12;
}

bool PlaneArc::isFlat() const
{
    return std::fabs(a.x * b.y - a.y * b.x) <= 1e-12 * (a.lengthSqrd() + b.lengthSqrd());
}

std::vector<AcGePoint2d> PlaneArc::turnsAlong(const AcGeVector2d& direction) const
{
    const double low = std::min(from, from + sweep), high = std::max(from, from + sweep);
    const double turn = std::atan2(b.dotProduct(direction), a.dotProduct(direction));
    std::vector<AcGePoint2d> points{pointAt(low)};
    for (double t = turn + pi * std::ceil((low - turn) / pi); t < high; t += pi) points.push_back(pointAt(t));
    points.push_back(pointAt(high));
    return points;
}

PlaneBox PlaneArc::box() const
{
    PlaneBox box;
    for (const AcGeVector2d& axis : {AcGeVector2d(1.0, 0.0), AcGeVector2d(0.0, 1.0)}) {
        for (const AcGePoint2d& point : turnsAlong(axis)) box.add(point);
    }
    return box;
}

std::vector<AcGePoint2d> PlaneArc::flatPoints() const
{
    return turnsAlong(a.lengthSqrd() >= b.lengthSqrd() ? a : b);
}

bool meet(const PlaneSegment& one, const PlaneSegment& other, AcGePoint2d& point)
{
    const double from = sideOf(other.start, other.end, one.start), to = sideOf(other.start, other.end, one.end);
    if (areOpposite(from, to)) {
        point = one.pointAt(from / (from - to));
        const double first = sideOf(one.start, one.end, other.start), second = sideOf(one.start, one.end, other.end);
        return areOpposite(first, second) || first == 0.0 || second == 0.0;
    }
    return touch(one, other, point) || touch(other, one, point);
}

bool cross(const PlaneSegment& one, const PlaneSegment& other)
{
    return areOpposite(sideOf(other.start, other.end, one.start), sideOf(other.start, other.end, one.end)) &&
           areOpposite(sideOf(one.start, one.end, other.start), sideOf(one.start, one.end, other.end));
}

void addMeetings(const PlaneArc& arc, const PlaneSegment& segment, std::vector<AcGePoint2d>& points)
{
    // In the coordinates of a and b the ellipse is the unit circle.
    const double det = arc.a.x * arc.b.y - arc.a.y * arc.b.x;
    const auto local = [&](const AcGeVector2d& v) {
        return AcGeVector2d((v.x * arc.b.y - v.y * arc.b.x) / det, (v.y * arc.a.x - v.x * arc.a.y) / det);
    };
    const AcGeVector2d p = local(segment.start - arc.center), d = local(segment.end - segment.start);
    const double dd = d.lengthSqrd(), half = p.dotProduct(d), rest = half * half - dd * (p.lengthSqrd() - 1.0);
    if (dd == 0.0 || rest < 0.0) return;
    for (const double sign : {-1.0, 1.0}) {
        const double s = (-half + sign * std::sqrt(rest)) / dd;
        const AcGeVector2d at = p + s * d;
        if (s >= 0.0 && s <= 1.0 && arc.hasAngle(std::atan2(at.y, at.x))) points.push_back(segment.pointAt(s));
    }
}

bool isInside(const std::vector<AcGePoint2d>& polygon, const AcGePoint2d& point)
{
    bool inside = false;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const AcGePoint2d &a = polygon[i], &b = polygon[(i + 1) % polygon.size()];
        const double side = sideOf(a, b, point);
        if (side == 0.0 && isBetween({a, b}, point)) return true;
        if ((a.y > point.y) != (b.y > point.y) && (side > 0.0) == (b.y > a.y)) inside = !inside;
    }
    return inside;
}
} // namespace ed
