#include "CFamStuEnt.h"

#include "dbelipse.h"
#include "dbents.h"
#include "dbobjiter.h"
#include "dbobjptr.h"
#include "dbpl.h"
#include "dbspline.h"

#include <cmath>
#include <memory>

namespace
{
constexpr double pointTolerance = 1e-4;
constexpr double pi = 3.141592653589793;

int appendEnds(const AcDbCurve& curve, AcGePoint3dArray& points)
{
    AcGePoint3d start, end;
    if (curve.getStartPoint(start) != Acad::eOk || curve.getEndPoint(end) != Acad::eOk) return 0;
    points.append(start);
    points.append(end);
    return 1;
}

int appendControlPoints(const AcDbSpline& spline, AcGePoint3dArray& points)
{
    const int before = points.length();
    for (int i = 0; i < spline.numControlPoints(); ++i) {
        AcGePoint3d point;
        if (spline.getControlPointAt(i, point) != Acad::eOk) {
            points.setLogicalLength(before);
            return 0;
        }
        points.append(point);
    }
    return points.length() > 1;
}

/// The vertex that the iterator stands on. Those of a polyline in a drawing are to be opened by their ids.
bool appendVertex(const AcDb2dPolyline& polyline, const AcDbObjectIterator& at, AcGePoint3dArray& points)
{
    const AcDbObjectPointer<AcDb2dVertex> opened(at.objectId(), AcDb::kForRead);
    const auto* const vertex = at.objectId().isNull() ? AcDb2dVertex::cast(at.entity()) : opened.object();
    if (!vertex) return false;
    if (vertex->vertexType() != AcDb::k2dSplineCtlVertex) points.append(polyline.vertexPosition(*vertex));
    return true;
}

bool isFinite(const AcGePoint3d& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

bool isNear(double value, double goal)
{
    return std::fabs(value - goal) < pointTolerance;
}
} // namespace

int CFamStuEnt::GetPolylinePoints(AcDbPolyline* polyline, AcGePoint3dArray& points, int closeFlag)
{
    if (!polyline) return 0;
    for (unsigned i = 0; i < polyline->numVerts(); ++i) {
        AcGePoint3d point;
        if (polyline->getPointAt(i, point) != Acad::eOk) return 0;
        points.append(point);
    }
    // The first point of the array, not of the polyline: callers that gather several polylines rely on it.
    if (polyline->isClosed() && closeFlag && !points.isEmpty()) points.append(AcGePoint3d(points.first()));
    return 1;
}

int CFamStuEnt::GetPolylinePoints(AcDbObjectId id, AcGePoint3dArray& points, int closeFlag)
{
    const AcDbObjectPointer<AcDbPolyline> polyline(id, AcDb::kForRead);
    return polyline.openStatus() == Acad::eOk ? GetPolylinePoints(polyline.object(), points, closeFlag) : 0;
}

int CFamStuEnt::Get2dPolylinePoints(AcDb2dPolyline* polyline, AcGePoint3dArray& points, int closeFlag)
{
    if (!polyline) return 0;
    const int first = points.length();
    const std::unique_ptr<AcDbObjectIterator> vertices(polyline->vertexIterator());
    for (; !vertices->done(); vertices->step()) {
        if (!appendVertex(*polyline, *vertices, points)) return 0;
    }
    if (polyline->isClosed() && closeFlag && points.length() > first) points.append(AcGePoint3d(points[first]));
    return 1;
}

int CFamStuEnt::GetCurvePoints(AcDbObjectId id, AcGePoint3dArray& points, int closeFlag)
{
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    return entity.openStatus() == Acad::eOk ? GetCurvePoints(entity.object(), points, closeFlag) : 0;
}

int CFamStuEnt::GetCurvePoints(AcDbEntity* entity, AcGePoint3dArray& points, int closeFlag)
{
    if (!entity) return 0;
    if (auto* const polyline = AcDbPolyline::cast(entity)) {
        GetPolylinePoints(polyline, points, closeFlag);
        return !points.isEmpty();
    }
    if (entity->isKindOf(AcDb2dPolyline::desc()) || entity->isKindOf(AcDb3dPolyline::desc())) {
        // Null for a 3D polyline, whose vertices are not read.
        Get2dPolylinePoints(AcDb2dPolyline::cast(entity), points, 1);
        return !points.isEmpty();
    }
    if (const auto* const spline = AcDbSpline::cast(entity)) return appendControlPoints(*spline, points);
    const bool hasEnds = entity->isKindOf(AcDbLine::desc()) || entity->isKindOf(AcDbArc::desc()) ||
                         entity->isKindOf(AcDbEllipse::desc()) || entity->isKindOf(AcDbCircle::desc());
    return hasEnds ? appendEnds(*AcDbCurve::cast(entity), points) : 0;
}

int CFamStuEnt::JudgePointOnLine(AcGePoint3d a, AcGePoint3d b, AcGePoint3d p, int extend)
{
    if (!isFinite(a) || !isFinite(b) || !isFinite(p)) return 0;
    if (p.distanceTo(a) < pointTolerance) return 1;
    if (p.distanceTo(b) < pointTolerance) return 2;
    const AcGeVector2d toA(a.x - p.x, a.y - p.y), toB(b.x - p.x, b.y - p.y), fromBToA(a.x - b.x, a.y - b.y);
    if (toA.isZeroLength() || toB.isZeroLength()) return 0; // above an end: no angle
    if (isNear(toB.angleTo(toA), pi)) return 3;
    if (!extend || fromBToA.isZeroLength() || !(toB.angleTo(toA) < pointTolerance)) return 0;
    const double side = fromBToA.angleTo(toA);
    if (side < pointTolerance) return 4;
    return isNear(side, pi) ? 5 : 0;
}
