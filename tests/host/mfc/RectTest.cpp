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
