/// Lines, points, polylines and splines.

#include "CMakeEnt.h"

#include "dbline.h"
#include "dbpoint.h"
#include "dbspline.h"
#include "NewEntity.h"

#include <cmath>

namespace
{
std::unique_ptr<AcDbLine> lineBetween(const AcGePoint3d& p1, const AcGePoint3d& p2)
{
    auto line = entity::begin<AcDbLine>();
    if (line->setStartPoint(p1) != Acad::eOk || line->setEndPoint(p2) != Acad::eOk) return nullptr;
    return line;
}

/// The corners one after the other; none when the rectangle has no area.
AcGePoint2dArray cornersOf(const AcGePoint2d& first, const AcGePoint2d& third, double angle)
{
    const AcGeVector2d along(std::cos(angle), std::sin(angle)), across(-along.y, along.x);
    const AcGeVector2d diagonal = third - first;
    const double width = diagonal.dotProduct(along), height = diagonal.dotProduct(across);
    const double least = AcGeContext::gTol.equalPoint();
    AcGePoint2dArray corners;
    if (!(std::fabs(width) > least && std::fabs(height) > least)) return corners;
    corners.append(first);
    corners.append(first + width * along);
    corners.append(third);
    corners.append(first + height * across);
    return corners;
}

bool addVertices(AcDbPolyline& polyline, const AcGePoint2dArray& points)
{
    for (int i = 0; i < points.length(); ++i)
        if (polyline.addVertexAt(static_cast<unsigned>(i), points[i], 0.0, -1.0, -1.0, 0) != Acad::eOk)
            return false;
    return true;
}

bool setBulges(AcDbPolyline& polyline, const AcArray<double>& bulges)
{
    const int count = std::min(bulges.length(), static_cast<int>(polyline.numVerts()));
    for (int i = 0; i < count; ++i)
        if (polyline.setBulgeAt(static_cast<unsigned>(i), bulges[i]) != Acad::eOk) return false;
    return true;
}

AcGePoint3dArray withoutRepeats(const AcGePoint3dArray& points)
{
    AcGePoint3dArray different;
    for (const AcGePoint3d& point : points)
        if (different.isEmpty() || !different.last().isEqualTo(point)) different.append(point);
    return different;
}
} // namespace

int CArxEntity::CMakeEnt::MakeLine(const AcGePoint3d& p1, const AcGePoint3d& p2)
{
    AcDbObjectId id;
    return MakeLine(p1, p2, id);
}

int CArxEntity::CMakeEnt::MakeLine(const AcGePoint3d& p1, const AcGePoint3d& p2, AcDbObjectId& id)
{
    return entity::add(lineBetween(p1, p2), id);
}

int CArxEntity::CMakeEnt::MakeLine(const AcGePoint3d& p1, const AcGePoint3d& p2, int color)
{
    AcDbObjectId id;
    return MakeLine(p1, p2, L"", color, id);
}

int CArxEntity::CMakeEnt::MakeLine(const AcGePoint3d& p1, const AcGePoint3d& p2, CString layer, int color,
                                   AcDbObjectId& id)
{
    auto line = lineBetween(p1, p2);
    if (!line || !entity::setColor(*line, color) || !entity::setLayer(*line, layer)) return 0;
    return entity::add(std::move(line), id);
}

int CArxEntity::CMakeEnt::MakePoint(const AcGePoint3d& pt, AcDbObjectId& id)
{
    auto point = entity::begin<AcDbPoint>();
    if (point->setPosition(pt) != Acad::eOk) return 0;
    return entity::add(std::move(point), id);
}

int CArxEntity::CMakeEnt::MakeRect(const AcGePoint3d& p1, const AcGePoint3d& p2, AcDbObjectId& id,
                                   double angle)
{
    const AcGePoint2dArray corners = cornersOf({p1.x, p1.y}, {p2.x, p2.y}, angle);
    auto rectangle = entity::begin<AcDbPolyline>();
    if (corners.isEmpty() || !addVertices(*rectangle, corners)) return 0;
    if (rectangle->setElevation(p1.z) != Acad::eOk) return 0;
    rectangle->setClosed(true);
    return entity::add(std::move(rectangle), id);
}

AcDbPolyline* CArxEntity::CMakeEnt::MakePline(const AcGePoint3dArray& points, int closed, double width)
{
    if (points.isEmpty()) return nullptr;
    auto polyline = std::make_unique<AcDbPolyline>(static_cast<unsigned>(points.length()));
    polyline->setDatabaseDefaults();
    AcGePoint2dArray flat(points.length());
    for (const AcGePoint3d& point : points)
        flat.append(AcGePoint2d(point.x, point.y));
    if (polyline->setConstantWidth(width) != Acad::eOk || !addVertices(*polyline, flat)) return nullptr;
    polyline->setClosed(closed != 0);
    return polyline.release();
}

int CArxEntity::CMakeEnt::MakePline(const AcGePoint3dArray& points, AcDbObjectId& id, int closed,
                                    double width)
{
    return entity::addInWorld(std::unique_ptr<AcDbEntity>(MakePline(points, closed, width)), id);
}

int CArxEntity::CMakeEnt::MakePline(const AcGePoint3dArray& points, AcDbObjectId& id, AcArray<double>& bulges,
                                    int closed, double width)
{
    std::unique_ptr<AcDbPolyline> polyline(MakePline(points, closed, width));
    if (!polyline || !setBulges(*polyline, bulges)) return 0;
    return entity::addInWorld(std::move(polyline), id);
}

int CArxEntity::CMakeEnt::MakeSpline(const AcGePoint3dArray& points, AcDbObjectId& id)
{
    constexpr int cubic = 4;
    auto spline = std::make_unique<AcDbSpline>(withoutRepeats(points), cubic);
    if (spline->isNull()) return 0;
    spline->setDatabaseDefaults();
    return entity::add(std::move(spline), id);
}
