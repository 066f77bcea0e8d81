#include "DrawingTest.h"

#include "acedviews.h"
#include "dbjig.h"
#include "dbline.h"
#include "dbobjptr.h"

namespace
{
/// In a UCS at (100,0,0) whose X axis is the world's Y axis.
class InputInTurnedUcs : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        AcGeMatrix3d ucs;
        ucs.setCoordSystem({100, 0, 0}, AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
        ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
    }
    AcGePoint3d pointFor(const std::wstring& keys)
    {
        answer(keys + L"\n");
        ads_point point = {};
        EXPECT_EQ(acedGetPoint(nullptr, nullptr, point), RTNORM) << "for the answer";
        return {point[X], point[Y], point[Z]};
    }
};

class PointJig : public AcEdJig
{
public:
    DragStatus sampler() override { return acquirePoint(at, AcGePoint3d(100, 10, 0)); }
    AcGePoint3d at;
};
} // namespace

TEST_F(InputInTurnedUcs, PointsComeInTheUcs)
{
    EXPECT_TRUE(pointFor(L"7,8").isEqualTo({7, 8, 0}));
    EXPECT_TRUE(pointFor(L"*100,10").isEqualTo({10, 0, 0}));
    EXPECT_TRUE(pointFor(L"@*1,0").isEqualTo({10, -1, 0}));
    resbuf last{};
    EXPECT_EQ(acedGetVar(L"LASTPOINT", &last), RTNORM);
    EXPECT_NEAR(last.resval.rpoint[Y], -1.0, 1e-12);
}

TEST_F(InputInTurnedUcs, ObjectsAreSnappedWhereTheyAreSeen)
{
    asCommand([this] {
        // From (10,0) to (10,60) of the UCS.
        headless::addTo(database()->currentSpaceId(), new AcDbLine({100, 10, 0}, {40, 10, 0}));
    });
    EXPECT_TRUE(pointFor(L"mid 10.2,10").isEqualTo({10, 30, 0}));
    const ads_point pick = {10, 59.5, 0};
    ads_point found = {};
    EXPECT_EQ(acedOsnap(pick, L"_end", found), RTNORM);
    EXPECT_NEAR(found[Y], 60.0, 1e-9);
}

TEST_F(InputInTurnedUcs, JigsGiveTheWorld)
{
    PointJig jig;
    answer(L"@5,0\n"); // along the UCS's X axis from its point (10,0)
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    EXPECT_TRUE(jig.at.isEqualTo({100, 15, 0}));
}
