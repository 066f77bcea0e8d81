#pragma once

/// What the tests of makers of entities share.

#include "QmCADLib.h"

#include "acedads.h"
#include "dbhatch.h"
#include "dbregion.h"
#include "DrawingTest.h"

#include <limits>

using CMakeEnt = CArxEntity::CMakeEnt;

inline AcDbObjectIdArray listOf(std::initializer_list<AcDbObjectId> ids)
{
    AcDbObjectIdArray list;
    for (const AcDbObjectId& id : ids)
        list.append(id);
    return list;
}

inline AcGePoint3dArray pointList(std::initializer_list<AcGePoint3d> points)
{
    AcGePoint3dArray list;
    for (const AcGePoint3d& point : points)
        list.append(point);
    return list;
}

/// Each test runs with its document locked, in the world's coordinates until it sets others.
class EntityTest : public headless::DrawingTest
{
protected:
    void setUcs(const AcGePoint3d& origin, const AcGeVector3d& x, const AcGeVector3d& y)
    {
        AcGeMatrix3d ucs;
        ucs.setCoordSystem(origin, x, y, x.crossProduct(y));
        ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
    }
    /// X to the world's Y, Y to its -X, the origin at (10, 20, 0).
    void turnUcs() { setUcs({10.0, 20.0, 0.0}, AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis); }

    template <class T>
    using Open = AcDbObjectPointer<T>;

    // Figures in the plane of the user's coordinates.

    AcDbObjectId line(double x0, double y0, double x1, double y1)
    {
        AcDbObjectId id;
        EXPECT_EQ(CMakeEnt::MakeLine({x0, y0, 0}, {x1, y1, 0}, id), 1);
        return id;
    }
    AcDbObjectId rectangle(double x0, double y0, double x1, double y1)
    {
        AcDbObjectId id;
        EXPECT_EQ(CMakeEnt::MakeRect({x0, y0, 0}, {x1, y1, 0}, id), 1);
        return id;
    }
    AcDbObjectId circle(double x, double y, double r)
    {
        AcDbObjectId id;
        EXPECT_EQ(CMakeEnt::MakeCircle({x, y, 0}, r, id), 1);
        return id;
    }
    /// Of a closed curve, a region or a hatch; -1 for others.
    static double areaOf(AcDbObjectId id)
    {
        double area = -1.0;
        const Open<AcDbEntity> entity(id);
        if (const auto* curve = AcDbCurve::cast(entity.object())) curve->getArea(area);
        if (const auto* region = AcDbRegion::cast(entity.object())) region->getArea(area);
        if (const auto* hatch = AcDbHatch::cast(entity.object())) hatch->getArea(area);
        return area;
    }
};


constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kPi = 3.141592653589793;

#define EXPECT_POINT(actual, ...)                                                                            \
    do {                                                                                                     \
        const AcGePoint3d gotten = (actual), wanted(__VA_ARGS__);                                            \
        EXPECT_LT(gotten.distanceTo(wanted), 1e-9) << gotten.x << ", " << gotten.y << ", " << gotten.z;      \
    } while (false)
