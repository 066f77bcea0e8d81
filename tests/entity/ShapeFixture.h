#pragma once

/// What the tests of bad input to the makers of geometry share.

#include "EntityFixture.h"

#include "dbcircle.h"
#include "dbhatch.h"
#include "dbline.h"

#include <functional>

using Numbers = std::vector<double>;

/// What a call gives back: all of it must be as it was when the call fails.
struct Results {
    AcDbObjectId id;
    AcDbObjectIdArray ids;
    std::unique_ptr<AcDbEntity> loose; ///< what is not added but handed over
};

/// A call with numbers that it accepts; the entities that it works on are in the drawing.
struct Maker {
    const char* name;
    Numbers good;
    std::function<int(const Numbers&, Results&)> make;
    bool isCommand = false; ///< it runs a command, which locks its document itself
};

inline AcGePoint3d pointAt(const Numbers& n, std::size_t first)
{
    return {n[first], n[first + 1], n[first + 2]};
}

inline AcGePoint3dArray pointsOf(const Numbers& n, std::size_t count)
{
    AcGePoint3dArray points;
    for (std::size_t i = 0; i < count; ++i)
        points.append(pointAt(n, 3 * i));
    return points;
}

inline int taken(AcDbEntity* entity, Results& out)
{
    out.loose.reset(entity);
    return entity != nullptr;
}

inline int closed(int result, AcDbArc* arc)
{
    if (arc) arc->close();
    return result;
}

/// A drawing with a circle, a hatch in it, a line apart, and an erased circle.
class ShapeFixture : public EntityTest
{
protected:
    void SetUp() override
    {
        EntityTest::SetUp();
        ASSERT_EQ(CMakeEnt::MakeCircle({0, 0, 0}, 100.0, m_circle), 1);
        ASSERT_EQ(CMakeEnt::MakeLine({200, 0, 0}, {210, 0, 0}, m_line), 1);
        ASSERT_EQ(CMakeEnt::MakeHatch(listOf({m_circle}), m_hatch, L"SOLID", 1.0, 0.0), 1);
        ASSERT_EQ(CMakeEnt::MakeCircle({500, 0, 0}, 1.0, m_erased), 1);
        ASSERT_EQ(Open<AcDbEntity>(m_erased, AcDb::kForWrite)->erase(), Acad::eOk);
    }

    /// Calls it, and fails the test when a call that gives 0 leaves something behind.
    int call(const Maker& maker, const Numbers& numbers)
    {
        Results out;
        out.id = m_line;
        out.ids.append(m_line);
        const int before = entityCount();
        const int result = maker.make(numbers, out);
        EXPECT_TRUE(result == 0 || result == 1);
        EXPECT_EQ(headless::openObjects(*database()), 0);
        if (result) return result;
        EXPECT_EQ(entityCount(), before);
        EXPECT_EQ(out.id, m_line);
        EXPECT_EQ(out.ids.length(), 1);
        EXPECT_EQ(out.loose, nullptr);
        return result;
    }

    AcDbObjectId m_circle, m_line, m_hatch, m_erased;
};

inline void setRotatedUcs()
{
    AcGeMatrix3d ucs;
    const AcGeVector3d x = AcGeVector3d(2, 1, 2) / 3.0, y = AcGeVector3d(-2, 2, 1) / 3.0;
    ucs.setCoordSystem({10, 20, 30}, x, y, x.crossProduct(y));
    ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
}
