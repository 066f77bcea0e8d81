#include "BulgePath.h"

#include "gearc3d.h"
#include "gelnsg3d.h"
#include "genurb3d.h"
#include "PlanarCoords.h"
#include "WidePath.h"

#include <algorithm>

void BulgePath::useOwn()
{
    points = ownPoints.data();
    bulges = ownBulges.empty() ? nullptr : ownBulges.data();
    widths = ownWidths.empty() ? nullptr : ownWidths.data();
    count = static_cast<int>(ownPoints.size());
}

void BulgePath::append(const AcGePoint2d& point, double bulge)
{
    ownPoints.push_back(point);
    ownBulges.push_back(bulge);
    useOwn();
}

bool BulgePath::hasArcs() const
{
    return bulges && std::any_of(bulges, bulges + count, [](double bulge) { return bulge != 0.0; });
}

bool BulgePath::hasWidths() const
{
    const auto isWide = [](const Widths& width) { return width.first != 0.0 || width.second != 0.0; };
    return widths ? std::any_of(widths, widths + count, isWide) : constantWidth != 0.0;
}

AcGeMatrix3d BulgePath::toWorld() const
{
    return ocsToWorld(normal) * AcGeMatrix3d::translation({0.0, 0.0, elevation});
}

AcGeMatrix3d BulgePath::fromWorld() const
{
    return AcGeMatrix3d::translation({0.0, 0.0, -elevation}) * worldToOcs(normal);
}

bool BulgePath::locate(double param, int& index, double& t) const
{
    const double slack = 1e-9 * (1.0 + std::fabs(param));
    const double last = segments();
    if (!std::isfinite(param) || count == 0 || param < -slack || param > last + slack) return false;
    const double at = std::clamp(param, 0.0, last);
    index = std::min(static_cast<int>(at), std::max(segments() - 1, 0));
    t = at - index;
    return true;
}

double BulgePath::length() const
{
    double sum = 0.0;
    for (int i = 0; i < segments(); ++i)
        sum += segment(i).length();
    return sum;
}

double BulgePath::lengthTo(int index, double t) const
{
    double sum = 0.0;
    for (int i = 0; i < index; ++i)
        sum += segment(i).length();
    return segments() > index ? sum + t * segment(index).length() : sum;
}

double BulgePath::paramAtLength(double length) const
{
    for (int i = 0; i < segments(); ++i) {
        const double own = segment(i).length();
        if (length <= own && own > 0.0) return i + length / own;
        length -= own;
    }
    return segments();
}

double BulgePath::area() const
{
    // About the first vertex, so that paths far from the origin keep their digits.
    double sum = 0.0;
    for (int i = 0; i < segments(); ++i) {
        const BulgeSegment at = segment(i);
        const AcGeVector2d from = at.start() - points[0], to = at.end() - points[0];
        sum += BulgeSegment({from.x, from.y}, {to.x, to.y}, bulgeAt(i)).area();
    }
    return sum;
}

double BulgePath::closestParam(const AcGePoint2d& point, bool extended) const
{
    double best = 0.0, bestDistance = std::numeric_limits<double>::infinity();
    const int last = segments() - 1;
    for (int i = 0; i <= last; ++i) {
        const BulgeSegment at = segment(i);
        const bool open = extended && !isClosed;
        const double t = at.closestParam(point, open && i == 0, open && i == last);
        const double distance = (at.pointAt(t) - point).lengthSqrd();
        if (distance >= bestDistance) continue;
        bestDistance = distance;
        best = i + t;
    }
    return best;
}

AcGePoint2d BulgePath::pointAt(double param) const
{
    if (segments() == 0) return points[0];
    const int index = std::clamp(static_cast<int>(std::floor(param)), 0, segments() - 1);
    return segment(index).pointAt(param - index);
}

namespace
{
void addArcExtremes(const BulgeSegment& arc, const AcGeMatrix3d& world, AcDbExtents& extents)
{
    for (int row = 0; row < 3; ++row) {
        double params[4];
        const int count = arc.extremesAlong({world.entry[row][0], world.entry[row][1]}, params);
        for (int i = 0; i < count; ++i) {
            const AcGePoint2d p = arc.pointAt(params[i]);
            extents.addPoint(world * AcGePoint3d(p.x, p.y, 0.0));
        }
    }
}
} // namespace

void BulgePath::addExtents(AcDbExtents& extents, const AcGeMatrix3d& world) const
{
    if (hasWidths()) addWideExtents(*this, world, extents);
    for (int i = 0; i < count; ++i)
        extents.addPoint(world * AcGePoint3d(points[i].x, points[i].y, 0.0));
    for (int i = 0; bulges && i < segments(); ++i) {
        if (bulges[i] != 0.0) addArcExtremes(segment(i), world, extents);
    }
}

std::unique_ptr<AcGeCurve3d> BulgePath::geSegment(int index, const AcGeMatrix3d& world) const
{
    const BulgeSegment at = segment(index);
    if (at.isPoint()) return nullptr;
    const auto placed = [&](const AcGePoint2d& p) { return world * AcGePoint3d(p.x, p.y, 0.0); };
    if (!at.isArc()) return std::make_unique<AcGeLineSeg3d>(placed(at.start()), placed(at.end()));
    const AcGePoint2d center = at.center();
    const AcGeVector2d toStart = at.start() - center;
    const AcGeVector3d axis = world * AcGeVector3d(0.0, 0.0, at.sweep() < 0.0 ? -1.0 : 1.0);
    return std::make_unique<AcGeCircArc3d>(placed(center), axis,
                                           world * AcGeVector3d(toStart.x, toStart.y, 0.0), toStart.length(),
                                           0.0, std::fabs(at.sweep()));
}

// The middle control point of an arc lies where its end tangents meet, with the cosine of half the angle for
// a weight (L. Piegl, W. Tiller: The NURBS Book, 1997, section 7.3).
std::unique_ptr<AcGeCurve3d> BulgePath::geSegmentToMeet(int index, const AcGeMatrix3d& world) const
{
    constexpr double flat = 1e-3;
    const BulgeSegment at = segment(index);
    if (at.isPoint() || !at.isArc() || std::fabs(at.sweep()) > flat) return geSegment(index, world);
    const AcGeVector2d chord = at.end() - at.start();
    const AcGePoint2d apex =
        at.start() + 0.5 * chord - (0.5 * std::tan(at.sweep() / 2.0)) * chord.perpVector();
    AcGePoint3dArray points;
    for (const AcGePoint2d& p : {at.start(), apex, at.end()})
        points.append(world * AcGePoint3d(p.x, p.y, 0.0));
    const double knots[] = {0.0, 0.0, 0.0, 1.0, 1.0, 1.0};
    AcGeDoubleArray weights;
    for (const double weight : {1.0, std::cos(at.sweep() / 2.0), 1.0})
        weights.append(weight);
    return std::make_unique<AcGeNurbCurve3d>(2, AcGeKnotVector(6, knots), points, weights);
}
