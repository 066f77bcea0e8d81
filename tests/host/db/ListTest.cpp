#include "DatabaseFixture.h"
#include "PackedGroups.h"
#include "StubTable.h"

#include <random>

using Lists = DatabaseFixture;

TEST_F(Lists, BuildListTakesEachValueAsItsTypeAsks)
{
    const ads_point point = {1, 2, 3};
    resbuf* list = acutBuildList(RTDXF0, L"LINE", 8, L"墙", 10, point, RTPOINT, point, 62, 5, RTLB, RTLE, RTNONE);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->restype, 0);
    EXPECT_STREQ(list->resval.rstring, L"LINE");
    const resbuf* planar = list->rbnext->rbnext->rbnext;
    EXPECT_EQ(planar->restype, RTPOINT);
    EXPECT_EQ(planar->resval.rpoint[Z], 0.0);
    EXPECT_EQ(planar->rbnext->resval.rint, 5);
    EXPECT_EQ(acutRelRb(list), RTNORM);
    EXPECT_EQ(acutRelRb(nullptr), RTERROR);
}

TEST_F(Lists, BuildListOfAnUnknownTypeLeavesNothingBehind)
{
    EXPECT_EQ(acutBuildList(1000, L"kept until the fault", 5999, 1, RTNONE), nullptr);
    EXPECT_EQ(acutBuildList(1000, nullptr, RTNONE), nullptr);
}

TEST(AcDbHandle, TextIsHexadecimalBothWays)
{
    wchar_t text[17];
    EXPECT_TRUE(AcDbHandle(~std::uint64_t(0)).getIntoAsciiBuffer(text));
    EXPECT_STREQ(text, L"FFFFFFFFFFFFFFFF");
    EXPECT_EQ(AcDbHandle(L"00ffg").value(), 0xffu);
    EXPECT_TRUE(AcDbHandle(L"").isNull());
    EXPECT_TRUE(AcDbHandle(L"11112222333344445").isNull()); // 17 digits
    wchar_t small[3] = L"xy";
    EXPECT_FALSE(AcDbHandle(0x123u).getIntoAsciiBuffer(small, 3));
    EXPECT_STREQ(small, L"");
}

TEST(StubTable, HandlesFindTheirStubsHoweverTheyLie)
{
    StubTable table(nullptr);
    std::mt19937_64 random(20211);
    std::vector<std::uint64_t> handles;
    for (int i = 0; i < 2000; ++i) handles.push_back(random() >> (i % 60) | 1);
    for (const std::uint64_t handle : handles) EXPECT_EQ(table.obtain(handle)->handle, handle);
    for (const std::uint64_t handle : handles) EXPECT_EQ(table.find(handle), table.obtain(handle));
    EXPECT_EQ(table.find(0), nullptr);
}

TEST(PackedGroups, EveryKindComesBack)
{
    PackedGroups groups;
    groups.appendText(1, "文字");
    groups.appendReal(40, -0.5);
    groups.appendInteger(160, -5000000000);
    groups.appendHandle(330, 0xFFFFFFFFFFFFFFFF);
    groups.appendBinary(310, std::string_view("\0\1", 2));
    groups.appendInteger(-4, 1);
    std::size_t at = 0;
    DxfGroup group;
    ASSERT_TRUE(groups.read(at, group));
    EXPECT_EQ(group.wide(), CString(L"文字"));
    ASSERT_TRUE(groups.read(at, group));
    EXPECT_EQ(group.real, -0.5);
    ASSERT_TRUE(groups.read(at, group));
    EXPECT_EQ(group.integer, -5000000000);
    ASSERT_TRUE(groups.read(at, group));
    EXPECT_EQ(static_cast<std::uint64_t>(group.integer), 0xFFFFFFFFFFFFFFFF);
    ASSERT_TRUE(groups.read(at, group));
    EXPECT_EQ(group.text.size(), 2u);
    ASSERT_TRUE(groups.read(at, group));
    EXPECT_EQ(group.code, -4);
    EXPECT_FALSE(groups.read(at, group));
}
