#include "dbxrecrd.h"

#include "DatabaseFixture.h"
#include "RecordLists.h"
#include "ResbufSink.h"

using Xrecord = DatabaseFixture;

TEST_F(Xrecord, ListsComeBackAsTheyWereSet)
{
    const ads_point point = {1.5, -2.0, 3.25};
    ads_name name = {mDatabase.layerZero().asOldId(), 0};
    char bytes[] = {1, 0, 2};
    ads_binary chunk{3, bytes};
    const ResbufList list(acutBuildList(1, L"值", 10, point, 40, 0.25, 70, -3, 90, 100000, 290, 1, 330, name,
                                        310, &chunk, 320, L"2F", RTNONE));
    ASSERT_TRUE(list);
    AcDbXrecord record;
    ASSERT_EQ(record.setFromRbChain(*list, &mDatabase), Acad::eOk);
    resbuf* read = nullptr;
    ASSERT_EQ(record.rbChain(&read, &mDatabase), Acad::eOk);
    const ResbufList back(read);
    const resbuf* node = read;
    for (const resbuf* set = list.get(); set; set = set->rbnext, node = node->rbnext) {
        ASSERT_TRUE(node);
        ASSERT_EQ(node->restype, set->restype);
        switch (set->restype) {
        case 1:
        case 320: EXPECT_STREQ(node->resval.rstring, set->resval.rstring); break;
        case 10:
            for (int i = X; i <= Z; ++i) EXPECT_EQ(node->resval.rpoint[i], set->resval.rpoint[i]);
            break;
        case 40: EXPECT_EQ(node->resval.rreal, 0.25); break;
        case 90: EXPECT_EQ(node->resval.rlong, 100000); break;
        case 310: EXPECT_EQ(std::string(node->resval.rbinary.buf, 3), std::string(bytes, 3)); break;
        case 330: EXPECT_TRUE(ads_name_equal(node->resval.rlname, name)); break;
        default: EXPECT_EQ(node->resval.rint, set->resval.rint);
        }
    }
    EXPECT_EQ(node, nullptr);
}

TEST_F(Xrecord, BadListsChangeNothing)
{
    AcDbXrecord record;
    const ResbufList good(acutBuildList(70, 7, RTNONE));
    ASSERT_EQ(record.setFromRbChain(*good), Acad::eOk);
    const ResbufList reserved(acutBuildList(70, 8, 5, L"1F", RTNONE));
    EXPECT_EQ(record.setFromRbChain(*reserved), Acad::eInvalidDxfCode);
    const ResbufList noText(acutNewRb(1));
    EXPECT_EQ(record.setFromRbChain(*noText), Acad::eInvalidResBuf);
    EXPECT_EQ(textOf(written(record)), "100 AcDbXrecord\n280 1\n70 7\n");
}

TEST_F(Xrecord, AnyGroupOfAFileIsKeptInItsPlace)
{
    // 280 stands first for the merging and later for the application; points may have two coordinates.
    const PackedGroups groups = groupsOf({{100, "AcDbXrecord"},
                                          {280, 0.0},
                                          {280, 5.0},
                                          {102, "{QM"},
                                          {70, 1.0},
                                          {10, 1.0},
                                          {20, 2.0},
                                          {280, 6.0},
                                          {360, 4711.0},
                                          {310, "\x01\x02"},
                                          {102, "}"}});
    AcDbXrecord record;
    EXPECT_EQ(rewritten(record, groups, &mDatabase), textOf(groups));
    EXPECT_EQ(record.mergeStyle(), AcDb::kDrcNotApplicable);
}

TEST_F(Xrecord, CancelPutsTheGroupsBack)
{
    AcDbObjectId id;
    auto* record = new AcDbXrecord;
    const ResbufList first(acutBuildList(70, 1, RTNONE));
    const ResbufList second(acutBuildList(70, 2, RTNONE));
    record->setFromRbChain(*first);
    ASSERT_EQ(mDatabase.addAcDbObject(id, record), Acad::eOk);
    record->close();
    EXPECT_EQ(record->setFromRbChain(*second), Acad::eNotOpenForWrite);
    ASSERT_EQ(acdbOpenObject(record, id, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(record->setFromRbChain(*second), Acad::eOk);
    record->cancel();
    EXPECT_EQ(textOf(written(*record)), "100 AcDbXrecord\n280 1\n70 1\n");
}
