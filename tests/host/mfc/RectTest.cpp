#include "atltypes.h"

#include <gtest/gtest.h>

TEST(CRect, HoldsItsLeftAndTopEdgesOnly)
{
    const CRect rect(10, 20, 30, 40);
    EXPECT_TRUE(rect.PtInRect(CPoint(10, 20)));
    EXPECT_FALSE(rect.PtInRect(CPoint(30, 39)));
    EXPECT_FALSE(rect.PtInRect(CPoint(29, 40)));
}

TEST(CRect, IntersectionOfTouchingRectanglesIsEmpty)
{
    const CRect left(0, 0, 10, 10), right(10, 0, 20, 10), across(5, 5, 15, 15);
    CRect common(1, 2, 3, 4);
    EXPECT_FALSE(common.IntersectRect(left, right));
    EXPECT_TRUE(common.IsRectNull());
    EXPECT_TRUE(common.IntersectRect(left, across));
    EXPECT_EQ(common, CRect(5, 5, 10, 10));
}

TEST(CRect, UnionLeavesEmptyRectanglesOut)
{
    const CRect empty(50, 50, 50, 90), some(1, 2, 3, 4);
    CRect both;
    EXPECT_TRUE(both.UnionRect(empty, some));
    EXPECT_EQ(both, some);
    EXPECT_FALSE(both.UnionRect(empty, CRect()));
}

TEST(CRect, CornersAreItsOwn)
{
    CRect rect(1, 2, 3, 4);
    rect.TopLeft() = CPoint(-5, -6);
    rect.BottomRight().x += 10;
    EXPECT_EQ(rect, CRect(-5, -6, 13, 4));
}

TEST(CRect, OperatorsMoveCutAndJoin)
{
    CRect rect(0, 0, 10, 10);
    rect += CSize(5, 0);
    EXPECT_EQ(rect, CRect(5, 0, 15, 10));
    EXPECT_EQ(rect - CPoint(5, 0), CRect(0, 0, 10, 10));
    EXPECT_EQ(rect & CRect(0, 5, 10, 20), CRect(5, 5, 10, 10));
    EXPECT_EQ(rect | CRect(20, 0, 30, 10), CRect(5, 0, 30, 10));
    rect.MoveToXY(1, 2);
    rect.DeflateRect(1, 2, 3, 4);
    EXPECT_EQ(rect, CRect(2, 4, 8, 8));
}

TEST(CRect, SubtractionLeavesOneRectangleOrAll)
{
    const CRect whole(0, 0, 10, 10), right(5, 0, 20, 10), corner(5, 5, 20, 20);
    CRect rest;
    EXPECT_TRUE(rest.SubtractRect(whole, right));
    EXPECT_EQ(rest, CRect(0, 0, 5, 10));
    EXPECT_TRUE(rest.SubtractRect(whole, corner));
    EXPECT_EQ(rest, whole);
    EXPECT_FALSE(rest.SubtractRect(whole, whole));
}

TEST(CPoint, MouseMessagesHoldSignedWords)
{
    EXPECT_EQ(CPoint(MAKELPARAM(-3, 7)), CPoint(-3, 7));
}
