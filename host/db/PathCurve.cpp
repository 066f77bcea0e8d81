#include "dbpathcurve.h"

#include "BulgePath.h"
#include "dbarc.h"
#include "dbline.h"
#include "gearc3d.h"
#include "gecomp3d.h"
#include "geline3d.h"
#include "gelnsg3d.h"
#include "geplin3d.h"
#include "geray3d.h"
#include "PlanarCoords.h"

#include <algorithm>

namespace
{
AcGePoint3d placed(const BulgePath& path, const AcGePoint2d& p)
{
    return ocsToWorld(path.normal) * AcGePoint3d(p.x, p.y, path.elevation);
}

AcGePoint2d inPlane(const BulgePath& path, const AcGePoint3d& point)
{
    const AcGePoint3d local = worldToOcs(path.normal) * point;
    return {local.x, local.y};
}

AcGeVector3d placed(const BulgePath& path, const AcGeVector2d& v)
{
    return ocsToWorld(path.normal) * AcGeVector3d(v.x, v.y, 0.0);
}

/// The segments in one curve; arcs that turn by less than an angle are straight.
std::unique_ptr<AcGeCurve3d> chainOf(const BulgePath& path, double leastSweep)
{
    AcGeVoidPointerArray all;
    AcGeIntArray owned;
    const AcGeMatrix3d world = path.toWorld();
    for (int i = 0; i < path.segments(); ++i) {
        const BulgeSegment segment = path.segment(i);
        if (segment.isPoint()) continue;
        owned.append(1);
        if (std::fabs(segment.sweep()) < leastSweep) {
            all.append(new AcGeLineSeg3d(placed(path, segment.start()), placed(path, segment.end())));
        } else {
            all.append(path.geSegment(i, world).release());
        }
    }
    return all.isEmpty() ? nullptr : std::make_unique<AcGeCompositeCurve3d>(all, owned);
}

/// A segment extended beyond its start or end: a ray, a whole line, or a whole circle.
std::unique_ptr<AcGeCurve3d> extendedPiece(std::unique_ptr<AcGeCurve3d> piece, bool start, bool end)
{
    if (piece->isKindOf(AcGe::kCircArc3d)) {
        piece->setInterval();
        return piece;
    }
    const auto& segment = static_cast<const AcGeLineSeg3d&>(*piece);
    const AcGePoint3d from = segment.startPoint(), to = segment.endPoint();
    if (start && end) return std::make_unique<AcGeLine3d>(from, to - from);
    return start ? std::make_unique<AcGeRay3d>(to, from - to) : std::make_unique<AcGeRay3d>(from, to - from);
}

using SegmentDerivative = AcGeVector2d (BulgeSegment::*)(double) const;

Acad::ErrorStatus derivative(const BulgePath& at, double param, SegmentDerivative of, AcGeVector3d& deriv)
{
    int index = 0;
    double t = 0.0;
    if (!at.locate(param, index, t) || at.segments() == 0) return Acad::eInvalidInput;
    deriv = placed(at, (at.segment(index).*of)(t));
    return Acad::eOk;
}
} // namespace

Acad::ErrorStatus DbPathCurve::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    const BulgePath at = path();
    const AcGeMatrix3d world = at.toWorld();
    plane.set(world * AcGePoint3d::kOrigin, world * AcGeVector3d::kZAxis);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

Acad::ErrorStatus DbPathCurve::getStartParam(double& param) const
{
    if (path().count == 0) return Acad::eInvalidInput;
    param = 0.0;
    return Acad::eOk;
}

Acad::ErrorStatus DbPathCurve::getEndParam(double& param) const
{
    const BulgePath at = path();
    if (at.count == 0) return Acad::eInvalidInput;
    param = at.segments();
    return Acad::eOk;
}

Acad::ErrorStatus DbPathCurve::getStartPoint(AcGePoint3d& point) const
{
    return getPointAtParam(0.0, point);
}

Acad::ErrorStatus DbPathCurve::getEndPoint(AcGePoint3d& point) const
{
    const BulgePath at = path();
    if (at.count == 0) return Acad::eInvalidInput;
    point = placed(at, at.points[at.isClosed ? 0 : at.count - 1]);
    return Acad::eOk;
}

Acad::ErrorStatus DbPathCurve::getPointAtParam(double param, AcGePoint3d& point) const
{
    const BulgePath at = path();
    int index = 0;
    double t = 0.0;
    if (!at.locate(param, index, t)) return Acad::eInvalidInput;
    point = placed(at, at.pointAt(index + t));
    return Acad::eOk;
}

Acad::ErrorStatus DbPathCurve::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    const BulgePath at = path();
    if (at.count == 0 || !isFinite(point)) return Acad::eInvalidInput;
    const double closest = at.closestParam(inPlane(at, point));
    if (placed(at, at.pointAt(closest)).distanceTo(point) > onCurveTolerance(point))
        return Acad::ePointNotOnEntity;
    param = closest;
    return Acad::eOk;
}

Acad::ErrorStatus DbPathCurve::getDistAtParam(double param, double& dist) const
{
    const BulgePath at = path();
    int index = 0;
    double t = 0.0;
    if (!at.locate(param, index, t)) return Acad::eInvalidInput;
    dist = at.lengthTo(index, t);
    return Acad::eOk;
}

Acad::ErrorStatus DbPathCurve::getParamAtDist(double dist, double& param) const
{
    const BulgePath at = path();
    if (at.count == 0 || !(dist >= 0.0) || !std::isfinite(dist)) return Acad::eInvalidInput;
    const double length = at.length();
    if (dist > length + std::max(AcGeContext::gTol.equalPoint(), 1e-12 * length)) return Acad::eInvalidInput;
    param = at.paramAtLength(dist);
    return Acad::eOk;
}

Acad::ErrorStatus DbPathCurve::getFirstDeriv(double param, AcGeVector3d& deriv) const
{
    return derivative(path(), param, &BulgeSegment::derivAt, deriv);
}

Acad::ErrorStatus DbPathCurve::getSecondDeriv(double param, AcGeVector3d& deriv) const
{
    return derivative(path(), param, &BulgeSegment::secondDerivAt, deriv);
}

Acad::ErrorStatus DbPathCurve::getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                                 bool extend) const
{
    const BulgePath at = path();
    if (at.count == 0 || !isFinite(point)) return Acad::eInvalidInput;
    onCurve = placed(at, at.pointAt(at.closestParam(inPlane(at, point), extend)));
    return Acad::eOk;
}

Acad::ErrorStatus DbPathCurve::getArea(double& area) const
{
    const BulgePath at = path();
    if (at.count == 0) return Acad::eInvalidInput;
    area = std::fabs(at.area());
    return Acad::eOk;
}

void DbPathCurve::intersectionCurves(Curves& curves, bool extended) const
{
    const BulgePath at = path();
    const AcGeMatrix3d world = at.toWorld();
    const bool open = extended && !at.isClosed;
    const int last = at.segments() - 1;
    for (int i = 0; i <= last; ++i) {
        std::unique_ptr<AcGeCurve3d> piece = at.geSegmentToMeet(i, world);
        if (!piece) continue;
        const bool atStart = open && i == 0, atEnd = open && i == last;
        if (atStart || atEnd) piece = at.geSegment(i, world);
        if (atStart || atEnd) piece = extendedPiece(std::move(piece), atStart, atEnd);
        curves.push_back(std::move(piece));
    }
}

std::unique_ptr<AcGeCurve3d> DbPathCurve::makeGeCurve() const
{
    return chainOf(path(), 0.0);
}

std::unique_ptr<AcGeCurve3d> DbPathCurve::makeGeCurveToOffset() const
{
    constexpr double straight = 1.6e-6;
    return chainOf(path(), straight);
}

namespace
{
std::unique_ptr<AcDbEntity> entityOf(const AcGeCurve3d& piece, const AcGeVector3d& normal, double thickness)
{
    if (piece.isKindOf(AcGe::kCircArc3d)) {
        auto arc = std::make_unique<AcDbArc>();
        arc->setFromAcGeCurve(piece, &normal);
        arc->setThickness(thickness);
        return arc;
    }
    auto line = std::make_unique<AcDbLine>();
    line->setFromAcGeCurve(piece, &normal);
    line->setThickness(thickness);
    return line;
}
} // namespace

Acad::ErrorStatus DbPathCurve::subExplode(AcDbVoidPtrArray& entitySet) const
{
    const BulgePath at = path();
    const AcGeMatrix3d world = at.toWorld();
    const AcGeVector3d normal = world * AcGeVector3d::kZAxis;
    for (int i = 0; i < at.segments(); ++i) {
        const std::unique_ptr<AcGeCurve3d> piece = at.geSegment(i, world);
        if (piece) entitySet.append(entityOf(*piece, normal, pathThickness()).release());
    }
    return Acad::eOk;
}

Acad::ErrorStatus DbPathCurve::subGetGeomExtents(AcDbExtents& extents) const
{
    const BulgePath at = path();
    at.addExtents(extents, at.toWorld());
    const AcGeVector3d thick = ocsToWorld(at.normal) * AcGeVector3d(0.0, 0.0, pathThickness());
    if (at.count > 0 && pathThickness() != 0.0) extents.expandBy(thick);
    return Acad::eOk;
}

namespace
{
/// An arc of a polyline is snapped to as one that stands alone.
void appendArcSnaps(const AcGeCurve3d& arc, const AcGeVector3d& normal, AcDb::OsnapMode mode, const AcGePoint3d& pick,
                    const AcGePoint3d& last, AcGePoint3dArray& points)
{
    AcDbCurve* alone = nullptr;
    if (AcDbCurve::createFromAcGeCurve(arc, alone, &normal) != Acad::eOk) return;
    const std::unique_ptr<AcDbCurve> owned(alone);
    AcDbIntArray ids;
    alone->getOsnapPoints(mode, 0, pick, last, AcGeMatrix3d::kIdentity, points, ids);
}
} // namespace

Acad::ErrorStatus DbPathCurve::pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick,
                                                 const AcGePoint3d& last, AcGePoint3dArray& points) const
{
    const BulgePath at = path();
    if (at.segments() == 0) return Acad::eOk;
    const double nearest = at.closestParam(inPlane(at, pick));
    const int index = std::min(static_cast<int>(nearest), at.segments() - 1);
    const BulgeSegment segment = at.segment(index);
    switch (mode) {
    case AcDb::kOsModeEnd:
        points.append(placed(at, nearest - index <= 0.5 ? segment.start() : segment.end()));
        break;
    case AcDb::kOsModeMid:
        points.append(placed(at, segment.pointAt(0.5)));
        break;
    case AcDb::kOsModeNear:
        points.append(placed(at, at.pointAt(nearest)));
        break;
    case AcDb::kOsModePerp:
        points.append(placed(at, segment.pointAt(segment.closestParam(inPlane(at, last), true, true))));
        break;
    case AcDb::kOsModeCen:
        if (segment.isArc()) points.append(placed(at, segment.center()));
        break;
    case AcDb::kOsModeTan:
    case AcDb::kOsModeQuad:
        if (segment.isArc()) appendArcSnaps(*at.geSegment(index, at.toWorld()), at.normal, mode, pick, last, points);
        break;
    default:
        break;
    }
    return Acad::eOk;
}
