#include "SelectionFixture.h"

#include "dbattrib.h"

namespace
{
class PickOne : public SelectionTest
{
protected:
    int pick(const std::wstring& keys)
    {
        ads_name entity;
        answer(keys);
        takeOutput();
        const int status = acedEntSel(nullptr, entity, point);
        if (status == RTNORM) acdbGetObjectId(picked, entity);
        return status;
    }
    static long errno_()
    {
        resbuf value{};
        acedGetVar(L"ERRNO", &value);
        return value.resval.rint;
    }
    AcDbObjectId picked;
    ads_point point = {0, 0, 0};
};
} // namespace

TEST_F(PickOne, GivesTheUppermostEntityAndThePoint)
{
    addLine(0, 0, 10, 0);
    const AcDbObjectId upper = addCircle(5, 5, 5);
    EXPECT_EQ(pick(L"5,0.5 "), RTNORM);
    EXPECT_EQ(picked, upper);
    EXPECT_EQ(point[Y], 0.5);
    EXPECT_EQ(takeOutput(), L"\nSelect object: ");
    EXPECT_EQ(pick(L"FOO L "), RTNORM);
    EXPECT_EQ(picked, upper);
}

TEST_F(PickOne, SaysWhyThereIsNone)
{
    addLine(0, 0, 10, 0);
    EXPECT_EQ(pick(L"50,50 "), RTERROR);
    EXPECT_EQ(errno_(), 7);
    EXPECT_EQ(pick(L"\n"), RTERROR);
    EXPECT_EQ(errno_(), 52);
    EXPECT_EQ(pick(L"^C"), RTCAN);
    EXPECT_EQ(acedEntSel(nullptr, nullptr, point), RTERROR);
}

// A line of the inner block, whose reference is turned and scaled in the outer block.
TEST_F(PickOne, GoesDownIntoBlocks)
{
    AcDbObjectId inner, outer;
    AcDbBlockTable* table = nullptr;
    database()->getBlockTable(table, AcDb::kForWrite);
    for (auto [name, id] : {std::pair{L"INNER", &inner}, std::pair{L"OUTER", &outer}}) {
        auto* block = new AcDbBlockTableRecord;
        block->setName(name);
        table->add(*id, block);
        block->close();
    }
    table->close();
    const AcDbObjectId line =
        add(std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0)), nullptr, inner);
    auto turned = std::make_unique<AcDbBlockReference>(AcGePoint3d(20, 0, 0), inner);
    turned->setRotation(3.14159265358979323846 / 2);
    const AcDbObjectId nested = add(std::move(turned), nullptr, outer);
    auto scaled = std::make_unique<AcDbBlockReference>(AcGePoint3d(100, 0, 0), outer);
    scaled->setScaleFactors(AcGeScale3d(2, 2, 2));
    const AcDbObjectId top = add(std::move(scaled));

    ads_name entity;
    ads_point at = {140, 7, 0}, rows[4]; // x = 100 + 2 * 20
    resbuf* containers = nullptr;
    answer(L"140,7 ");
    ASSERT_EQ(acedNEntSel(L"Which? ", entity, at, rows, &containers), RTNORM);
    acdbGetObjectId(picked, entity);
    EXPECT_EQ(picked, line);
    // The line's X axis is twice the world's Y axis.
    EXPECT_NEAR(rows[0][X], 0, 1e-9);
    EXPECT_NEAR(rows[0][Y], 2, 1e-9);
    EXPECT_NEAR(rows[3][X], 140, 1e-9);
    ASSERT_TRUE(containers && containers->rbnext);
    EXPECT_EQ(containers->resval.rlname[0], nested.asOldId());
    EXPECT_EQ(containers->rbnext->resval.rlname[0], top.asOldId());
    acutRelRb(containers);

    ads_matrix matrix;
    ASSERT_EQ(acedNEntSelP(nullptr, entity, at, TRUE, matrix, &containers), RTNORM);
    EXPECT_NEAR(matrix[1][0], 2, 1e-9);
    EXPECT_NEAR(matrix[0][3], 140, 1e-9);
    acutRelRb(containers);
}

TEST_F(PickOne, EntitiesOutsideOfBlocksHaveNoContainers)
{
    const AcDbObjectId line = addLine(0, 0, 10, 0);
    ads_name entity;
    ads_point at = {5, 0, 0};
    ads_matrix matrix;
    resbuf* containers = nullptr;
    ASSERT_EQ(acedNEntSelP(nullptr, entity, at, TRUE, matrix, &containers), RTNORM);
    acdbGetObjectId(picked, entity);
    EXPECT_EQ(picked, line);
    EXPECT_FALSE(containers);
    EXPECT_EQ(matrix[0][0], 1.0);
    EXPECT_EQ(matrix[0][3], 0.0);
}
