#pragma once

/// What the tests of makers of entities share.

#include "QmCADLib.h"

#include "acedads.h"
#include "DrawingTest.h"

#include <limits>

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
};

using CMakeEnt = CArxEntity::CMakeEnt;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kPi = 3.141592653589793;

#define EXPECT_POINT(actual, ...)                                                                            \
    do {                                                                                                     \
        const AcGePoint3d gotten = (actual), wanted(__VA_ARGS__);                                            \
        EXPECT_LT(gotten.distanceTo(wanted), 1e-9) << gotten.x << ", " << gotten.y << ", " << gotten.z;      \
    } while (false)
