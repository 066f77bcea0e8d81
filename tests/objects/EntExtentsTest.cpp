#include "QmCADLib.h"

#include "DrawingTest.h"

#include "dbattdef.h"
#include "dbattrib.h"
#include "dbblkref.h"
#include "dbents.h"
#include "dbextent.h"
#include "dbray.h"
#include "dbxline.h"

#include <cmath>

namespace
{
using EntExtents = headless::DrawingTest;

void expectBox(const AcDbExtents& extents, const AcGePoint3d& min, const AcGePoint3d& max)
{
    EXPECT_TRUE(extents.minPoint().isEqualTo(min)) << extents.minPoint().x << ", " << extents.minPoint().y;
    EXPECT_TRUE(extents.maxPoint().isEqualTo(max)) << extents.maxPoint().x << ", " << extents.maxPoint().y;
}

TEST_F(EntExtents, ListCoversItsEntitiesAndForgetsWhatWasBefore)
{
    AcDbObjectIdArray ids;
    ids.append(add(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 2, 3))));
    ids.append(add(new AcDbCircle(AcGePoint3d(10, 0, 0), AcGeVector3d::kZAxis, 2.0)));
    AcDbExtents extents(AcGePoint3d(-50, -50, 0), AcGePoint3d(-40, -40, 0));
    EXPECT_EQ(CFamStuEnt::GetEntExtents(extents, ids), Acad::eOk);
    expectBox(extents, AcGePoint3d(0, -2, 0), AcGePoint3d(12, 2, 3));
}

TEST_F(EntExtents, EmptyListChangesNothing)
{
    AcDbExtents extents(AcGePoint3d(1, 1, 1), AcGePoint3d(2, 2, 2));
    EXPECT_EQ(CFamStuEnt::GetEntExtents(extents, AcDbObjectIdArray()), static_cast<Acad::ErrorStatus>(16));
    expectBox(extents, AcGePoint3d(1, 1, 1), AcGePoint3d(2, 2, 2));
}

TEST_F(EntExtents, StatusIsThatOfTheLastEntity)
{
    const AcDbObjectId line = add(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0)));
    const AcDbObjectId gone = add(new AcDbLine(AcGePoint3d(5, 5, 0), AcGePoint3d(6, 6, 0)));
    erase(gone);
    AcDbObjectIdArray ids;
    ids.append(line);
    ids.append(gone);
    AcDbExtents extents;
    EXPECT_EQ(CFamStuEnt::GetEntExtents(extents, ids), Acad::eWasErased);
    expectBox(extents, AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0));
    ids.reverse();
    EXPECT_EQ(CFamStuEnt::GetEntExtents(extents, ids), Acad::eOk);
}

TEST_F(EntExtents, FailureOfOneEntityChangesNothing)
{
    auto* const ray = new AcDbRay;
    ray->setUnitDir(AcGeVector3d::kXAxis);
    AcDbExtents extents(AcGePoint3d(1, 1, 1), AcGePoint3d(2, 2, 2));
    EXPECT_NE(CFamStuEnt::GetEntExtents(extents, add(ray)), Acad::eOk);
    EXPECT_EQ(CFamStuEnt::GetEntExtents(extents, AcDbObjectId()), Acad::eNullObjectId);
    EXPECT_EQ(CFamStuEnt::GetEntExtents(extents, database()->layerZero()), Acad::eNotThatKindOfClass);
    expectBox(extents, AcGePoint3d(1, 1, 1), AcGePoint3d(2, 2, 2));
}

TEST_F(EntExtents, PointsWidenWhatIsThere)
{
    AcDbExtents extents(AcGePoint3d(1, 1, 1), AcGePoint3d(2, 2, 2));
    AcGePoint3dArray points;
    EXPECT_EQ(CFamStuEnt::GetEntExtents(extents, points), 1);
    points.append(AcGePoint3d(0, 5, 1));
    EXPECT_EQ(CFamStuEnt::GetEntExtents(extents, points), 1);
    expectBox(extents, AcGePoint3d(0, 1, 1), AcGePoint3d(2, 5, 2));
}

TEST_F(EntExtents, ContentsOfBlocksAreTurnedOneByOne)
{
    // A unit circle in a block, turned by 45 degrees, keeps its box; the box of the box would be larger.
    const AcDbObjectId inner = addBlock(L"inner"), outer = addBlock(L"outer");
    add(new AcDbCircle(AcGePoint3d::kOrigin, AcGeVector3d::kZAxis, 1.0), inner);
    add(new AcDbRay, inner);
    auto* const nested = new AcDbBlockReference(AcGePoint3d(3, 0, 0), inner);
    nested->setRotation(0.785398163397448);
    add(nested, outer);
    const AcDbObjectId reference = add(new AcDbBlockReference(AcGePoint3d(10, 10, 0), outer));

    AcDbExtents extents;
    const AcDbObjectPointer<AcDbEntity> opened(reference, AcDb::kForRead);
    EXPECT_EQ(CFamStuEnt::getBlkRefExtByFilerError(opened.object(), extents), Acad::eOk);
    expectBox(extents, AcGePoint3d(12, 9, 0), AcGePoint3d(14, 11, 0));
}

/// The contents of a reference by the walk through its block.
AcDbExtents contentsOf(AcDbObjectId reference, Acad::ErrorStatus wanted = Acad::eOk)
{
    AcDbExtents extents;
    const AcDbObjectPointer<AcDbEntity> opened(reference, AcDb::kForRead);
    EXPECT_EQ(CFamStuEnt::getBlkRefExtByFilerError(opened.object(), extents), wanted);
    return extents;
}

// Three columns 10 apart and two rows 5 apart, turned by a right angle: columns go along Y, rows along -X.
TEST_F(EntExtents, ContentsStandInEveryRowAndColumn)
{
    const AcDbObjectId dot = addBlock(L"dot");
    add(new AcDbPoint(AcGePoint3d(1, 0, 0)), dot);
    auto* const grid = new AcDbMInsertBlock(AcGePoint3d(100, 0, 0), dot, 3, 2, 10.0, 5.0);
    grid->setRotation(std::acos(0.0));
    const AcDbObjectId id = add(grid);
    expectBox(contentsOf(id), {95, 1, 0}, {100, 21, 0});
    AcDbExtents own;
    EXPECT_EQ(CFamStuEnt::GetEntExtents(own, id), Acad::eOk);
    expectBox(own, {95, 1, 0}, {100, 21, 0});
}

TEST_F(EntExtents, AttributesAreSeenAndTheirDefinitionsNot)
{
    const AcDbObjectId block = addBlock(L"tag");
    add(new AcDbPoint(AcGePoint3d::kOrigin), block);
    add(new AcDbAttributeDefinition(AcGePoint3d(500, 0, 0), L"value", L"TAG", L"?"), block);
    const AcDbObjectId id = add(new AcDbBlockReference(AcGePoint3d::kOrigin, block));
    expectBox(contentsOf(id), {0, 0, 0}, {0, 0, 0});
    const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForWrite);
    auto* const attribute = new AcDbAttribute(AcGePoint3d(-10, 20, 0), L"here", L"TAG");
    ASSERT_EQ(reference->appendAttribute(attribute), Acad::eOk);
    AcDbExtents seen, all;
    ASSERT_EQ(attribute->getGeomExtents(seen), Acad::eOk);
    attribute->close();
    EXPECT_EQ(CFamStuEnt::getBlkRefExtByFilerError(reference.object(), all), Acad::eOk);
    seen.addPoint(AcGePoint3d::kOrigin);
    expectBox(all, seen.minPoint(), seen.maxPoint());
}

TEST_F(EntExtents, BlocksWithinThemselvesAreCountedOnce)
{
    const AcDbObjectId block = addBlock(L"again");
    add(new AcDbPoint(AcGePoint3d(1, 2, 3)), block);
    for (int i = 0; i < 2; ++i)
        add(new AcDbBlockReference(AcGePoint3d(5, 0, 0), block), block);
    expectBox(contentsOf(add(new AcDbBlockReference(AcGePoint3d::kOrigin, block))), {1, 2, 3}, {1, 2, 3});
}

// Two to the power of 40 points, in a row from (0, 1, 2) on: each level holds the one below twice, itself and
// beside it.
TEST_F(EntExtents, BlocksThatDoubleOnEveryLevelAreMeasured)
{
    AcDbObjectId block = addBlock(L"level");
    add(new AcDbPoint(AcGePoint3d(0, 1, 2)), block);
    double width = 1.0;
    for (int level = 1; level <= 40; ++level, width *= 2.0) {
        CString name;
        name.Format(L"level%d", level);
        const AcDbObjectId outer = addBlock(name);
        for (const double x : {0.0, width})
            add(new AcDbBlockReference(AcGePoint3d(x, 0, 0), block), outer);
        block = outer;
    }
    const AcDbObjectId id = add(new AcDbBlockReference(AcGePoint3d::kOrigin, block));
    AcDbExtents own;
    EXPECT_EQ(CFamStuEnt::GetEntExtents(own, id), Acad::eOk);
    for (const AcDbExtents& box : {own, contentsOf(id)})
        expectBox(box, {0, 1, 2}, {width - 1.0, 1, 2});
}

TEST_F(EntExtents, EndlessContentsHaveNone)
{
    const AcDbObjectId block = addBlock(L"endless");
    for (AcDbEntity* entity : std::initializer_list<AcDbEntity*>{new AcDbRay, new AcDbXline})
        add(entity, block);
    const AcDbObjectId id = add(new AcDbBlockReference(AcGePoint3d::kOrigin, block));
    contentsOf(id, Acad::eInvalidExtents);
    AcDbExtents extents;
    EXPECT_EQ(CFamStuEnt::GetEntExtents(extents, id), Acad::eInvalidExtents);
}

TEST_F(EntExtents, EmptyBlocksAndOtherEntitiesHaveNoContents)
{
    const AcDbObjectId reference = add(new AcDbBlockReference(AcGePoint3d::kOrigin, addBlock(L"empty")));
    AcDbExtents extents(AcGePoint3d(1, 1, 1), AcGePoint3d(2, 2, 2));
    const AcDbObjectPointer<AcDbEntity> opened(reference, AcDb::kForRead);
    EXPECT_EQ(CFamStuEnt::getBlkRefExtByFilerError(opened.object(), extents), Acad::eInvalidExtents);
    EXPECT_EQ(CFamStuEnt::getBlkRefExtByFilerError(nullptr, extents), Acad::eNullObjectPointer);
    AcDbLine line;
    EXPECT_EQ(CFamStuEnt::getBlkRefExtByFilerError(&line, extents), Acad::eNotThatKindOfClass);
    expectBox(extents, AcGePoint3d(1, 1, 1), AcGePoint3d(2, 2, 2));
}
} // namespace
