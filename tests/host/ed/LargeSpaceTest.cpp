/// Picks and windows in spaces so large that their entities are kept in an index: what is found must be what
/// a look at every entity finds, whatever has changed since the index was made.

#include "SelectionFixture.h"

#include "dbdict.h"
#include "dbobjptr.h"
#include "dbsortentstbl.h"

namespace
{
class LargeSpaceTest : public SelectionTest
{
protected:
    static constexpr int kSide = 60; ///< 3600 lines, one a square of 10 units

    void SetUp() override
    {
        SelectionTest::SetUp();
        for (int i = 0; i < kSide * kSide; ++i)
            mLines.push_back(addLine(x(i), y(i), x(i) + 4, y(i)));
    }

    static double x(int i) { return i % kSide * 10.0; }
    static double y(int i) { return i / kSide * 10.0; }

    /// The index is made for the second search.
    void makeIndex()
    {
        pickAt(-500, -500);
        pickAt(-500, -500);
    }

    AcDbObjectId pickAt(double px, double py)
    {
        const ads_point point = {px, py, 0};
        const Ids ids = get(nullptr, point);
        return ids.empty() ? AcDbObjectId() : ids.front();
    }
    Ids crossing(double x1, double y1, double x2, double y2)
    {
        return getWindow(L"C", {x1, y1, 0}, {x2, y2, 0});
    }

    template <class Change>
    void change(AcDbObjectId id, Change make)
    {
        AcDbEntityPointer entity(id, AcDb::kForWrite);
        ASSERT_EQ(entity.openStatus(), Acad::eOk);
        make(*entity);
    }
    void move(AcDbObjectId id, double dx, double dy)
    {
        change(id, [&](AcDbEntity& entity) { entity.transformBy(AcGeMatrix3d::translation({dx, dy, 0})); });
    }

    /// Puts an object into the extension dictionary of model space.
    AcDbObjectId addToModelSpace(const ACHAR* name, AcDbObject* object)
    {
        AcDbObjectPointer<AcDbBlockTableRecord> space(database()->modelSpaceId(), AcDb::kForWrite);
        space->createExtensionDictionary();
        AcDbObjectId id;
        AcDbObjectPointer<AcDbDictionary>(space->extensionDictionary(), AcDb::kForWrite)
            ->setAt(name, object, id);
        return id;
    }

    Ids mLines;
};
} // namespace

TEST_F(LargeSpaceTest, PicksAndWindowsFindWhatIsThere)
{
    makeIndex();
    EXPECT_EQ(pickAt(x(1234) + 2, y(1234)), mLines[1234]);
    EXPECT_TRUE(pickAt(x(1234) + 7, y(1234) + 5).isNull());
    // The uppermost first: the last line of the four.
    EXPECT_EQ(crossing(-1, -1, 11, 11), (Ids{mLines[kSide + 1], mLines[kSide], mLines[1], mLines[0]}));
    EXPECT_EQ(crossing(-1, -1, 1000, 1000).size(), mLines.size());
}

TEST_F(LargeSpaceTest, ChangedEntitiesAreFoundWhereTheyAre)
{
    makeIndex();
    move(mLines[500], 3000, 7);
    EXPECT_TRUE(pickAt(x(500) + 2, y(500)).isNull());
    EXPECT_EQ(pickAt(x(500) + 3002, y(500) + 7), mLines[500]);
    move(mLines[500], 50, 0);
    EXPECT_TRUE(pickAt(x(500) + 3002, y(500) + 7).isNull());
    EXPECT_EQ(pickAt(x(500) + 3052, y(500) + 7), mLines[500]);
}

TEST_F(LargeSpaceTest, NewEntitiesLieOnTopAndErasedOnesAreGone)
{
    makeIndex();
    const AcDbObjectId over = addLine(x(7), y(7), x(7) + 4, y(7));
    EXPECT_EQ(pickAt(x(7) + 2, y(7)), over);
    change(over, [](AcDbEntity& entity) { entity.erase(); });
    EXPECT_EQ(pickAt(x(7) + 2, y(7)), mLines[7]);
    change(mLines[7], [](AcDbEntity& entity) { entity.erase(); });
    EXPECT_TRUE(pickAt(x(7) + 2, y(7)).isNull());
    AcDbEntity* back = nullptr;
    ASSERT_EQ(acdbOpenObject(back, mLines[7], AcDb::kForWrite, true), Acad::eOk);
    back->erase(false);
    back->close();
    EXPECT_EQ(pickAt(x(7) + 2, y(7)), mLines[7]);
}

TEST_F(LargeSpaceTest, EntityThatStaysOpenIsFoundWhereItIs)
{
    AcDbEntityPointer open(mLines[42], AcDb::kForWrite);
    makeIndex();
    open->transformBy(AcGeMatrix3d::translation({0, -300, 0}));
    EXPECT_EQ(pickAt(x(42) + 2, y(42) - 300), mLines[42]);
    open->transformBy(AcGeMatrix3d::translation({0, -300, 0}));
    EXPECT_EQ(pickAt(x(42) + 2, y(42) - 600), mLines[42]);
}

TEST_F(LargeSpaceTest, LayersAndVisibilityCountAsTheyAreNow)
{
    makeIndex();
    change(mLines[9], [&](AcDbEntity& entity) { entity.setLayer(needLayer(L"Walls")); });
    EXPECT_EQ(pickAt(x(9) + 2, y(9)), mLines[9]);
    changeLayer(L"Walls", [](AcDbLayerTableRecord& layer) { layer.setIsOff(true); });
    EXPECT_TRUE(pickAt(x(9) + 2, y(9)).isNull());
    changeLayer(L"Walls", [](AcDbLayerTableRecord& layer) { layer.setIsOff(false); });
    change(mLines[9], [](AcDbEntity& entity) { entity.setVisibility(AcDb::kInvisible); });
    EXPECT_TRUE(pickAt(x(9) + 2, y(9)).isNull());
}

TEST_F(LargeSpaceTest, BlockThatGrowsIsFoundInItsNewPlaces)
{
    AcDbBlockTable* table = nullptr;
    AcDbObjectId blockId;
    database()->getBlockTable(table, AcDb::kForWrite);
    auto* block = new AcDbBlockTableRecord;
    block->setName(L"Post");
    table->add(blockId, block);
    block->close();
    table->close();
    add(std::make_unique<AcDbCircle>(AcGePoint3d(), AcGeVector3d::kZAxis, 1), nullptr, blockId);
    const AcDbObjectId post = add(std::make_unique<AcDbBlockReference>(AcGePoint3d(-100, 0, 0), blockId));
    makeIndex();
    EXPECT_EQ(pickAt(-99, 0), post);
    add(std::make_unique<AcDbCircle>(AcGePoint3d(), AcGeVector3d::kZAxis, 50), nullptr, blockId);
    EXPECT_EQ(pickAt(-150, 0), post);
    EXPECT_EQ(pickAt(-100, 50), post);
}

TEST_F(LargeSpaceTest, DrawOrderThatChangesDecides)
{
    const AcDbObjectId over = addLine(x(3), y(3), x(3) + 4, y(3));
    makeIndex();
    EXPECT_EQ(pickAt(x(3) + 2, y(3)), over);
    AcDbObjectIdArray ids;
    ids.append(over);
    AcDbObjectPointer<AcDbSortentsTable> order;
    order.create();
    const AcDbObjectId id = addToModelSpace(L"ACAD_SORTENTS", order);
    EXPECT_EQ(order->moveToBottom(ids), Acad::eOk);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(pickAt(x(3) + 2, y(3)), mLines[3]) << i;
    // Still open, the table changes once more.
    EXPECT_EQ(order->moveToTop(ids), Acad::eOk);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(pickAt(x(3) + 2, y(3)), over) << i;
    order.close();
    makeIndex();
    {
        AcDbObjectPointer<AcDbSortentsTable> again(id, AcDb::kForWrite);
        EXPECT_EQ(again->moveToBottom(ids), Acad::eOk);
    }
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(pickAt(x(3) + 2, y(3)), mLines[3]) << i;
}

TEST_F(LargeSpaceTest, ManyChangesAreAllSeen)
{
    makeIndex();
    // More than the index looks at besides.
    for (std::size_t i = 0; i < 2000; ++i)
        move(mLines[i], 0, 1000);
    for (std::size_t i = 0; i < 3000; i += 100)
        EXPECT_EQ(pickAt(x(static_cast<int>(i)) + 2, y(static_cast<int>(i)) + (i < 2000 ? 1000 : 0)),
                  mLines[i])
            << i;
}
