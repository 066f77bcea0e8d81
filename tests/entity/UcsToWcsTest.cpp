#include "EntityFixture.h"

#include "dbcircle.h"
#include "dbpoint.h"

namespace
{
using UcsToWcs = EntityTest;
using AddToDb = EntityTest;
using CArxUtilsUcs = CArxUtils::CUcsWcs;

TEST_F(UcsToWcs, EntityGoesWhereItsCoordinatesLieInTheWorld)
{
    setUcs({1, 2, 3}, AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    AcDbCircle circle({10, 20, 30}, AcGeVector3d::kZAxis, 4.0);
    ASSERT_EQ(CArxUtilsUcs::UcsToWcs(&circle), 1);
    // X is the world's X, Y its Z, and Z its -Y.
    EXPECT_POINT(circle.center(), 1 + 10, 2 - 30, 3 + 20);
    EXPECT_LT(circle.normal().angleTo(-AcGeVector3d::kYAxis), 1e-12);
}

TEST_F(UcsToWcs, CoordinatesAreKeptToTheLastBitWhereTheSystemsAreTheSame)
{
    const AcGePoint3d odd(0.1, 1.0 / 3, 12345678.9);
    AcDbPoint point(odd);
    ASSERT_EQ(CArxUtilsUcs::UcsToWcs(&point), 1);
    EXPECT_TRUE(point.position() == odd);
}

TEST_F(UcsToWcs, SystemOfAnotherDrawingCountsWhenItIsNamed)
{
    turnUcs();
    AcDbDatabase other;
    AcDbPoint point({1, 2, 3});
    ASSERT_EQ(CArxUtilsUcs::UcsToWcs(&point, &other), 1);
    EXPECT_POINT(point.position(), 1, 2, 3);
    ASSERT_EQ(CArxUtilsUcs::UcsToWcs(&point, database()), 1);
    EXPECT_POINT(point.position(), 10 - 2, 20 + 1, 3);
}

TEST_F(UcsToWcs, EntityThatIsNotOpenForWriteStays)
{
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakePoint({1, 2, 3}, id), 1);
    turnUcs();
    const Open<AcDbPoint> point(id);
    EXPECT_EQ(CArxUtilsUcs::UcsToWcs(point.object()), 0);
    EXPECT_POINT(point->position(), 1, 2, 3);
    EXPECT_EQ(CArxUtilsUcs::UcsToWcs(nullptr), 0);
}

TEST_F(AddToDb, EntityComesToTheSpaceThatIsCurrent)
{
    ASSERT_EQ(acDocManager->mdiActiveDocument(), document());
    resbuf model = {};
    model.restype = RTSHORT; // TILEMODE 0: the sheet
    ASSERT_EQ(acedSetVar(L"TILEMODE", &model), RTNORM);
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakePoint({1, 2, 3}, id), 1);
    EXPECT_EQ(Open<AcDbPoint>(id)->ownerId(), database()->currentSpaceId());
    EXPECT_NE(database()->currentSpaceId(), database()->modelSpaceId());
}
} // namespace
