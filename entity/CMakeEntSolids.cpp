/// Filled figures.

#include "CMakeEnt.h"

#include "CurveSamples.h"
#include "dbobjptr.h"
#include "dbsolid.h"
#include "NewEntity.h"
#include "OpenReport.h"
#include "PolygonTriangles.h"

namespace
{
/// A closed planar curve as a polygon of its plane.
struct Outline {
    AcGePoint2dArray points;
    AcGeMatrix3d planeToWorld;
};

/// Samples of straight sides add nothing but triangles.
void dropPointsInLine(AcGePoint2dArray& points)
{
    for (int i = points.length() - 1; i >= 0 && points.length() > 3; --i) {
        const int count = points.length();
        const AcGeVector2d in = points[i] - points[(i + count - 1) % count],
                           out = points[(i + 1) % count] - points[i];
        if (in.dotProduct(out) > 0.0 && in.isCodirectionalTo(out)) points.removeAt(i);
    }
}

bool outlineOf(AcDbObjectId id, Outline& outline)
{
    const AcDbObjectPointer<AcDbCurve> curve(id, AcDb::kForRead);
    AcGePlane plane;
    AcDb::Planarity planarity = AcDb::kNonPlanar;
    AcGePoint3dArray points;
    if (!entity::isOpen(curve, L"MakeSolid") || !curve->isClosed()) return false;
    if (curve->getPlane(plane, planarity) != Acad::eOk || planarity != AcDb::kPlanar) return false;
    if (!entity::sampleCurve(*curve.object(), points) || points.length() < 4) return false;
    points.removeLast(); // the first again
    outline.planeToWorld.setToPlaneToWorld(plane);
    const AcGeMatrix3d worldToPlane = outline.planeToWorld.inverse();
    for (const AcGePoint3d& point : points) {
        const AcGePoint3d flat = worldToPlane * point;
        outline.points.append(AcGePoint2d(flat.x, flat.y));
    }
    dropPointsInLine(outline.points);
    return true;
}

/// Upwards at right angles to the plane of three points; of points in line to that line.
AcGeVector3d normalOf(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3)
{
    if (p1.z == p2.z && p2.z == p3.z) return AcGeVector3d::kZAxis;
    const AcGeVector3d first = (p2 - p1).normal(), second = (p3 - p1).normal();
    AcGeVector3d normal = first.crossProduct(second);
    if (normal.isZeroLength()) normal = (first.isZeroLength() ? second : first).perpVector();
    return normal.z < 0.0 ? -normal : normal;
}

std::unique_ptr<AcDbSolid> triangle(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c)
{
    auto solid = std::make_unique<AcDbSolid>(AcGePoint3d(a.x, a.y, 0.0), AcGePoint3d(b.x, b.y, 0.0),
                                             AcGePoint3d(c.x, c.y, 0.0));
    solid->setDatabaseDefaults();
    return solid;
}
} // namespace

int CArxEntity::CMakeEnt::MakeSolid(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
                                    AcDbObjectId& id)
{
    auto solid = entity::begin<AcDbSolid>();
    if (solid->setNormal(normalOf(p1, p2, p3)) != Acad::eOk) return 0;
    const AcGePoint3d corners[] = {p1, p2, p3, p3};
    for (std::uint16_t i = 0; i < 4; ++i)
        if (solid->setPointAt(i, corners[i]) != Acad::eOk) return 0;
    return entity::add(std::move(solid), id);
}

int CArxEntity::CMakeEnt::MakeSolid(AcDbObjectId id, AcCmColor color, AcDbObjectIdArray& ids)
{
    Outline outline;
    if (!outlineOf(id, outline)) return 0;
    entity::Batch batch;
    const auto triangles = entity::trianglesOf(outline.points);
    for (const auto& [a, b, c] : triangles) {
        auto solid = triangle(outline.points[a], outline.points[b], outline.points[c]);
        if (solid->setColor(color) != Acad::eOk || solid->transformBy(outline.planeToWorld) != Acad::eOk)
            return 0;
        if (!batch.addInWorld(std::move(solid))) return 0;
    }
    return triangles.empty() ? 0 : batch.keep(ids);
}
