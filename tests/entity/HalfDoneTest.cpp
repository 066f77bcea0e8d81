/// Makers of several entities that fail half-way.

#include "dbdatabasereactor.h"
#include "dbtrans.h"
#include "EntityFixture.h"

namespace
{
/// Takes the drawing away once an entity was added to it.
class Interruption : public AcDbDatabaseReactor
{
public:
    explicit Interruption(AcDbDatabase& drawing) : m_drawing(drawing) { drawing.addReactor(this); }
    ~Interruption() override
    {
        m_drawing.removeReactor(this);
        acdbHostApplicationServices()->setWorkingDatabase(&m_drawing);
    }
    void objectAppended(const AcDbDatabase*, const AcDbObject* object) override
    {
        if (object->ownerId() != m_drawing.modelSpaceId()) return;
        ++m_appended;
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    int appended() const { return m_appended; }

private:
    AcDbDatabase& m_drawing;
    int m_appended = 0;
};

class HalfDoneTest : public EntityTest
{
};

TEST_F(HalfDoneTest, WhatWasAddedIsTakenBackOnEveryLayer)
{
    AcCmColor red;
    red.setColorIndex(1);
    AcDbObjectId outer, inner, hatch;
    ASSERT_EQ(CMakeEnt::MakeCircle({0, 0, 0}, 5.0, outer), 1);
    ASSERT_EQ(CMakeEnt::MakeCircle({0, 0, 0}, 2.0, inner), 1);
    AcDbObjectIdArray circles, ids;
    circles.append(outer);
    circles.append(inner);
    ASSERT_EQ(CMakeEnt::MakeHatch(circles, hatch, L"SOLID", 1.0, 0.0), 1);
    const std::pair<const char*, std::function<int()>> makers[] = {
        {"filled circle", [&] { return CMakeEnt::MakeSolid(outer, red, ids); }},
        {"outlines of a hatch", [&] { return CMakeEnt::MakeHatchBoundary(hatch, ids); }},
        {"regions of a hatch", [&] { return CMakeEnt::MakeHatchBoundary(hatch, ids, 1); }},
        {"boundaries",
         [&] {
             return CMakeEnt::MakeBoundary({4, 0, 0}, ids, 1, 0);
         }},
        {"dimensions",
         [&] {
             return CMakeEnt::MakeCoordDim4({1, 2, 0}, ids, 0, 1.0);
         }},
    };
    for (const AcDbObjectId& layer : {database()->clayer(), addLayer(L"LOCKED", true)}) {
        ASSERT_EQ(database()->setClayer(layer), Acad::eOk);
        for (const auto& [name, make] : makers) {
            SCOPED_TRACE(name);
            const int before = entityCount();
            {
                const Interruption interruption(*database());
                EXPECT_EQ(make(), 0);
                EXPECT_EQ(interruption.appended(), 1);
            }
            EXPECT_EQ(entityCount(), before);
            EXPECT_TRUE(ids.isEmpty());
            EXPECT_EQ(database()->transactionManager()->numActiveTransactions(), 0);
        }
    }
}
} // namespace
