#include "DxfFields.h"

#include "DatabaseFixture.h"
#include "RecordLists.h"

namespace
{
/// A record as newer programs write it: with groups and a section that the class does not know.
PackedGroups recordOfTheFuture()
{
    PackedGroups groups;
    groups.appendText(100, "AcDbSymbolTableRecord");
    groups.appendText(100, "AcDbRegAppTableRecord");
    groups.appendText(2, "QM_轴网");
    groups.appendInteger(70, 4);
    groups.appendReal(140, 2.5);
    groups.appendHandle(347, 0x1F);
    groups.appendText(100, "AcDbNotYetKnown");
    groups.appendText(2, "not a name");
    return groups;
}
} // namespace

using DxfFields = DatabaseFixture;

TEST_F(DxfFields, WhatTheClassDoesNotKnowIsWrittenBack)
{
    const PackedGroups groups = recordOfTheFuture();
    AcDbRegAppTableRecord record;
    ListSource source(groups);
    dxfRead(record, source);
    EXPECT_STREQ(record.name(), L"QM_轴网");
    EXPECT_TRUE(written(record, DxfVersion::r2018) == groups);
}

TEST_F(DxfFields, FilesBeforeR13HaveNoSections)
{
    AcDbRegAppTableRecord record;
    record.setName(L"QM");
    PackedGroups expected;
    expected.appendText(2, "QM");
    expected.appendInteger(70, 0);
    EXPECT_TRUE(written(record, DxfVersion::r12) == expected);

    AcDbRegAppTableRecord copy;
    ListSource source(expected);
    dxfRead(copy, source);
    EXPECT_STREQ(copy.name(), L"QM");
}

TEST(DxfKind, FollowsTheRangesOfTheReference)
{
    // Both ends of ranges of the DXF reference, and the codes just outside.
    EXPECT_EQ(dxfKindOf(9), DxfKind::text);
    EXPECT_EQ(dxfKindOf(10), DxfKind::real);
    EXPECT_EQ(dxfKindOf(59), DxfKind::real);
    EXPECT_EQ(dxfKindOf(60), DxfKind::integer);
    EXPECT_EQ(dxfKindOf(100), DxfKind::text);
    EXPECT_EQ(dxfKindOf(105), DxfKind::handle);
    EXPECT_EQ(dxfKindOf(299), DxfKind::integer);
    EXPECT_EQ(dxfKindOf(300), DxfKind::text);
    EXPECT_EQ(dxfKindOf(310), DxfKind::binary);
    EXPECT_EQ(dxfKindOf(369), DxfKind::handle);
    EXPECT_EQ(dxfKindOf(999), DxfKind::text);
    EXPECT_EQ(dxfKindOf(1004), DxfKind::binary);
    EXPECT_EQ(dxfKindOf(1071), DxfKind::integer);
    EXPECT_EQ(dxfKindOf(1072), DxfKind::text);
}
